// SPDX-License-Identifier: MIT
// What the bundled platform's macro does when a move fails halfway.

#include "HighLevelServices/GroupCommands/MoveTKGroupElementsCmd.h"

#include "Support/RecordingHost.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <vector>

namespace Tarvik {
namespace {

class FailingCommand : public CommandBase {
public:
  FailingCommand() : CommandBase("fails") {}
  void execute() override { throw std::runtime_error("no place for it"); }
  void undo() override {}
  void redo() override {}
};

template <class T>
class FailedMove : public ::testing::Test {};
TYPED_TEST_SUITE(FailedMove, ElementIdentifiers, KindName);

TYPED_TEST(FailedMove, PutsTheGroupsBackWhenTheHostsCommandFails)
{
  const auto [a, x, t] = distinct<TypeParam, 3>();
  const auto host = hostWith(group("A", {a, x}));
  const auto groupsBefore = host->copyOfGroups();
  host->makeMoveCommandBy([](const TypeParam&, const std::vector<TypeParam>&) {
    return std::make_shared<FailingCommand>();
  });
  MoveTKGroupElementsCmd<TypeParam> command(host, {x}, t, true);

  EXPECT_THROW(command.execute(), std::runtime_error);

  EXPECT_TRUE(identical(host->copyOfGroups(), groupsBefore));
}

}
}
