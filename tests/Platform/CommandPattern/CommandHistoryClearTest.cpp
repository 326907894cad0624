// SPDX-License-Identifier: MIT
#include "CommandPattern/CommandHistory.h"

#include "Platform/CommandPattern/HistoryTest.h"

#include <gtest/gtest.h>

namespace Tarvik {
namespace {

class ClearedHistory : public HistoryTest {};

TEST_F(ClearedHistory, ForgetsAllCommandsAndLeavesTheDocumentWhenCleared)
{
  const auto a = append(document, "A");
  history.execute(a);
  execute("B");
  history.undo();
  document.takeCalls();

  history.clear();

  EXPECT_EQ(document.takeCalls(), "");
  EXPECT_EQ(document.text(), "A");
  EXPECT_EQ(view(history), "|");
  EXPECT_EQ(a.use_count(), 1);
}

TEST_F(ClearedHistory, StaysCleanWhenClearedInItsCleanState)
{
  execute("A B");
  history.undo();
  history.markClean();

  history.clear();

  EXPECT_EQ(view(history), "* |");
}

TEST_F(ClearedHistory, LosesACleanMarkElsewhereWhenCleared)
{
  execute("A"); // the mark stays at position 0, which will be the position again

  history.clear();

  EXPECT_EQ(view(history), "|");
  EXPECT_FALSE(history.isClean());
}

TEST_F(ClearedHistory, StaysCleanWhenClearedWithoutCommands)
{
  history.clear();

  EXPECT_EQ(view(history), "* |");
}

TEST_F(ClearedHistory, KeepsItsLimitWhenCleared)
{
  history.setLimit(1);
  execute("A");

  history.clear();
  execute("B C");

  EXPECT_EQ(view(history), "C |");
}

}
}
