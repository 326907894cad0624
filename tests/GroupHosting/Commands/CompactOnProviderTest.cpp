// SPDX-License-Identifier: MIT
// Compact commands on the ready-made provider, which changes its list in place for them.

#include "GroupHosting/Commands/CompactTKGroupCmd.h"
#include "GroupHosting/Support/TestProvider.h"
#include "HighLevelServices/GroupCommands/AddToTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/RemoveTKGroupsCmd.h"
#include "Support/Allocations.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <stdexcept>
#include <variant>
#include <vector>

namespace Tarvik {
namespace {

template <class T>
class CompactOnProvider : public ::testing::Test {
protected:
  using Compact = CompactTKGroupCmd<T>;
  using Change = GroupsChange<T>;

  CompactOnProvider()
  {
    provider->setElements(ids);
    provider->setGroups({group("A", {ids[0], ids[1]}), group("B", {ids[2], ids[3]}), large()});
  }

  /// Has been executed: has moved an element from "A" to "B".
  std::shared_ptr<Compact> moved()
  {
    return executed([this](auto host) {
      return std::make_shared<AddToTKGroupCmd<T>>(host, std::vector{ids[0]},
                                                  provider->getGroups()[1].getId());
    });
  }

  /// Has been executed: has deleted "B".
  std::shared_ptr<Compact> deleted()
  {
    return executed([this](auto host) {
      const std::vector<Identifier> groupIds = {provider->getGroups()[1].getId()};
      return std::make_shared<RemoveTKGroupsCmd<T>>(host, groupIds);
    });
  }

  /// What the provider tells while the action runs.
  template <class Action>
  std::vector<Change> toldBy(Action action)
  {
    std::vector<Change> told;
    const auto subscription =
        provider->subscribe([&told](const Change& change) { told.push_back(change); });
    action();
    return told;
  }

  static constexpr std::size_t many = 1000;

  const std::vector<T> ids = std::vector<T>(5);
  std::shared_ptr<TestProvider<T>> provider = std::make_shared<TestProvider<T>>();

private:
  template <class Make>
  std::shared_ptr<Compact> executed(Make make)
  {
    auto command = std::make_shared<Compact>(provider, make);
    command->execute();
    return command;
  }

  static TKGroup<T> large()
  {
    TKGroup<T> result("large");
    result.addGroupMembersAtIndex(std::vector<T>(many), -1);
    return result;
  }
};
TYPED_TEST_SUITE(CompactOnProvider, ProvidedIdentifiers, ProvidedName);

TYPED_TEST(CompactOnProvider, CopiesNoGroupThatStaysAsItIs)
{
  const auto command = this->moved();
  const auto* const members = this->provider->getGroups()[2].getGroupMembers().data();

  const AllocationWatch watch;
  command->undo();
  command->redo();

  EXPECT_LT(watch.largest(), this->many * sizeof(TypeParam));
  EXPECT_EQ(this->provider->getGroups()[2].getGroupMembers().data(), members);
}

TYPED_TEST(CompactOnProvider, TellsWhatItChangesBack)
{
  const auto command = this->deleted();

  const auto told = this->toldBy([&] { command->undo(); });

  ASSERT_EQ(told.size(), 1U);
  ASSERT_EQ(told[0].groups.size(), 1U);
  const auto& back = std::get<GroupsInserted<TypeParam>>(told[0].groups[0]);
  EXPECT_EQ(back.position, 1U);
  EXPECT_EQ(view(back.groups), list(group("B", {this->ids[2], this->ids[3]})));
  ASSERT_EQ(told[0].ungrouped.size(), 1U);
  const auto& went = std::get<ElementsRemoved<TypeParam>>(told[0].ungrouped[0]);
  EXPECT_EQ(went.position, 0U);
  EXPECT_EQ(went.elements, (std::vector{this->ids[2], this->ids[3]}));
}

TYPED_TEST(CompactOnProvider, ChangesNothingOfAListThatItDidNotLeave)
{
  const auto command = this->moved();
  auto foreign = this->provider->copyOfGroups();
  foreign[1].removeGroupMember(this->ids[0]);
  this->provider->setGroups(foreign);

  const auto told = this->toldBy([&] { EXPECT_THROW(command->undo(), std::runtime_error); });

  EXPECT_TRUE(told.empty());
  EXPECT_TRUE(identical(this->provider->getGroups(), foreign));
  EXPECT_EQ(this->provider->holderOf(this->ids[0]), nullptr);
}

TYPED_TEST(CompactOnProvider, ChangesNothingOfAListThatOnlyDiffersWhereItChangedNothing)
{
  const auto command = this->moved();
  this->provider->renameGroup(this->provider->getGroups()[2].getId(), "renamed");
  const auto foreign = this->provider->copyOfGroups();

  EXPECT_THROW(command->undo(), std::runtime_error);

  EXPECT_TRUE(identical(this->provider->getGroups(), foreign));
}

TYPED_TEST(CompactOnProvider, MayBeReleasedByAListener)
{
  auto command = this->moved();

  const auto subscription = this->provider->subscribe([&](const auto&) { command = nullptr; });
  command->undo();

  EXPECT_EQ(command, nullptr);
  EXPECT_TRUE(this->provider->isInGroup(this->ids[0], this->provider->getGroups()[0].getId()));
}

}
}
