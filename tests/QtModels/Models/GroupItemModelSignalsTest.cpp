// SPDX-License-Identifier: MIT
// What a model tells its views about a change, and nothing else.

#include "GroupHosting/Support/TestProvider.h"
#include "HighLevelServices/GroupCommands/AddToTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/RemoveFromTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/RemoveTKGroupsCmd.h"
#include "QtModels/Models/GroupItemModel.h"
#include "QtModels/Support/RecordedSignals.h"
#include "QtModels/Support/ShownRows.h"
#include "Support/Groups.h"

#include <QtCore/QPersistentModelIndex>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Groups "A" of u, v and w, and "B" of x; y and z are ungrouped.
template <class T>
class GroupItemModelSignals : public ::testing::Test {
protected:
  GroupItemModelSignals()
  {
    provider->setElements(ids);
    provider->nameElements({{u, "u"}, {v, "v"}, {w, "w"}, {x, "x"}, {y, "y"}, {z, "z"}});
    provider->setGroups({group("A", {u, v, w}), group("B", {x})});
    model = std::make_unique<GroupItemModel<T>>(provider);
    recorded = std::make_unique<RecordedSignals>(*model);
  }

  Identifier idOf(std::size_t position) { return provider->getGroups()[position].getId(); }

  /// Changes a copy of the groups, and gives it to the provider.
  template <class Change>
  void changeGroups(Change change)
  {
    auto groups = provider->copyOfGroups();
    change(groups);
    provider->setGroups(groups);
  }

  const std::vector<T> ids = std::vector<T>(6);
  const T &u = ids[0], &v = ids[1], &w = ids[2], &x = ids[3], &y = ids[4], &z = ids[5];
  std::shared_ptr<TestProvider<T>> provider = std::make_shared<TestProvider<T>>();
  std::unique_ptr<GroupItemModel<T>> model;
  std::unique_ptr<RecordedSignals> recorded;
};
TYPED_TEST_SUITE(GroupItemModelSignals, ElementIdentifiers, KindName);

TYPED_TEST(GroupItemModelSignals, AreAMoveWhenAnElementGoesToAnotherGroup)
{
  AddToTKGroupCmd<TypeParam>(this->provider, {this->v}, this->idOf(1)).execute();

  EXPECT_THAT(this->recorded->texts(), ElementsAre("A: rows 1 to 1 move before B: row 1",
                                                   "rows 0 to 0 change", "rows 1 to 1 change"));
}

TYPED_TEST(GroupItemModelSignals, AreAMoveWhenUngroupedElementsComeIntoAGroup)
{
  AddToTKGroupCmd<TypeParam>(this->provider, {this->y, this->z}, this->idOf(0)).execute();

  EXPECT_THAT(this->recorded->texts(),
              ElementsAre("rows 2 to 3 move before A: row 3", "rows 0 to 0 change"));
}

TYPED_TEST(GroupItemModelSignals, AreAMoveWhenAnElementBecomesUngrouped)
{
  RemoveFromTKGroupCmd<TypeParam>(this->provider, {this->x}).execute();

  EXPECT_THAT(this->recorded->texts(),
              ElementsAre("B: rows 0 to 0 move before row 2", "rows 1 to 1 change"));
}

TYPED_TEST(GroupItemModelSignals, AreOneLayoutWhenElementsOfSeveralListsCome)
{
  const QPersistentModelIndex rowOfV = this->model->index(1, 0, this->model->index(0, 0));
  const QPersistentModelIndex rowOfZ = this->model->index(3, 0);

  AddToTKGroupCmd<TypeParam>(this->provider, {this->v, this->z}, this->idOf(1)).execute();

  EXPECT_THAT(this->recorded->texts(), ElementsAre("layout", "rows 0 to 1 change"));
  EXPECT_EQ(rowOfV, this->model->index(1, 0, this->model->index(1, 0)));
  EXPECT_EQ(rowOfZ, this->model->index(2, 0, this->model->index(1, 0)));
}

TYPED_TEST(GroupItemModelSignals, KeepRowsThatAGroupTakesAndGivesBack)
{
  const QPersistentModelIndex rowOfY = this->model->index(2, 0);
  CreateTKGroupCmd<TypeParam> create(this->provider, {this->y}, "C");

  create.execute();
  EXPECT_EQ(rowOfY.parent().data().toString(), "C");
  create.undo();

  EXPECT_EQ(rowOfY, this->model->index(2, 0));
}

