// SPDX-License-Identifier: MIT
#include "CommandPattern/CommandHistory.h"

#include "Platform/CommandPattern/HistoryTest.h"
#include "Support/Allocations.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>

namespace Tarvik {
namespace {

class LimitedHistory : public HistoryTest {};

TEST_F(LimitedHistory, ForgetsTheOldestCommandsBeyondItsLimit)
{
  history.setLimit(2);

  execute("A B C D");

  EXPECT_EQ(document.text(), "A B C D");
  EXPECT_EQ(view(history), "C D |");
}

TEST_F(LimitedHistory, TakesALimitFromItsStart)
{
  CommandHistory limited(2);

  for (const auto* const name : {"A", "B", "C"})
    limited.execute(append(document, name));

  EXPECT_EQ(limited.limit(), 2U);
  EXPECT_EQ(view(limited), "B C |");
}

TEST_F(LimitedHistory, ReleasesTheCommandsThatItForgets)
{
  const auto a = append(document, "A");
  history.execute(a);
  execute("B");

  history.setLimit(1);

  EXPECT_EQ(a.use_count(), 1);
}

TEST_F(LimitedHistory, ForgetsAtOnceWhenTheLimitIsLowered)
{
  execute("A B C D");

  history.setLimit(3);

  EXPECT_EQ(view(history), "B C D |");
}

TEST_F(LimitedHistory, KeepsMoreFromNowOnWhenTheLimitIsRaised)
{
  history.setLimit(1);
  execute("A B");

  history.setLimit(3);
  execute("C D");

  EXPECT_EQ(view(history), "B C D |");
}

TEST_F(LimitedHistory, ForgetsUndoneCommandsOnlyWhenAllOthersAreForgotten)
{
  execute("A B C D E");
  history.jumpTo(2);

  history.setLimit(4);
  EXPECT_EQ(view(history), "B | C D E");
  history.setLimit(3);
  EXPECT_EQ(view(history), "| C D E");
  history.setLimit(2);
  EXPECT_EQ(view(history), "| C D");
  history.setLimit(0);
  EXPECT_EQ(view(history), "|");
}

TEST_F(LimitedHistory, ForgetsTheOldestOfBothKindsInOneGo)
{
  execute("A B C D E");
  history.jumpTo(2);

  history.setLimit(1);

  EXPECT_EQ(view(history), "| C");
  history.redo();
  EXPECT_EQ(document.text(), "A B C");
}

TEST_F(LimitedHistory, KeepsNothingWithALimitOfZero)
{
  history.setLimit(0);

  execute("A B");

  EXPECT_EQ(document.text(), "A B");
  EXPECT_EQ(view(history), "|");
  EXPECT_FALSE(history.undo());
  EXPECT_FALSE(history.isClean());
}

TEST_F(LimitedHistory, CountsWhatCanBeRedoneAgainstItsLimitOnlyUntilItIsCutOff)
{
  history.setLimit(2);
  execute("A B");
  history.undo();

  execute("C");

  EXPECT_EQ(view(history), "* A C |");
}

TEST_F(LimitedHistory, LosesTheCleanMarkThatTheLimitPasses)
{
  history.setLimit(2);

  execute("A B");
  EXPECT_EQ(view(history), "* A B |");
  execute("C");

  EXPECT_EQ(view(history), "B C |");
}

TEST_F(LimitedHistory, KeepsTheCleanMarkAtItsStateWhenTheLimitMovesIt)
{
  execute("A B C");
  history.markClean();
  execute("D");

  history.setLimit(2);
  EXPECT_EQ(view(history), "C * D |");
  history.setLimit(1);
  EXPECT_EQ(view(history), "* D |");
  history.setLimit(0);
  EXPECT_EQ(view(history), "|");
}

TEST_F(LimitedHistory, StaysCleanWhenTheLimitTakesAllItsCommands)
{
  execute("A B");
  history.markClean();

  history.setLimit(0);

  EXPECT_EQ(view(history), "* |");
}

TEST_F(LimitedHistory, MovesItsEntriesInMemoryRarelyWhenItIsFull)
{
  constexpr std::size_t limit = 1000;
  constexpr std::size_t executed = 100 * limit;
  const auto command = append(document, "A");
  CommandHistory full(limit);
  for (std::size_t i = 0; i < 3 * limit; ++i)
    full.execute(command);

  std::size_t moves = 0;
  for (std::size_t i = 0; i < executed; ++i) {
    const auto* const first = full.entries().data();
    full.execute(command);
    if (full.entries().data() != first + 1)
      ++moves;
  }

  EXPECT_LE(moves, executed / limit + 1);
}

#if !defined(_MSC_VER) // allocations in DLLs cannot be counted there

TEST_F(LimitedHistory, TakesNoMoreMemoryOnceItIsFull)
{
  class Nothing : public CommandBase {
  public:
    Nothing() : CommandBase("Nothing") {}
    void execute() override {}
    void undo() override {}
    void redo() override {}
  };
  const auto command = std::make_shared<Nothing>();
  CommandHistory full(100);
  for (int i = 0; i < 300; ++i)
    full.execute(command);

  const AllocationWatch watch;
  for (int i = 0; i < 1000; ++i)
    full.execute(command);

  EXPECT_EQ(watch.count(), 0U);
}

#endif

TEST_F(LimitedHistory, LosesTheCleanMarkAfterUndoneCommandsThatTheLimitTakes)
{
  execute("A B C");
  history.markClean();
  history.jumpTo(0);

  history.setLimit(2);

  EXPECT_EQ(view(history), "| A B");
}

}
}
