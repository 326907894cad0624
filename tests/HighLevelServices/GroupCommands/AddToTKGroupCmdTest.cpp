// SPDX-License-Identifier: MIT
#include "HighLevelServices/GroupCommands/AddToTKGroupCmd.h"

#include "HighLevelServices/GroupCommands/AddTo.h"
#include "Support/RecordingHost.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace Tarvik {
namespace {

template <class T>
class AddToGroup : public ::testing::Test {};
TYPED_TEST_SUITE(AddToGroup, ElementIdentifiers, KindName);

TYPED_TEST(AddToGroup, AppendsElementsThatNoGroupHolds)
{
  const auto [a, x, y] = distinct<TypeParam, 3>();
  const auto host = hostWith(group("A", {a}), group<TypeParam>("B", {}));

  addTo(host, "A", {y, x});

  EXPECT_EQ(host->groups(), list(group("A", {a, y, x}), group<TypeParam>("B", {})));
}

TYPED_TEST(AddToGroup, FillsAnEmptyGroup)
{
  const auto [x, y] = distinct<TypeParam, 2>();
  const auto host = hostWith(group<TypeParam>("Empty", {}));

  addTo(host, "Empty", {x, y}, 0);

  EXPECT_EQ(host->groups(), list(group("Empty", {x, y})));
}

TYPED_TEST(AddToGroup, TakesElementsOutOfTheirGroupsAndAppendsThem)
{
  const auto [a, b, c, d] = distinct<TypeParam, 4>();
  const auto host = hostWith(group("A", {a, b}), group("Target", {c}), group("B", {d}));

  addTo(host, "Target", {d, a});

  EXPECT_EQ(host->groups(),
            list(group("A", {b}), group("Target", {c, d, a}), group<TypeParam>("B", {})));
}

TYPED_TEST(AddToGroup, MovesElementsOfTheTargetToItsEndByDefault)
{
  const auto [a, b, c] = distinct<TypeParam, 3>();
  const auto host = hostWith(group("A", {a, b, c}));

  addTo(host, "A", {b, a});

  EXPECT_EQ(host->groups(), list(group("A", {c, b, a})));
}

TYPED_TEST(AddToGroup, KeepsNamesAndIdsOfAllGroups)
{
  const auto [a, b] = distinct<TypeParam, 2>();
  const auto host = hostWith(group("A", {a}), group("B", {b}));
  const auto idOfA = host->idOf("A");
  const auto idOfB = host->idOf("B");

  addTo(host, "B", {a});

  EXPECT_EQ(host->idOf("A"), idOfA);
  EXPECT_EQ(host->idOf("B"), idOfB);
}

TYPED_TEST(AddToGroup, TakesAnElementOutOfItsFirstHolderOnly)
{
  const auto [a, x, y] = distinct<TypeParam, 3>();
  const auto host = hostWith(group("A", {x}), group("B", {y, x}), group("Target", {a}));

  addTo(host, "Target", {x});

  EXPECT_EQ(host->groups(),
            list(group<TypeParam>("A", {}), group("B", {y, x}), group("Target", {a, x})));
}

TYPED_TEST(AddToGroup, LeavesTheTargetAsItIsWhenAnEarlierGroupGivesTheElement)
{
  const auto [a, b, x] = distinct<TypeParam, 3>();
  const auto host = hostWith(group("Earlier", {x}), group("Target", {a, x, b}));

  addTo(host, "Target", {x}, 0);

  EXPECT_EQ(host->groups(), list(group<TypeParam>("Earlier", {}), group("Target", {a, x, b})));
}

TYPED_TEST(AddToGroup, InsertsTwiceWhatIsGivenTwice)
{
  const auto [a, x] = distinct<TypeParam, 2>();
  const auto host = hostWith(group("A", {a}));

  addTo(host, "A", {x, x}, 0);

  EXPECT_EQ(host->groups().front().members, (std::vector<TypeParam>{x, x, a}));
}

TYPED_TEST(AddToGroup, EditsTheFirstOfTwoGroupsWithTheSameId)
{
  const auto [a, b, x] = distinct<TypeParam, 3>();
  const auto first = group("First", {a});
  auto second = first;
  second.setName("Second", true);
  const auto host = hostWith(first, second);

  addTo(host, "Second", {x});

  EXPECT_EQ(host->groups(), list(group("First", {a, x}), group("Second", {a})));
}

TYPED_TEST(AddToGroup, NeverTouchesTheHostWhenTheTargetIsUnknown)
{
  const auto [a, x] = distinct<TypeParam, 2>();
  for (const auto& host : {hostWith(group("A", {a})), emptyHost<TypeParam>()}) {
    const auto before = host->groups();
    AddToTKGroupCmd<TypeParam> command(host, {x, a}, Identifier());

    command.execute();
    command.undo();
    command.redo();

    EXPECT_EQ(host->takeCalls(), Calls{"getGroups"});
    EXPECT_EQ(host->groups(), before);
  }
}

TYPED_TEST(AddToGroup, HandsOverAnUnchangedListForNoElements)
{
  const auto [a, b] = distinct<TypeParam, 2>();
  const auto host = hostWith(group("A", {a}), group("B", {b}));
  const auto before = host->copyOfGroups();
  AddToTKGroupCmd<TypeParam> command(host, {}, host->idOf("B"));

  command.execute();
  EXPECT_EQ(host->takeCalls(), (Calls{"getGroups", "setGroups"}));
  EXPECT_TRUE(identical(host->copyOfGroups(), before));

  command.undo();
  EXPECT_EQ(host->takeCalls(), Calls{"setGroups"});
  EXPECT_TRUE(identical(host->copyOfGroups(), before));

  command.redo();
  EXPECT_EQ(host->takeCalls(), Calls{"setGroups"});
  EXPECT_TRUE(identical(host->copyOfGroups(), before));
}

TYPED_TEST(AddToGroup, DoesNothingOnUndoAndRedoBeforeItIsExecuted)
{
  const auto [a, x] = distinct<TypeParam, 2>();
  const auto host = hostWith(group("A", {a}));
  AddToTKGroupCmd<TypeParam> command(host, {x}, host->idOf("A"));

  command.undo();
  command.redo();

  EXPECT_EQ(host->takeCalls(), Calls{});
  EXPECT_EQ(host->groups(), list(group("A", {a})));
}

TYPED_TEST(AddToGroup, GoesOnHandingListsOverOnceItHasChangedOne)
{
  const auto [a, x] = distinct<TypeParam, 2>();
  const auto host = hostWith(group("A", {a}));
  AddToTKGroupCmd<TypeParam> command(host, {x}, host->idOf("A"));
  command.execute();
  host->replaceGroups({group("Other", {a})});
  host->takeCalls();

  command.execute(); // the target is unknown by now

  EXPECT_EQ(host->takeCalls(), (Calls{"getGroups", "setGroups"}));
  EXPECT_EQ(host->groups(), list(group("Other", {a})));
}

TYPED_TEST(AddToGroup, TakesItsPlaceAndItsStateAlongWhenItIsAssigned)
{
  const auto [a, b, x] = distinct<TypeParam, 3>();
  const auto host = hostWith(group("A", {a, b}));
  AddToTKGroupCmd<TypeParam> source(host, {x}, host->idOf("A"));
  source.setInsertIndex(1);
  AddToTKGroupCmd<TypeParam> target(host, {}, Identifier());

  target = std::move(source);
  target.execute();
  EXPECT_EQ(host->groups(), list(group("A", {a, x, b})));

  AddToTKGroupCmd<TypeParam> late(host, {}, Identifier());
  late = std::move(target);
  late.undo();
  EXPECT_EQ(host->groups(), list(group("A", {a, b})));
}

TYPED_TEST(AddToGroup, CopiesItsArguments)
{
  const auto [a, x] = distinct<TypeParam, 2>();
  const auto host = hostWith(group("A", {a}));
  std::vector<TypeParam> elements = {x};
  Identifier target = host->idOf("A");
  AddToTKGroupCmd<TypeParam> command(host, elements, target);

  elements.clear();
  target = Identifier::getInvalidId();
  command.execute();

  EXPECT_EQ(host->groups(), list(group("A", {a, x})));
}

}
}
