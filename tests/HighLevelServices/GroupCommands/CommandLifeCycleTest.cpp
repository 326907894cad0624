// SPDX-License-Identifier: MIT
#include "Support/PromisesOfCommands.h"
#include "Support/VirtualSlots.h"
#include "Support/WatchedIdentifier.h"

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

namespace Tarvik {
namespace {

/// What every command promises, whatever it does.
template <class Case>
class EveryCommand : public CommandTest<Case> {};
TYPED_TEST_SUITE(EveryCommand, CommandCases, CaseName);

template <class Case>
class UndoneCommand : public CommandPromises<Case> {
protected:
  UndoneCommand() { this->command.reset(new auto(Case::make(this->host))); }
};
TYPED_TEST_SUITE(UndoneCommand, CommandCases, CaseName);

/// What those promise that keep the before list and the after list.
template <class Case>
class SnapshotCommand : public CommandTest<Case> {};
TYPED_TEST_SUITE(SnapshotCommand, SnapshotCommandCases, CaseName);

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

TYPED_TEST(UndoneCommand, LeavesExactlyWhatWasThere)
{
  this->expectExactlyWhatWasThereWheneverItIsUndone();
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

template <class Case>
class CommandOfElements : public ::testing::Test {};
using CasesThatCopyElements = ::testing::Types<AddToGroupCase<WatchedIdentifier>,
                                               CreateGroupCase<WatchedIdentifier>,
                                               MoveElementsCase<WatchedIdentifier>,
                                               RemoveFromGroupCase<WatchedIdentifier>>;
TYPED_TEST_SUITE(CommandOfElements, CasesThatCopyElements);

TYPED_TEST(CommandOfElements, CopiesThePointerToTheHostBeforeItsElements)
{
  const auto host = hostForCommands<WatchedIdentifier>();
  long shares = 0;
  const CopyWatch watch([&] { shares = host.use_count(); });

  const auto command = TypeParam::make(host);

  EXPECT_EQ(shares, 3) << "the test's, the parameter's and the command's";
  EXPECT_EQ(host.use_count(), 2);
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

TYPED_TEST(EveryCommand, IsNeverCopiedAndMovedOnlyWhereItsCaseSaysSo)
{
  using Command = typename TypeParam::Command;

  static_assert(!std::is_copy_constructible_v<Command>);
  static_assert(!std::is_copy_assignable_v<Command>);
  static_assert(std::is_move_constructible_v<Command> == TypeParam::isMovable);
  static_assert(std::is_move_assignable_v<Command> == TypeParam::isMovable);
  static_assert(std::has_virtual_destructor_v<Command>);
  static_assert(std::is_base_of_v<CommandBase, Command>);
}

TYPED_TEST(EveryCommand, OverridesOnlyExecuteUndoAndRedo)
{
  using Command = typename TypeParam::Command;

  EXPECT_EQ(virtualSlots(&Command::execute, &Command::undo, &Command::redo,
                         &Command::getDescription, &Command::getSpeedRate, &Command::isRedoCapable),
            slotsAfterDestructor(6));
  static_assert(std::is_same_v<decltype(&Command::getDescription),
                               const std::string& (CommandBase::*)() const>);
  static_assert(std::is_same_v<decltype(&Command::getSpeedRate),
                               LegacyProgress::Speed::Rate (CommandBase::*)()>);
  static_assert(std::is_same_v<decltype(&Command::isRedoCapable), bool (CommandBase::*)()>);
}

}
}
