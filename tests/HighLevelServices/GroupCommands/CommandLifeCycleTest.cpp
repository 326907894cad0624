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

  EXPECT_EQ(this->host->takeCalls(), (Calls{"getGroups", "setGroups"}));
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

TYPED_TEST(EveryCommand, OverwritesWhatTheHostChangedInBetween)
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
  command.redo();

  EXPECT_EQ(this->host->takeCalls(), (Calls{"setGroups", "setGroups"}));
}

TYPED_TEST(EveryCommand, ReachesAnOverriddenRedoWhenExecuted)
{
  class WithOwnRedo : public TypeParam::Command {
  public:
    explicit WithOwnRedo(typename TypeParam::Command&& command)
        : TypeParam::Command(std::move(command))
    {}
    void redo() override { ++redone; }
    int redone = 0;
  };
  WithOwnRedo command(TypeParam::make(this->host));

  command.execute();

  EXPECT_EQ(command.redone, 1);
  EXPECT_EQ(this->host->takeCalls(), Calls{"getGroups"});
}

TYPED_TEST(EveryCommand, TakesNewSnapshotsWhenItIsExecutedAgain)
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

TYPED_TEST(EveryCommand, StartsFromItsOwnBeforeListWhenTheHostHandsThatOut)
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
    EXPECT_EQ(this->host.use_count(), 2);
  }
  EXPECT_EQ(this->host.use_count(), 1);
}

TYPED_TEST(EveryCommand, KeepsTheHostAliveAlone)
{
  const std::weak_ptr<RecordingHost<typename TypeParam::Element>> watched = this->host;
  std::optional<typename TypeParam::Command> command(TypeParam::make(this->host));
  this->host.reset();

  command->execute();
  command->undo();
  EXPECT_TRUE(identical(watched.lock()->copyOfGroups(), this->before));

  command.reset();
  EXPECT_TRUE(watched.expired());
}

TYPED_TEST(EveryCommand, GoesOnWhereItWasMovedTo)
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

TYPED_TEST(EveryCommand, KeepsItsArgumentsWhenItIsMovedBeforeItIsExecuted)
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

TYPED_TEST(EveryCommand, GoesOnWhereItWasAssignedTo)
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

TYPED_TEST(EveryCommand, LeavesNothingInWhatItWasMovedFrom)
{
  auto source = std::make_optional(TypeParam::make(this->host));
  source->execute();
  const auto moved = std::move(*source);
  EXPECT_EQ(this->host.use_count(), 2) << "only the new command shares the host";

  const auto counted = Allocations::counts();
  source.reset();

  EXPECT_EQ(Allocations::counts().released, counted.released) << "no list was left to release";
}

TYPED_TEST(EveryCommand, LeavesNothingInWhatItWasAssignedFrom)
{
  auto source = std::make_optional(TypeParam::make(this->host));
  source->execute();
  auto target = TypeParam::make(hostForCommands<typename TypeParam::Element>());
  target = std::move(*source);
  EXPECT_EQ(this->host.use_count(), 2) << "only the new command shares the host";

  const auto counted = Allocations::counts();
  source.reset();

  EXPECT_EQ(Allocations::counts().released, counted.released + TypeParam::textsLeftBehind)
      << "no list was left to release";
}

TYPED_TEST(EveryCommand, StaysWhatItIsWhenAssignedToItself)
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
  for (const char* const operation : {"getGroups", "setGroups"}) {
    auto command = TypeParam::make(this->host);
    this->host->failIn(operation);

    EXPECT_THROW(command.execute(), std::runtime_error) << operation;

    EXPECT_TRUE(identical(this->host->copyOfGroups(), this->before)) << operation;
  }
}

TYPED_TEST(EveryCommand, LeavesTheHostsGroupsAloneWhicheverAllocationFails)
{
  bool succeeded = false;
  for (std::size_t successes = 0; !succeeded; ++successes) {
    ASSERT_LT(successes, 10'000U);
    auto command = TypeParam::make(this->host);
    try {
      const Allocations::FailAfter failing(successes);
      command.execute();
      succeeded = !failing.hasFailed();
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
      const Allocations::FailAfter failing(successes);
      const auto command = TypeParam::make(this->host);
      succeeded = !failing.hasFailed();
    } catch (const std::bad_alloc&) {
      EXPECT_EQ(this->host.use_count(), 1) << successes;
    }
  }
}

TYPED_TEST(EveryCommand, CanBeMovedWithoutFailingAndNeverCopied)
{
  using Command = typename TypeParam::Command;

  static_assert(std::is_nothrow_move_constructible_v<Command>);
  static_assert(std::is_nothrow_move_assignable_v<Command>);
  static_assert(!std::is_copy_constructible_v<Command>);
  static_assert(!std::is_copy_assignable_v<Command>);
  static_assert(std::has_virtual_destructor_v<Command>);
  static_assert(std::is_base_of_v<CommandBase, Command>);
}

TYPED_TEST(EveryCommand, OverridesOnlyExecuteUndoAndRedo)
{
  using Command = typename TypeParam::Command;

  EXPECT_EQ(virtualSlots(&Command::execute, &Command::undo, &Command::redo,
                         &Command::getDescription, &Command::getSpeedRate, &Command::isRedoCapable),
            slotsBehindDestructor(6));
  static_assert(std::is_same_v<decltype(&Command::getDescription),
                               const std::string& (CommandBase::*)() const>);
  static_assert(std::is_same_v<decltype(&Command::getSpeedRate),
                               LegacyProgress::Speed::Rate (CommandBase::*)()>);
  static_assert(std::is_same_v<decltype(&Command::isRedoCapable), bool (CommandBase::*)()>);
}

}
}