TYPED_TEST(GroupItemModelSignals, TellAGroupThatComesAndLeaves)
{
  CreateTKGroupCmd<TypeParam> create(this->provider, {}, "C");

  create.execute();
  create.undo();

  EXPECT_THAT(this->recorded->texts(), ElementsAre("rows 2 to 2 come", "rows 2 to 2 leave"));
}

TYPED_TEST(GroupItemModelSignals, TellANewNameOnly)
{
  this->provider->renameGroup(this->idOf(1), "C");

  EXPECT_THAT(this->recorded->texts(), ElementsAre("rows 1 to 1 change"));
}

TYPED_TEST(GroupItemModelSignals, TellNoCountWhenMembersOnlyMove)
{
  this->changeGroups([this](auto& groups) { setMembers(groups[0], {this->w, this->u, this->v}); });

  EXPECT_THAT(this->recorded->texts(), ElementsAre("A: rows 2 to 2 move before A: row 0"));
}

TYPED_TEST(GroupItemModelSignals, TellNoCountWhenAsManyMembersComeAsLeave)
{
  const TypeParam stranger;
  this->changeGroups([&](auto& groups) { setMembers(groups[1], {stranger}); });
  EXPECT_THAT(this->recorded->texts(), ElementsAre("layout"));
}

TYPED_TEST(GroupItemModelSignals, TellGroupsThatMove)
{
  this->changeGroups([](auto& groups) { std::swap(groups[0], groups[1]); });

  EXPECT_THAT(this->recorded->texts(), ElementsAre("rows 1 to 1 move before row 0"));
}

TYPED_TEST(GroupItemModelSignals, TellANewOrderAsALayoutOfItsGroup)
{
  std::vector<TypeParam> many(40);
  this->changeGroups([&](auto& groups) { setMembers(groups[1], many); });
  const QPersistentModelIndex row = this->model->index(0, 0, this->model->index(1, 0));
  this->recorded = std::make_unique<RecordedSignals>(*this->model);

  this->changeGroups([&](auto& groups) { setMembers(groups[1], {many.rbegin(), many.rend()}); });

  EXPECT_THAT(this->recorded->texts(), ElementsAre("B: layout"));
  EXPECT_EQ(row.row(), 39);
}

TYPED_TEST(GroupItemModelSignals, AreOneLayoutForMoreStepsThanTheMaximum)
{
  this->model->setMaximumSteps(1);

  this->changeGroups([](auto& groups) {
    groups[0].setName("C", true);
    groups[1].setName("D", true);
  });

  EXPECT_THAT(this->recorded->texts(), ElementsAre("layout", "rows 0 to 1 change"));
}

TYPED_TEST(GroupItemModelSignals, TellElementsThatTheApplicationHasRenamed)
{
  this->provider->nameElements({{this->v, "new"}, {this->z, "new"}});

  this->model->elementsChanged({this->v, this->z});

  EXPECT_THAT(this->recorded->texts(), ElementsAre("A: rows 1 to 1 change", "rows 3 to 3 change"));
}

TYPED_TEST(GroupItemModelSignals, TellAllRowsForManyElements)
{
  this->model->elementsChanged(std::vector<TypeParam>(17));

  EXPECT_THAT(this->recorded->texts(),
              ElementsAre("rows 0 to 3 change", "A: rows 0 to 2 change", "B: rows 0 to 0 change"));
}

TYPED_TEST(GroupItemModelSignals, TellNothingWhenNothingChanges)
{
  this->changeGroups([](auto&) {});

  EXPECT_THAT(this->recorded->texts(), IsEmpty());
}

TYPED_TEST(GroupItemModelSignals, FollowChangesThatAListenerMakes)
{
  bool isFirst = true;
  const auto meddling = this->provider->subscribe([&](const auto&) {
    if (std::exchange(isFirst, false))
      this->changeGroups([](auto& groups) { groups.erase(groups.begin()); });
  });

  this->provider->renameGroup(this->idOf(1), "C");

  expectToShow(*this->model, *this->provider);
}

}
}
