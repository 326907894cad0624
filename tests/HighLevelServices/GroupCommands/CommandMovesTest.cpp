// SPDX-License-Identifier: MIT
// What moving a command leaves in its source and in its target.

#include "Support/Allocations.h"
#include "Support/CommandCases.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <optional>
#include <utility>

namespace Tarvik {
namespace {

template <class Case>
class MovableCommand : public CommandTest<Case> {};
TYPED_TEST_SUITE(MovableCommand, MovableCommandCases, CaseName);

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

}
}
