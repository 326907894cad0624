// SPDX-License-Identifier: MIT
#include "HighLevelServices/GroupCommands/RemoveFromTKGroupCmd.h"

#include "Support/RecordingHost.h"

#include <gtest/gtest.h>

#include <vector>

namespace Tarvik {
namespace {

template <class T>
class RemoveFromGroup : public ::testing::Test {};
TYPED_TEST_SUITE(RemoveFromGroup, ElementIdentifiers, KindName);

TYPED_TEST(RemoveFromGroup, TakesTheElementOutOfTheFirstHolderOnly)
{
  const auto [x, y, z] = distinct<TypeParam, 3>();
  const auto host = hostWith(group("A", {x, y}), group("B", {y, z}));

  RemoveFromTKGroupCmd<TypeParam>(host, {y}).execute();

  EXPECT_EQ(host->groups(), list(group("A", {x}), group("B", {y, z})));
}

TYPED_TEST(RemoveFromGroup, TakesAnElementThatIsGivenTwiceOutOfTwoHolders)
{
  const auto [x, y, z] = distinct<TypeParam, 3>();
  const auto host = hostWith(group("A", {x, y}), group("B", {y, z}));

  RemoveFromTKGroupCmd<TypeParam>(host, {y, y}).execute();

  EXPECT_EQ(host->groups(), list(group("A", {x}), group("B", {z})));
}

TYPED_TEST(RemoveFromGroup, RemovesOneOfTwoOccurrencesInOneGroup)
{
  const auto [x, y] = distinct<TypeParam, 2>();
  auto doubled = group("A", {y});
  doubled.addGroupMembersAtIndex({x, x}, 0);
  const auto host = hostWith(doubled);

  RemoveFromTKGroupCmd<TypeParam>(host, {x}).execute();

  EXPECT_EQ(host->groups(), list(group("A", {x, y})));
}

TYPED_TEST(RemoveFromGroup, KeepsAGroupThatItEmpties)
{
  const auto [x, y] = distinct<TypeParam, 2>();
  const auto host = hostWith(group("A", {x, y}));
  const auto id = host->idOf("A");

  RemoveFromTKGroupCmd<TypeParam>(host, {y, x}).execute();

  EXPECT_EQ(host->groups(), list(group<TypeParam>("A", {})));
  EXPECT_EQ(host->idOf("A"), id);
}

TYPED_TEST(RemoveFromGroup, HandsOverAnUnchangedListWhenThereIsNothingToRemove)
{
  const auto [x, q] = distinct<TypeParam, 2>();
  for (const auto& elements : {std::vector<TypeParam>{q}, std::vector<TypeParam>{}}) {
    const auto host = hostWith(group("A", {x}));
    const auto before = host->copyOfGroups();
    RemoveFromTKGroupCmd<TypeParam> command(host, elements);

    command.execute();
    EXPECT_TRUE(identical(host->copyOfGroups(), before));
    command.undo();
    EXPECT_TRUE(identical(host->copyOfGroups(), before));
    command.redo();
    EXPECT_TRUE(identical(host->copyOfGroups(), before));
    EXPECT_EQ(host->takeCalls(), (Calls{"getGroups", "setGroups", "setGroups", "setGroups"}));
  }
}

TYPED_TEST(RemoveFromGroup, BringsMembersBackInTheirOrder)
{
  const auto [x, y, z] = distinct<TypeParam, 3>();
  const auto host = hostWith(group("A", {x, y, z}));
  RemoveFromTKGroupCmd<TypeParam> command(host, {y, x});
  command.execute();
  ASSERT_EQ(host->groups(), list(group("A", {z})));

  command.undo();

  EXPECT_EQ(host->groups(), list(group("A", {x, y, z})));
}

TYPED_TEST(RemoveFromGroup, HandsAnEmptyListOverBeforeItIsExecuted)
{
  const auto [a] = distinct<TypeParam, 1>();
  const auto host = hostWith(group("A", {a}));
  RemoveFromTKGroupCmd<TypeParam> command(host, {a});

  command.redo();

  EXPECT_TRUE(host->groups().empty());
}

TYPED_TEST(RemoveFromGroup, CopiesItsElements)
{
  const auto [a] = distinct<TypeParam, 1>();
  const auto host = hostWith(group("A", {a}));
  std::vector<TypeParam> elements = {a};
  RemoveFromTKGroupCmd<TypeParam> command(host, elements);

  elements.clear();
  command.execute();

  EXPECT_EQ(host->groups(), list(group<TypeParam>("A", {})));
}

}
}
