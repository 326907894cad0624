// SPDX-License-Identifier: MIT
#include "Support/Allocations.h"
#include "Support/CommandCases.h"
#include "Support/VirtualSlots.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <stdexcept>
#include <type_traits>
#include <utility>
#include <vector>

namespace Tarvik {
namespace {

/// What every command promises, whatever it does.
template <class Case>
class EveryCommand : public ::testing::Test {
protected:
  using Element = typename Case::Element;

  std::shared_ptr<RecordingHost<Element>> host = hostForCommands<Element>();
  std::vector<TKGroup<Element>> before = host->copyOfGroups();
};
TYPED_TEST_SUITE(EveryCommand, CommandCases, CaseName);

/// What those promise that keep the list before and the list after.
template <class Case>
class SnapshotCommand : public EveryCommand<Case> {};
TYPED_TEST_SUITE(SnapshotCommand, SnapshotCommandCases, CaseName);

/// What those promise that can be moved, which are all but one.
template <class Case>
class MovableCommand : public EveryCommand<Case> {};
TYPED_TEST_SUITE(MovableCommand, MovableCommandCases, CaseName);

TYPED_TEST(EveryCommand, IsDescribedInEnglishWithoutATranslation)
{
  const auto command = TypeParam::make(this->host);

  EXPECT_EQ(command.getDescription(), TypeParam::description);
}

TYPED_TEST(EveryCommand, ChangesTheHostsGroupsWhenExecuted)
{
  auto command = TypeParam::make(this->host);
  EXPECT_EQ(this->host->takeCalls(), Calls{}) << "building a command asks the host for nothing";

  command.execute();

  EXPECT_EQ(this->host->takeCalls(), TypeParam::onExecute());
  EXPECT_FALSE(identical(this->host->copyOfGroups(), this->before));
}

TYPED_TEST(EveryCommand, RestoresExactlyWhatWasThereWheneverItIsUndone)
{
  auto command = TypeParam::make(this->host);
  command.execute();
  const auto after = this->host->copyOfGroups();

  command.undo();
  EXPECT_TRUE(identical(this->host->copyOfGroups(), this->before));
  command.redo();
  EXPECT_TRUE(identical(this->host->copyOfGroups(), after));
  command.undo();
  EXPECT_TRUE(identical(this->host->copyOfGroups(), this->before));
}

TYPED_TEST(SnapshotCommand, OverwritesWhatTheHostChangedInBetween)
{
  auto command = TypeParam::make(this->host);
  command.execute();
  const auto after = this->host->copyOfGroups();

  this->host->replaceGroups({});
  command.undo();
  EXPECT_TRUE(identical(this->host->copyOfGroups(), this->before));

  this->host->replaceGroups({});
  command.redo();
  EXPECT_TRUE(identical(this->host->copyOfGroups(), after));
}

TYPED_TEST(EveryCommand, NeverReadsTheHostOnUndoAndRedo)
{
  auto command = TypeParam::make(this->host);
  command.execute();
  this->host->takeCalls();

  command.undo();
  EXPECT_EQ(this->host->takeCalls(), TypeParam::onUndo());
  command.redo();
  EXPECT_EQ(this->host->takeCalls(), TypeParam::onRedo());
}

TYPED_TEST(SnapshotCommand, ReachesAnOverriddenRedoWhenExecuted)
{
  class WithOwnRedo : public TypeParam::Command {
  public:
    using TypeParam::Command::Command;
    void redo() override { ++redone; }
    int redone = 0;
  };
  auto command = TypeParam::template make<WithOwnRedo>(this->host);
  auto callsWithoutRedo = TypeParam::onExecute();
  callsWithoutRedo.pop_back();

  command.execute();

  EXPECT_EQ(command.redone, 1);
  EXPECT_EQ(this->host->takeCalls(), callsWithoutRedo);
}

TYPED_TEST(SnapshotCommand, TakesNewSnapshotsWhenItIsExecutedAgain)
{
  auto command = TypeParam::make(this->host);
  command.execute();
  auto changed = this->before;
  changed.front().clear();
  this->host->replaceGroups(changed);

  command.execute();
  command.undo();

  EXPECT_TRUE(identical(this->host->copyOfGroups(), changed));
}

TYPED_TEST(SnapshotCommand, StartsFromItsOwnBeforeListWhenTheHostHandsThatOut)
{
  auto command = TypeParam::make(this->host);
  command.execute();
  command.undo();
  this->host->handOut(this->host->receivedList());

  command.execute();
  EXPECT_FALSE(identical(this->host->copyOfGroups(), this->before));

  command.undo();
  EXPECT_TRUE(identical(this->host->copyOfGroups(), this->before));
}

TYPED_TEST(EveryCommand, SharesTheHostForAsLongAsItLives)
{
  ASSERT_EQ(this->host.use_count(), 1);
  {
    auto command = TypeParam::make(this->host);
    EXPECT_EQ(this->host.use_count(), 2);
    command.execute();
    command.undo();
    EXPECT_GE(this->host.use_count(), 2);
  }
  EXPECT_EQ(this->host.use_count(), 1);
}

TYPED_TEST(EveryCommand, KeepsTheHostAliveAlone)
{
  const std::weak_ptr<RecordingHost<typename TypeParam::Element>> watched = this->host;
  std::unique_ptr<CommandBase> command(
      new auto(TypeParam::make(this->host))); // not std::make_unique: one command has no move
  this->host.reset();

  command->execute();
  command->undo();
  EXPECT_TRUE(identical(watched.lock()->copyOfGroups(), this->before));

  command.reset();
  EXPECT_TRUE(watched.expired());
}

TYPED_TEST(MovableCommand, GoesOnWhereItWasMovedTo)
{
  auto source = TypeParam::make(this->host);
  source.execute();
  const auto after = this->host->copyOfGroups();

  auto command = std::move(source);

  EXPECT_EQ(command.getDescription(), TypeParam::description);
  command.undo();
  EXPECT_TRUE(identical(this->host->copyOfGroups(), this->before));
  command.redo();
  EXPECT_TRUE(identical(this->host->copyOfGroups(), after));
}

TYPED_TEST(MovableCommand, KeepsItsArgumentsWhenItIsMovedBeforeItIsExecuted)
{
  TypeParam::make(this->host).execute();
  const auto expected = this->host->groups();
  this->host->replaceGroups(this->before);

  auto source = TypeParam::make(this->host);
  auto target = TypeParam::make(hostForCommands<typename TypeParam::Element>());
  target = std::move(source);
  target.execute();

  EXPECT_EQ(this->host->groups(), expected);
}

TYPED_TEST(MovableCommand, GoesOnWhereItWasAssignedTo)
{
  const auto otherHost = hostForCommands<typename TypeParam::Element>();
  auto source = TypeParam::make(this->host);
  auto target = TypeParam::make(otherHost);
  source.execute();
  target.execute();
  const auto after = this->host->copyOfGroups();

  auto& result = (target = std::move(source));

  EXPECT_EQ(&result, &target);
  EXPECT_EQ(otherHost.use_count(), 1) << "the host that the target had is released";
  target.undo();
  EXPECT_TRUE(identical(this->host->copyOfGroups(), this->before));
  target.redo();
  EXPECT_TRUE(identical(this->host->copyOfGroups(), after));
}

/// What is released with the two identifiers that a command may hold, which are copied and not
/// moved: nothing, unless the platform's identifiers allocate.
template <class T>
std::size_t releasedWithTheIdsOfACommand()
{
  std::optional<std::pair<Identifier, T>> ids(std::in_place);
  const AllocationWatch watch;
  ids.reset();
  return watch.released();
}

TYPED_TEST(MovableCommand, LeavesNothingInWhatItWasMovedFrom)
{
  auto source = std::make_optional(TypeParam::make(this->host));
  source->execute();
  const auto idsLeft = releasedWithTheIdsOfACommand<typename TypeParam::Element>();
  const auto shares = this->host.use_count();
  const auto moved = std::move(*source);
  EXPECT_EQ(this->host.use_count(), shares) << "the share of the host has moved";

  const AllocationWatch watch;
  source.reset();

  EXPECT_LE(watch.released(), idsLeft) << "no list was left to release";
}

TYPED_TEST(MovableCommand, LeavesNothingInWhatItWasAssignedFrom)
{
  auto source = std::make_optional(TypeParam::make(this->host));
  source->execute();
  const auto idsLeft = releasedWithTheIdsOfACommand<typename TypeParam::Element>();
  const auto shares = this->host.use_count();
  auto target = TypeParam::make(hostForCommands<typename TypeParam::Element>());
  target = std::move(*source);
  EXPECT_EQ(this->host.use_count(), shares) << "the share of the host has moved";

  const AllocationWatch watch;
  source.reset();

  EXPECT_LE(watch.released(), TypeParam::textsLeftBehind + idsLeft)
      << "no list was left to release";
}

TYPED_TEST(MovableCommand, StaysWhatItIsWhenAssignedToItself)
{
  auto command = TypeParam::make(this->host);
  command.execute();
  const auto after = this->host->copyOfGroups();
  auto& alias = command;

  command = std::move(alias);

  EXPECT_EQ(command.getDescription(), TypeParam::description);
  command.undo();
  EXPECT_TRUE(identical(this->host->copyOfGroups(), this->before));
  command.redo();
  EXPECT_TRUE(identical(this->host->copyOfGroups(), after));
  this->host->replaceGroups(this->before);
  command.execute();
  EXPECT_EQ(this->host->groups().size(), after.size()) << "the arguments are there as well";
  EXPECT_FALSE(identical(this->host->copyOfGroups(), this->before));
}

TYPED_TEST(EveryCommand, LeavesTheHostsGroupsAloneWhenTheHostFails)
{
  for (const auto& call : TypeParam::onExecute()) {
    auto command = TypeParam::make(this->host);
    this->host->failIn(call);

    EXPECT_THROW(command.execute(), std::runtime_error) << call;

    EXPECT_TRUE(identical(this->host->copyOfGroups(), this->before)) << call;
  }
}

TYPED_TEST(EveryCommand, LeavesTheHostsGroupsAloneWhicheverAllocationFails)
{
  bool succeeded = false;
  for (std::size_t successes = 0; !succeeded; ++successes) {
    ASSERT_LT(successes, 10'000U);
    auto command = TypeParam::make(this->host);
    try {
      const AllocationWatch watch(successes);
      command.execute();
      succeeded = !watch.hasFailed();
    } catch (const std::bad_alloc&) {
      EXPECT_TRUE(identical(this->host->copyOfGroups(), this->before)) << successes;
    }
  }
  EXPECT_FALSE(identical(this->host->copyOfGroups(), this->before));
}

TYPED_TEST(EveryCommand, ReleasesTheHostWhicheverAllocationFailsInItsConstructor)
{
  bool succeeded = false;
  for (std::size_t successes = 0; !succeeded; ++successes) {
    ASSERT_LT(successes, 1'000U);
    try {
      const AllocationWatch watch(successes);
      const auto command = TypeParam::make(this->host);
      succeeded = !watch.hasFailed();
    } catch (const std::bad_alloc&) {
      EXPECT_EQ(this->host.use_count(), 1) << successes;
    }
  }
}

TYPED_TEST(EveryCommand, IsNeverCopied)
{
  using Command = typename TypeParam::Command;

  static_assert(!std::is_copy_constructible_v<Command>);
  static_assert(!std::is_copy_assignable_v<Command>);
  static_assert(std::has_virtual_destructor_v<Command>);
  static_assert(std::is_base_of_v<CommandBase, Command>);
}

TYPED_TEST(EveryCommand, OverridesOnlyExecuteUndoAndRedo)
{
  using Command = typename TypeParam::Command;

#if !defined(_MSC_VER) // its tables are laid out in another way
  EXPECT_EQ(virtualSlots(&Command::execute, &Command::undo, &Command::redo,
                         &Command::getDescription, &Command::getSpeedRate, &Command::isRedoCapable),
            slotsBehindDestructor(6));
#endif
  static_assert(std::is_same_v<decltype(&Command::getDescription),
                               const std::string& (CommandBase::*)() const>);
  static_assert(std::is_same_v<decltype(&Command::getSpeedRate),
                               LegacyProgress::Speed::Rate (CommandBase::*)()>);
  static_assert(std::is_same_v<decltype(&Command::isRedoCapable), bool (CommandBase::*)()>);
}

}
}
