// SPDX-License-Identifier: MIT
// What commands ask of the platform in ways that only a platform that writes it down can show.

#include "Recording.h"
#include "Support/CommandCases.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik {
namespace {

/// What a recording says of `left == right`.
std::string comparison(const Identifier& left, const Identifier& right)
{
  const Recording recording;
  static_cast<void>(left == right);
  return recording.calls().front();
}

template <class T>
class CommandCalls : public ::testing::Test {};
TYPED_TEST_SUITE(CommandCalls, ElementIdentifiers, KindName);

TYPED_TEST(CommandCalls, CompareTheIdOfTheGroupToRenameWithThoseOfTheGroups)
{
  const auto host = emptyHost<TypeParam>();
  const std::vector<TKGroup<TypeParam>> groups(2);
  host->replaceGroups(groups);
  const Identifier unknown;
  RenameTKGroupCmd<TypeParam> command(host, unknown, "New");
  const std::vector<std::string> expected = {comparison(unknown, groups[0].getId()),
                                             comparison(unknown, groups[1].getId())};
  const Recording recording;

  command.execute();

  const auto& calls = recording.calls();
  EXPECT_TRUE(std::equal(expected.begin(), expected.end(), calls.begin()))
      << ::testing::PrintToString(calls);
}

TYPED_TEST(CommandCalls, CompareTheIdsOfTheGroupsWithThatOfTheGroupToDelete)
{
  const auto host = emptyHost<TypeParam>();
  const std::vector<TKGroup<TypeParam>> groups(2);
  host->replaceGroups(groups);
  const Identifier unknown;
  RemoveTKGroupsCmd<TypeParam> command(host, {unknown});
  const std::vector<std::string> expected = {comparison(groups[0].getId(), unknown),
                                             comparison(groups[1].getId(), unknown)};
  const Recording recording;

  command.execute();

  const auto& calls = recording.calls();
  EXPECT_TRUE(std::equal(expected.begin(), expected.end(), calls.begin()))
      << ::testing::PrintToString(calls);
}

TYPED_TEST(CommandCalls, TakeTheMacrosMemoryFromThePlatform)
{
  const auto host = hostForCommands<TypeParam>();
  auto command = MoveElementsCase<TypeParam>::make(host);
  const Recording recording;

  command.execute();

  const auto& calls = recording.calls();
  EXPECT_EQ(std::count(calls.begin(), calls.end(), "new MacroCommand"), 1);
}

template <class Case>
class AssignedCommand : public ::testing::Test {};
TYPED_TEST_SUITE(AssignedCommand, MovableCommandCases, CaseName);

TYPED_TEST(AssignedCommand, AssignsItsBaseEvenToItself)
{
  auto command = TypeParam::make(hostForCommands<typename TypeParam::Element>());
  auto& alias = command;
  const Recording recording;

  command = std::move(alias);

  const auto& calls = recording.calls();
  EXPECT_EQ(std::count(calls.begin(), calls.end(), "CommandBase = itself"), 1);
}

}
}
