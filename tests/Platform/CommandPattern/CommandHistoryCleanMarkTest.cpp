// SPDX-License-Identifier: MIT
#include "CommandPattern/CommandHistory.h"

#include "Platform/CommandPattern/HistoryTest.h"

#include <gtest/gtest.h>

#include <optional>

namespace Tarvik {
namespace {

class MarkedHistory : public HistoryTest {};

TEST_F(MarkedHistory, IsCleanAtTheMarkOnly)
{
  execute("A B");
  EXPECT_FALSE(history.isClean());

  history.markClean();
  EXPECT_TRUE(history.isClean());
  EXPECT_EQ(view(history), "A B * |");

  history.undo();
  EXPECT_FALSE(history.isClean());
  history.undo();
  EXPECT_FALSE(history.isClean());
  history.jumpTo(2);
  EXPECT_TRUE(history.isClean());
  execute("C");
  EXPECT_FALSE(history.isClean());
  history.undo();
  EXPECT_TRUE(history.isClean());
}

TEST_F(MarkedHistory, HasOneCleanMark)
{
  execute("A B");
  history.markClean();
  history.undo();

  history.markClean();

  EXPECT_EQ(view(history), "A * | B");
}

TEST_F(MarkedHistory, LosesTheCleanMarkThatIsCutOff)
{
  execute("A B C");
  history.markClean();
  history.jumpTo(1);

  execute("D E");

  EXPECT_EQ(view(history), "A D E |");
  EXPECT_EQ(history.cleanPosition(), std::nullopt);
  EXPECT_FALSE(history.isClean()) << "the state after three other commands was the clean one";
}

TEST_F(MarkedHistory, KeepsTheCleanMarkWhereABranchBegins)
{
  execute("A B C");
  history.jumpTo(1);
  history.markClean();

  execute("D");

  EXPECT_EQ(view(history), "A * D |");
}

TEST_F(MarkedHistory, LosesTheCleanMarkAfterACommandThatCannotBeRedone)
{
  execute("A B! C");
  history.markClean();

  history.jumpTo(1);

  EXPECT_EQ(view(history), "A |");
}

TEST_F(MarkedHistory, KeepsTheCleanMarkBeforeACommandThatCannotBeRedone)
{
  execute("A");
  history.markClean();
  execute("B! C");

  history.jumpTo(1);

  EXPECT_EQ(view(history), "A * |");
}

TEST_F(MarkedHistory, CanBeMarkedCleanAgainAfterTheMarkWasLost)
{
  execute("A");
  history.markClean();
  history.undo();
  execute("B");
  EXPECT_EQ(view(history), "B |");

  history.markClean();

  EXPECT_EQ(view(history), "B * |");
}

}
}
