// SPDX-License-Identifier: MIT
// What a compact command promises for each command that it may run.

#include "GroupHosting/Support/CompactCommands.h"
#include "Support/Allocations.h"
#include "Support/PromisesOfCommands.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

namespace Tarvik {
namespace {

template <class Case>
class CompactCommand : public CommandTest<Case> {
protected:
  using typename CommandTest<Case>::Element;

  /// A host with the same groups and names.
  auto twin() const
  {
    auto twin = std::make_shared<RecordingHost<Element>>(this->before);
    std::vector<std::pair<Element, std::string>> names;
    for (const auto& group : this->before) {
      for (const auto& member : group.getGroupMembers())
        names.emplace_back(member, this->host->getElementName(member));
    }
    twin->nameElements(names);
    this->host->takeCalls();
    return twin;
  }

  static Calls afterReading(Calls calls)
  {
    if (calls.front() == "setGroups")
      calls.insert(calls.begin(), "getGroups");
    return calls;
  }
};
TYPED_TEST_SUITE(CompactCommand, CommandCases, CaseName);

TYPED_TEST(CompactCommand, CallsTheHostAsTheOtherCommandDoes)
{
  auto command = makeCompact<TypeParam>(this->host);
  EXPECT_EQ(this->host->takeCalls(), Calls{});

  command.execute();
  EXPECT_EQ(this->host->takeCalls(), TypeParam::onExecute());
  command.undo();
  EXPECT_EQ(this->host->takeCalls(), this->afterReading(TypeParam::onUndo()));
  command.redo();
  EXPECT_EQ(this->host->takeCalls(), this->afterReading(TypeParam::onRedo()));
}

TYPED_TEST(CompactCommand, HandsOverTheListsOfTheOtherCommand)
{
  const auto twin = this->twin();
  auto other = TypeParam::make(twin);
  auto command = makeCompact<TypeParam>(this->host);

  command.execute();
  other.execute();
  EXPECT_EQ(this->host->groups(), twin->groups());
  EXPECT_NE(this->host->groups(), view(this->before));
  for (int i = 0; i < 3; ++i) {
    command.undo();
    other.undo();
    EXPECT_EQ(this->host->groups(), twin->groups());
    command.redo();
    other.redo();
    EXPECT_EQ(this->host->groups(), twin->groups());
  }
}

TYPED_TEST(CompactCommand, IsDescribedAsTheOtherCommandOnceThatHasRun)
{
  auto command = makeCompact<TypeParam>(this->host);
  EXPECT_EQ(command.getDescription(), "");
  EXPECT_EQ(command.getSpeedRate(), TypeParam::make(this->host).getSpeedRate());
  EXPECT_TRUE(command.isRedoCapable());

  command.execute();

  EXPECT_EQ(command.getDescription(), TypeParam::description);
  EXPECT_EQ(command.getSpeedRate(), TypeParam::make(this->host).getSpeedRate());
  EXPECT_TRUE(command.isRedoCapable());
}

TYPED_TEST(CompactCommand, HasChangedSomething)
{
  auto command = makeCompact<TypeParam>(this->host);
  EXPECT_FALSE(command.hasChangedNothing());

  command.execute();

  EXPECT_FALSE(command.hasChangedNothing());
}

TYPED_TEST(CompactCommand, DoesNothingOnUndoAndRedoBeforeItIsExecuted)
{
  auto command = makeCompact<TypeParam>(this->host);

  command.undo();
  command.redo();

  EXPECT_EQ(this->host->takeCalls(), Calls{});
}

TYPED_TEST(CompactCommand, IsExecutedOnce)
{
  auto command = makeCompact<TypeParam>(this->host);
  command.execute();
  this->host->takeCalls();

  EXPECT_THROW(command.execute(), std::logic_error);

  EXPECT_EQ(this->host->takeCalls(), Calls{});
  command.undo();
  EXPECT_TRUE(identical(this->host->copyOfGroups(), this->before));
}

TYPED_TEST(CompactCommand, SharesTheHostForAsLongAsItLives)
{
  {
    auto command = makeCompact<TypeParam>(this->host);
    EXPECT_EQ(this->host.use_count(), 2);
    command.execute();
    EXPECT_EQ(this->host.use_count(), 2) << "the other command has released it";
  }
  EXPECT_EQ(this->host.use_count(), 1);
}

TYPED_TEST(CompactCommand, LeavesTheHostAloneWhenThatFailsAndCanBeExecutedAgain)
{
  for (const auto& call : TypeParam::onExecute()) {
    auto command = makeCompact<TypeParam>(this->host);
    this->host->failIn(call);
    EXPECT_THROW(command.execute(), std::runtime_error) << call;
    EXPECT_TRUE(identical(this->host->copyOfGroups(), this->before)) << call;
    EXPECT_FALSE(command.hasChangedNothing()) << call;

    this->host->failIn("");
    command.execute();
    command.undo();
    EXPECT_TRUE(identical(this->host->copyOfGroups(), this->before)) << call;
  }
}

TYPED_TEST(CompactCommand, LeavesTheHostAloneWhenThatFailsOnUndoOrRedo)
{
  auto command = makeCompact<TypeParam>(this->host);
  command.execute();
  const auto after = this->host->copyOfGroups();

  this->host->failIn(TypeParam::onUndo().front());
  EXPECT_THROW(command.undo(), std::runtime_error);
  EXPECT_TRUE(identical(this->host->copyOfGroups(), after));
  this->host->failIn("");
  command.undo();
  this->host->failIn(TypeParam::onRedo().front());
  EXPECT_THROW(command.redo(), std::runtime_error);
  EXPECT_TRUE(identical(this->host->copyOfGroups(), this->before));
}

TYPED_TEST(CompactCommand, LeavesTheHostAloneWhicheverAllocationFails)
{
  bool succeeded = false;
  auto command = makeCompact<TypeParam>(this->host);
  for (std::size_t successes = 0; !succeeded; ++successes) {
    ASSERT_LT(successes, 10'000U);
    try {
      const AllocationWatch watch(successes);
      command.execute();
      succeeded = !watch.hasFailed();
    } catch (const std::bad_alloc&) {
      EXPECT_TRUE(identical(this->host->copyOfGroups(), this->before)) << successes;
    }
  }
  EXPECT_FALSE(identical(this->host->copyOfGroups(), this->before));
  command.undo();
  EXPECT_TRUE(identical(this->host->copyOfGroups(), this->before));
}

TYPED_TEST(CompactCommand, LeavesTheHostAloneWhicheverAllocationFailsOnUndo)
{
  auto command = makeCompact<TypeParam>(this->host);
  command.execute();
  const auto after = this->host->copyOfGroups();
  bool succeeded = false;
  for (std::size_t successes = 0; !succeeded; ++successes) {
    ASSERT_LT(successes, 10'000U);
    try {
      const AllocationWatch watch(successes);
      command.undo();
      succeeded = !watch.hasFailed();
    } catch (const std::bad_alloc&) {
      EXPECT_TRUE(identical(this->host->copyOfGroups(), after)) << successes;
    }
  }
  EXPECT_TRUE(identical(this->host->copyOfGroups(), this->before));
}

/// A host that releases the command while that changes its groups.
template <class Case>
class CompactCommandLikeOthers : public CommandPromises<Case> {
protected:
  CompactCommandLikeOthers() { this->command.reset(new auto(makeCompact<Case>(this->host))); }
};
TYPED_TEST_SUITE(CompactCommandLikeOthers, CommandCases, CaseName);

TYPED_TEST(CompactCommandLikeOthers, RestoresExactlyWhatWasThere)
{
  this->expectExactlyWhatWasThereWheneverItIsUndone();
}

TYPED_TEST(CompactCommandLikeOthers, MayBeReleasedWhileItExecutes)
{
  this->expectThatTheHostMayReleaseItWhileItExecutes();
}

TYPED_TEST(CompactCommandLikeOthers, MayBeReleasedWhileItIsUndone)
{
  this->expectThatTheHostMayReleaseItWhileItIsUndone();
}

TYPED_TEST(CompactCommandLikeOthers, MayBeReleasedWhileItIsRedone)
{
  this->expectThatTheHostMayReleaseItWhileItIsRedone();
}

TYPED_TEST(CompactCommandLikeOthers, IsNotExecutedAgainWhileItExecutes)
{
  bool isRefused = false;
  this->host->afterChanges([&] {
    try {
      this->command->execute();
    } catch (const std::logic_error&) {
      isRefused = true;
    }
  });

  this->command->execute();

  EXPECT_TRUE(isRefused);
  this->host->afterChanges({});
  this->command->undo();
  EXPECT_TRUE(identical(this->host->copyOfGroups(), this->before));
}

/// Commands that keep lists, on a host whose list somebody else changes.
template <class Case>
class CompactCommandOnAForeignList : public CommandTest<Case> {
protected:
  using typename CommandTest<Case>::Element;
  using Groups = std::vector<TKGroup<Element>>;

  /// The list with one thing different, in each way that a fingerprint sees.
  static std::vector<Groups> variantsOf(const Groups& groups)
  {
    std::vector<Groups> variants{{}, groups, groups};
    variants[1].back().setName("another", true);
    variants[2].back().clear();
    auto shorter = groups;
    shorter.pop_back();
    variants.push_back(shorter);
    auto longer = groups;
    longer.push_back(group<Element>("new", {}));
    variants.push_back(longer);
    if (GroupLists::Hashable<Identifier>) {
      auto withAnotherId = groups;
      withAnotherId.front() = copyWithNewId(groups.front());
      variants.push_back(withAnotherId);
    }
    if (GroupLists::Hashable<Element>) {
      auto members = groups.back().getGroupMembers();
      std::reverse(members.begin(), members.end());
      variants.push_back(groups);
      variants.back().back().clear();
      variants.back().back().addGroupMembersAtIndex(members, -1);
      members.front() = Element();
      variants.push_back(groups);
      variants.back().back().clear();
      variants.back().back().addGroupMembersAtIndex(members, -1);
    }
    return variants;
  }

  static TKGroup<Element> copyWithNewId(const TKGroup<Element>& group)
  {
    TKGroup<Element> copy(group.getName());
    copy.addGroupMembersAtIndex(group.getGroupMembers(), -1);
    return copy;
  }

  template <class Operation>
  void expectRefused(Operation operation)
  {
    const auto expected = this->host->copyOfGroups();
    for (const auto& groups : variantsOf(expected)) {
      this->host->replaceGroups(groups);
      EXPECT_THROW(operation(), std::runtime_error) << ::testing::PrintToString(view(groups));
      EXPECT_TRUE(identical(this->host->copyOfGroups(), groups));
    }
    this->host->replaceGroups(expected);
    operation();
  }
};
TYPED_TEST_SUITE(CompactCommandOnAForeignList, SnapshotCommandCases, CaseName);

TYPED_TEST(CompactCommandOnAForeignList, RefusesToReplaceIt)
{
  auto command = makeCompact<TypeParam>(this->host);
  command.execute();

  this->expectRefused([&] { command.undo(); });
  this->expectRefused([&] { command.redo(); });
}

}
}
