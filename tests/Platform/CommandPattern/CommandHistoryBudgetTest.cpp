// SPDX-License-Identifier: MIT
#include "CommandPattern/CommandHistory.h"

#include "Platform/CommandPattern/DragCommands.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <memory>
#include <new>
#include <stdexcept>

namespace Tarvik {
namespace {

constexpr std::size_t greatest = std::numeric_limits<std::size_t>::max();

/// A history with a budget in bytes.
class HistoryBudget : public HistoryTest {
protected:
  void execute(const std::string& name, std::size_t size)
  {
    history.execute(append(document, name), size);
  }
};

TEST_F(HistoryBudget, IsUnlimitedUnlessItIsSet)
{
  execute("A", greatest);

  EXPECT_EQ(history.budget(), CommandHistory::unlimited);
  EXPECT_EQ(view(history), "* A |");
}

TEST_F(HistoryBudget, IsSpentOnTheLatestCommands)
{
  history.setBudget(100);

  execute("A", 40);
  execute("B", 50);
  EXPECT_EQ(view(history), "* A B |");
  EXPECT_EQ(history.sizeInBytes(), 90U);
  execute("C", 20);

  EXPECT_EQ(view(history), "B C |");
  EXPECT_EQ(history.sizeInBytes(), 70U);
}

TEST_F(HistoryBudget, MayBeSpentToTheLastByte)
{
  history.setBudget(100);

  execute("A", 60);
  execute("B", 40);
  EXPECT_EQ(view(history), "* A B |");
  execute("C", 1);

  EXPECT_EQ(view(history), "B C |");
}

TEST_F(HistoryBudget, AlwaysAllowsTheLatestCommand)
{
  history.setBudget(100);
  execute("A", 50);

  execute("B", 101);
  EXPECT_EQ(view(history), "B |");
  EXPECT_EQ(history.sizeInBytes(), 101U);

  history.setBudget(0);
  EXPECT_EQ(view(history), "B |");
  EXPECT_TRUE(history.undo());
  EXPECT_EQ(view(history), "| B");
}

TEST_F(HistoryBudget, ReleasesTheOldestFirstAndThenWhatIsRedoneLast)
{
  for (const auto* const name : {"A", "B", "C", "D", "E"})
    execute(name, 10);
  history.jumpTo(2);

  history.setBudget(40);
  EXPECT_EQ(view(history), "B | C D E");
  history.setBudget(20);
  EXPECT_EQ(view(history), "| C D");
  history.setBudget(0);
  EXPECT_EQ(view(history), "| C");
}

TEST_F(HistoryBudget, MovesAndLosesTheCleanMarkAsTheLimitDoes)
{
  for (const auto* const name : {"A", "B"})
    execute(name, 10);
  history.markClean();
  execute("C", 10);

  history.setBudget(20);
  EXPECT_EQ(view(history), "B * C |");
  history.setBudget(10);
  EXPECT_EQ(view(history), "* C |");
  execute("D", 10);
  EXPECT_EQ(view(history), "D |");
}

TEST_F(HistoryBudget, HoldsBesideTheLimit)
{
  history.setLimit(3);
  history.setBudget(100);

  for (const auto* const name : {"A", "B", "C", "D"})
    execute(name, 10);
  EXPECT_EQ(view(history), "B C D |");
  execute("E", 90);

  EXPECT_EQ(view(history), "D E |");
}

TEST_F(HistoryBudget, CountsEntriesThatCanBeRedoneUntilTheyAreReleased)
{
  history.setBudget(100);
  execute("A", 50);
  execute("B", 50);
  history.undo();
  EXPECT_EQ(history.sizeInBytes(), 100U);

  execute("C", 50);

  EXPECT_EQ(view(history), "* A C |");
}

TEST_F(HistoryBudget, IsNotFooledBySizesWhoseSumIsTooGreatForTheType)
{
  execute("A", 5);
  execute("B", greatest);
  execute("C", greatest);
  EXPECT_EQ(history.sizeInBytes(), CommandHistory::unlimited);

  history.setBudget(1000);
  EXPECT_EQ(view(history), "C |");
  EXPECT_EQ(history.sizeInBytes(), greatest);
  execute("D", 7);

  EXPECT_EQ(view(history), "D |");
  EXPECT_EQ(history.sizeInBytes(), 7U);
}

TEST_F(HistoryBudget, IsToldToListenersWhenItChanges)
{
  int told = 0;
  const auto subscription = history.subscribe([&](const auto&) { ++told; });

  history.setBudget(CommandHistory::unlimited);
  EXPECT_EQ(told, 0);
  history.setBudget(10);

  EXPECT_EQ(told, 1);
  EXPECT_EQ(history.budget(), 10U);
}

TEST_F(HistoryBudget, CountsNothingForCommandsOfUnknownSize)
{
  history.setBudget(0);

  HistoryTest::execute("A B C");

  EXPECT_EQ(view(history), "* A B C |");
  EXPECT_EQ(history.sizeInBytes(), 0U);
}

TEST_F(HistoryBudget, ForgetsTheSizesOfWhatIsCleared)
{
  execute("A", greatest);
  execute("B", 3);

  history.clear();
  EXPECT_EQ(history.sizeInBytes(), 0U);
  execute("C", 2);

  EXPECT_EQ(history.sizeInBytes(), 2U);
}

class HistorySizes : public DragTest {};

TEST_F(HistorySizes, AreToldByTheCommandTheArgumentOrTheHost)
{
  history.setSizeFunction([](const CommandBase&) { return std::size_t(1000); });

  drag(1, {.size = 10});
  EXPECT_EQ(history.sizeInBytes(), 10U) << "the command knows";
  drag(2);
  EXPECT_EQ(history.sizeInBytes(), 1010U) << "the host knows";
  history.execute(std::make_shared<Drag>(desk, 3, DragTraits{.size = 10}), 1);
  EXPECT_EQ(history.sizeInBytes(), 1011U) << "whoever executes it knows";
}

TEST_F(HistorySizes, OfKeptEntriesStayWhenTheHostAsksForOthers)
{
  history.setSizeFunction([](const CommandBase&) { return std::size_t(1000); });
  drag(1);

  history.setSizeFunction(nullptr);
  drag(2);

  EXPECT_EQ(history.sizeInBytes(), 1000U);
}

TEST_F(HistorySizes, AreAskedForAfterExecution)
{
  int seen = 0;
  history.setSizeFunction([&](const CommandBase&) {
    seen = desk.place;
    return std::size_t(1);
  });

  drag(7);

  EXPECT_EQ(seen, 7);
}

TEST_F(HistorySizes, AreUnknownWhenTheHostThrows)
{
  history.setSizeFunction([](const CommandBase&) -> std::size_t { throw std::bad_alloc(); });

  drag(1);

  EXPECT_EQ(view(history), "* 0>1 |");
  EXPECT_EQ(history.sizeInBytes(), 0U);
}

TEST_F(HistorySizes, AreNotAskedForByAFunctionThatOperatesTheHistory)
{
  int refused = 0;
  history.setSizeFunction([&](const CommandBase&) {
    try {
      history.clear();
    } catch (const std::logic_error&) {
      ++refused;
    }
    return std::size_t(1);
  });

  drag(1);

  EXPECT_EQ(refused, 1);
  EXPECT_EQ(view(history), "* 0>1 |");
}

}
}
