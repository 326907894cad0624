// SPDX-License-Identifier: MIT
#include "HighLevelServices/GroupCommands/RemoveTKGroupsCmd.h"

#include "Support/RecordingHost.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <vector>

namespace Tarvik {
namespace {

template <class T>
class RemoveGroups : public ::testing::Test {
protected:
  static std::shared_ptr<RecordingHost<T>> hostWithABC()
  {
    const auto [a, b, c] = distinct<T, 3>();
    return hostWith(group("A", {a}), group("B", {a, b}), group("C", {c}));
  }

  static std::vector<std::string> names(const std::shared_ptr<RecordingHost<T>>& host)
  {
    std::vector<std::string> result;
    for (const auto& each : host->groups())
      result.push_back(each.name);
    return result;
  }
};
TYPED_TEST_SUITE(RemoveGroups, ElementIdentifiers, KindName);

TYPED_TEST(RemoveGroups, DeletesAGroupAndBringsItBackWhole)
{
  const auto host = this->hostWithABC();
  const auto before = host->copyOfGroups();
  RemoveTKGroupsCmd<TypeParam> command(host, {host->idOf("B")});

  command.execute();
  EXPECT_TRUE(identical(host->copyOfGroups(), {before[0], before[2]}))
      << "the other groups keep their members, also those that B held";

  command.undo();
  EXPECT_TRUE(identical(host->copyOfGroups(), before));
}

TYPED_TEST(RemoveGroups, DoesNotCareAboutTheOrderOfTheIds)
{
  const auto host = this->hostWithABC();

  RemoveTKGroupsCmd<TypeParam>(host, {host->idOf("C"), host->idOf("A")}).execute();

  EXPECT_EQ(this->names(host), (std::vector<std::string>{"B"}));
}

TYPED_TEST(RemoveGroups, DeletesAGroupOnceWhenItsIdIsGivenTwice)
{
  const auto host = this->hostWithABC();
  const auto id = host->idOf("B");

  RemoveTKGroupsCmd<TypeParam>(host, {id, id}).execute();

  EXPECT_EQ(this->names(host), (std::vector<std::string>{"A", "C"}));
}

TYPED_TEST(RemoveGroups, DeletesTheFirstOfTwoGroupsWithTheSameId)
{
  const auto [a] = distinct<TypeParam, 1>();
  const auto first = group("First", {a});
  auto second = first;
  second.setName("Second", true);
  const auto host = hostWith(first, group("Other", {a}), second);

  RemoveTKGroupsCmd<TypeParam>(host, {first.getId()}).execute();
  EXPECT_EQ(this->names(host), (std::vector<std::string>{"Other", "Second"}));

  host->replaceGroups({first, group("Other", {a}), second});
  RemoveTKGroupsCmd<TypeParam>(host, {first.getId(), first.getId()}).execute();
  EXPECT_EQ(this->names(host), (std::vector<std::string>{"Other"}));
}

TYPED_TEST(RemoveGroups, HandsOverAnUnchangedListWhenThereIsNothingToDelete)
{
  for (const auto& ids : {std::vector<Identifier>{Identifier()}, std::vector<Identifier>{}}) {
    const auto host = this->hostWithABC();
    const auto before = host->copyOfGroups();
    RemoveTKGroupsCmd<TypeParam> command(host, ids);

    command.execute();
    EXPECT_TRUE(identical(host->copyOfGroups(), before));
    command.undo();
    command.redo();
    EXPECT_TRUE(identical(host->copyOfGroups(), before));
    EXPECT_EQ(host->takeCalls(), (Calls{"getGroups", "setGroups", "setGroups", "setGroups"}));
  }
}

TYPED_TEST(RemoveGroups, DeletesAllGroups)
{
  const auto host = this->hostWithABC();

  RemoveTKGroupsCmd<TypeParam>(host, {host->idOf("A"), host->idOf("B"), host->idOf("C")}).execute();

  EXPECT_EQ(this->names(host), std::vector<std::string>());
}

TYPED_TEST(RemoveGroups, HandsAnEmptyListOverBeforeItIsExecuted)
{
  const auto host = this->hostWithABC();
  RemoveTKGroupsCmd<TypeParam> command(host, {});

  command.undo();

  EXPECT_TRUE(host->groups().empty());
}

TYPED_TEST(RemoveGroups, CopiesItsIds)
{
  const auto host = this->hostWithABC();
  std::vector<Identifier> ids = {host->idOf("A")};
  RemoveTKGroupsCmd<TypeParam> command(host, ids);

  ids.clear();
  command.execute();

  EXPECT_EQ(this->names(host), (std::vector<std::string>{"B", "C"}));
}

TYPED_TEST(RemoveGroups, CannotBeMoved)
{
  static_assert(!std::is_move_constructible_v<RemoveTKGroupsCmd<TypeParam>>);
  static_assert(!std::is_move_assignable_v<RemoveTKGroupsCmd<TypeParam>>);
}

}
}
