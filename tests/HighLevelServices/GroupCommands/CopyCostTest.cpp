// SPDX-License-Identifier: MIT
// What executing a command may copy. Groups have no move, so a list that grows or is built twice
// copies all of them once more; identifiers that count their copies show it.

#include "HighLevelServices/GroupCommands/AddToTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/RemoveFromTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/SortTKGroupsAlphabeticallyCmd.h"
#include "Support/RecordingHost.h"
#include "Support/WatchedIdentifier.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace Tarvik {
namespace {

constexpr std::size_t groupCount = 100;
constexpr std::size_t memberCount = 10;
constexpr std::size_t oneList = groupCount * memberCount;

/// A host that does not copy the lists that it is given, so that only the command's copies count.
class LookingHost : public RecordingHost<WatchedIdentifier> {
public:
  void setGroups(const std::vector<TKGroup<WatchedIdentifier>>&) override {}
};

class CopyCost : public ::testing::Test {
protected:
  CopyCost()
  {
    std::vector<TKGroup<WatchedIdentifier>> groups;
    for (std::size_t i = 0; i < groupCount; ++i) {
      groups.emplace_back("Group " + std::to_string(i));
      groups.back().addGroupMembersAtIndex(std::vector<WatchedIdentifier>(memberCount), 0);
    }
    host->replaceGroups(groups);
    host->listMembersBy([](const Identifier&) { return LookingHost::NamedElements(); });
  }

  static std::size_t copiesToExecute(CommandBase& command)
  {
    std::size_t copies = 0;
    const CopyWatch watch([&copies] { ++copies; });
    command.execute();
    return copies;
  }

  std::shared_ptr<LookingHost> host = std::make_shared<LookingHost>();
  std::size_t aFew = 2 * memberCount; // the given elements and the group that gets them
};

TEST_F(CopyCost, OfAddingIsTwoLists)
{
  const Identifier target = host->idOf("Group 50");
  AddToTKGroupCmd<WatchedIdentifier> command(host, {WatchedIdentifier()}, target);

  EXPECT_LE(copiesToExecute(command), 2 * oneList + aFew);
  EXPECT_LE(copiesToExecute(command), 2 * oneList + aFew) << "when it is executed again";
}

TEST_F(CopyCost, OfCreatingIsTwoLists)
{
  CreateTKGroupCmd<WatchedIdentifier> command(host, {WatchedIdentifier()}, "New");

  EXPECT_LE(copiesToExecute(command), 2 * oneList + aFew);
  EXPECT_LE(copiesToExecute(command), 2 * oneList + aFew) << "when it is executed again";
}

TEST_F(CopyCost, OfRemovingIsTwoLists)
{
  RemoveFromTKGroupCmd<WatchedIdentifier> command(host, {WatchedIdentifier()});

  EXPECT_LE(copiesToExecute(command), 2 * oneList + aFew);
  EXPECT_LE(copiesToExecute(command), 2 * oneList + aFew) << "when it is executed again";
}

TEST_F(CopyCost, OfSortingGroupsIsTwoLists)
{
  SortTKGroupsAlphabeticallyCmd<WatchedIdentifier> command(host);

  EXPECT_LE(copiesToExecute(command), 2 * oneList + aFew);
  EXPECT_LE(copiesToExecute(command), 2 * oneList + aFew) << "when it is executed again";
}

TEST_F(CopyCost, OfUndoAndRedoIsTheHostsAlone)
{
  CreateTKGroupCmd<WatchedIdentifier> command(host, {WatchedIdentifier()}, "New");
  command.execute();

  std::size_t copies = 0;
  const CopyWatch watch([&copies] { ++copies; });
  command.undo();
  command.redo();

  EXPECT_EQ(copies, 0U);
}

}
}
