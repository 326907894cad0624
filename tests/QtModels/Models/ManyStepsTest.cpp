// SPDX-License-Identifier: MIT
// A model under changes of very many steps, all rows of which are followed.

#include "GroupHosting/Support/TestProvider.h"
#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/MoveTKGroupElementsCmd.h"
#include "QtModels/Models/GroupItemModel.h"
#include "QtModels/Support/ShownRows.h"
#include "Support/Identifiers.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QPersistentModelIndex>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <random>
#include <utility>
#include <vector>

namespace Tarvik {
namespace {

template <class T>
class GroupItemModelManySteps : public ::testing::Test {
protected:
  /// Elements at regular distances, in order.
  std::vector<T> oneIn(std::size_t distance) const
  {
    std::vector<T> some;
    for (std::size_t i = 0; i < elements.size(); i += distance)
      some.push_back(elements[i]);
    return some;
  }

  TKGroup<T> groupOf(const std::vector<T>& members) const
  {
    TKGroup<T> group("A");
    setMembers(group, members);
    return group;
  }

  /// Does the change, and expects that each element that is still shown has the row of before.
  template <class Change>
  void expectToFollow(Change change)
  {
    std::vector<std::pair<QPersistentModelIndex, T>> rows;
    forEachRow(model, [&](const QModelIndex& index) {
      if (const auto* element = model.elementAt(index))
        rows.emplace_back(index, *element);
    });

    QElapsedTimer timer;
    timer.start();
    change();
    EXPECT_LT(timer.elapsed(), 5'000) << "milliseconds: each step takes time for all rows";

    ASSERT_NO_FATAL_FAILURE(expectToShow(model, *provider));
    std::size_t followed = 0;
    for (const auto& [index, element] : rows) {
      if (!index.isValid())
        continue;
      ++followed;
      ASSERT_EQ(*model.elementAt(index), element);
    }
    EXPECT_EQ(followed, provider->elements().size()) << "rows of the host's elements";
  }

  const std::vector<T> elements = std::vector<T>(40'000);
  std::shared_ptr<TestProvider<T>> provider = std::make_shared<TestProvider<T>>(elements);
  GroupItemModel<T> model{provider};
};
TYPED_TEST_SUITE(GroupItemModelManySteps, ElementIdentifiers, KindName);

TYPED_TEST(GroupItemModelManySteps, AreFollowedWhenEveryOtherElementIsGroupedAndUngrouped)
{
  CreateTKGroupCmd<TypeParam> create(this->provider, this->oneIn(2), "A");

  this->expectToFollow([&] { create.execute(); });
  this->expectToFollow([&] { create.undo(); });
}

TYPED_TEST(GroupItemModelManySteps, AreFollowedWhenOneMemberInTenMoves)
{
  this->provider->setGroups({this->groupOf(this->elements)});
  MoveTKGroupElementsCmd<TypeParam> move(this->provider, this->oneIn(10), this->elements[9'999],
                                         true);

  this->expectToFollow([&] { move.execute(); });
  this->expectToFollow([&] { move.undo(); });
}

TYPED_TEST(GroupItemModelManySteps, AreFollowedWhenMembersLeaveMoveAndCome)
{
  std::mt19937 random(1); // NOLINT: the same in every run
  auto members = this->oneIn(2);
  this->provider->setGroups({this->groupOf(members)});
  for (std::size_t i = 0; i < 1'000; ++i) {
    members.erase(members.begin() + static_cast<std::ptrdiff_t>(random() % members.size()));
    std::swap(members[random() % members.size()], members[random() % members.size()]);
    members.insert(members.begin() + static_cast<std::ptrdiff_t>(random() % members.size()),
                   this->elements[2 * i + 1]);
  }

  auto groups = this->provider->copyOfGroups();
  setMembers(groups[0], members);

  this->expectToFollow([&] { this->provider->setGroups(groups); });
}

TYPED_TEST(GroupItemModelManySteps, AreFollowedWhenGroupsLeaveMoveAndCome)
{
  std::vector<TKGroup<TypeParam>> before;
  for (std::size_t i = 0; i < 3'000; ++i)
    before.push_back(this->groupOf({this->elements[2 * i], this->elements[2 * i + 1]}));
  this->provider->setGroups(before);
  std::vector<TKGroup<TypeParam>> after;
  for (std::size_t i = 0; i + 2 < before.size(); i += 3) {
    after.push_back(before[i + 1]);
    after.push_back(i % 2 == 0 ? this->groupOf({this->elements[10'000 + i]}) : before[i]);
  }
  std::swap_ranges(after.begin(), after.begin() + 100, after.end() - 100);

  this->expectToFollow([&] { this->provider->setGroups(after); });
  this->expectToFollow([&] { this->provider->setGroups(before); });
}

}
}
