// SPDX-License-Identifier: MIT
#include "CommandPattern/CommandHistory.h"

#include "CommandPattern/CommandTransaction.h"
#include "Platform/CommandPattern/DragCommands.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>

namespace Tarvik {
namespace {

/// What a history lets go of, and what it does when a command finds no memory.
class HistoryOutOfMemory : public DragTest {
protected:
  /// Drags named "1" to "5", each to the place of its name.
  void dragFiveTimes()
  {
    for (int place = 1; place <= 5; ++place)
      drag(place, {.name = std::to_string(place)});
  }

  void letGoOf(std::size_t count)
  {
    history.setOutOfMemoryHandler([this, count](CommandHistory& full) {
      EXPECT_EQ(&full, &history);
      viewWhenAsked = view(full);
      ++timesAsked;
      return full.releaseOldest(count) > 0;
    });
  }

  std::string viewWhenAsked;
  int timesAsked = 0;
};

TEST_F(HistoryOutOfMemory, ReleasesItsOldestEntriesAndThenThoseRedoneLast)
{
  dragFiveTimes();
  history.jumpTo(2);
  int told = 0;
  const auto subscription = history.subscribe([&](const auto&) { ++told; });

  EXPECT_EQ(history.releaseOldest(0), 0U);
  EXPECT_EQ(told, 0);
  EXPECT_EQ(history.releaseOldest(2), 2U);
  EXPECT_EQ(view(history), "1>2 | 2>3 3>4");
  EXPECT_EQ(told, 1);
}

TEST_F(HistoryOutOfMemory, NeverReleasesWhatIsUndoneOrRedoneNext)
{
  dragFiveTimes();
  history.jumpTo(2);

  EXPECT_EQ(history.releaseOldest(CommandHistory::unlimited), 3U);
  EXPECT_EQ(view(history), "1>2 | 2>3");
  EXPECT_EQ(history.releaseOldest(1), 0U);

  history.undo();
  EXPECT_EQ(view(history), "| 1>2 2>3");
  EXPECT_EQ(history.releaseOldest(5), 1U);
  EXPECT_EQ(view(history), "| 1>2");
}

TEST_F(HistoryOutOfMemory, LetsTheHostReleaseEntriesAndExecutesTheCommandAgain)
{
  dragFiveTimes();
  letGoOf(3);
  desk.exhausting = {"execute 6"};

  EXPECT_TRUE(drag(6, {.name = "6"}));

  EXPECT_EQ(viewWhenAsked, "* 0>1 1>2 2>3 3>4 4>5 |");
  EXPECT_EQ(view(history), "3>4 4>5 5>6 |");
  EXPECT_EQ(timesAsked, 1);
}

TEST_F(HistoryOutOfMemory, LetsTheHostReleaseEntriesAndUndoesAgain)
{
  dragFiveTimes();
  letGoOf(10);
  desk.exhausting = {"undo 5"};

  EXPECT_TRUE(history.undo());

  EXPECT_EQ(view(history), "| 4>5");
  EXPECT_EQ(desk.place, 4);
}

TEST_F(HistoryOutOfMemory, LetsTheHostReleaseEntriesAndRedoesAgain)
{
  dragFiveTimes();
  history.jumpTo(1);
  letGoOf(2);
  desk.exhausting = {"redo 2"};

  EXPECT_TRUE(history.redo());

  EXPECT_EQ(view(history), "* 0>1 1>2 | 2>3");
  EXPECT_EQ(desk.place, 2);
}

TEST_F(HistoryOutOfMemory, LetsTheHostReleaseEntriesAndJumpsAgain)
{
  dragFiveTimes();
  letGoOf(2);
  desk.exhausting = {"undo 5"};

  history.jumpTo(3);

  EXPECT_EQ(view(history), "2>3 | 3>4 4>5");
  EXPECT_EQ(desk.place, 3);
}

TEST_F(HistoryOutOfMemory, DoesNotJumpToAPositionThatTheHostReleased)
{
  dragFiveTimes();
  letGoOf(2);
  desk.exhausting = {"undo 4"};

  EXPECT_THROW(history.jumpTo(1), std::bad_alloc);

  EXPECT_EQ(view(history), "2>3 3>4 4>5 |");
  EXPECT_EQ(desk.place, 5);
}

TEST_F(HistoryOutOfMemory, DoesNotUndoSomethingElseThanWasAskedFor)
{
  dragFiveTimes();
  history.setOutOfMemoryHandler([](CommandHistory& full) {
    full.clear();
    return true;
  });
  desk.exhausting = {"undo 5"};

  EXPECT_THROW(history.undo(), std::bad_alloc);

  EXPECT_EQ(view(history), "|");
  EXPECT_EQ(desk.place, 5);
}

TEST_F(HistoryOutOfMemory, DoesNotUndoTwiceWhenTheHostUndoes)
{
  dragFiveTimes();
  history.setOutOfMemoryHandler([](CommandHistory& full) { return full.undo(); });
  desk.exhausting = {"undo 5"};

  EXPECT_THROW(history.undo(), std::bad_alloc);

  EXPECT_EQ(desk.place, 4);
}

TEST_F(HistoryOutOfMemory, DoesNotJumpInAHistoryThatTheHostCleared)
{
  dragFiveTimes();
  history.setOutOfMemoryHandler([](CommandHistory& full) {
    full.clear();
    return true;
  });
  desk.exhausting = {"undo 5"};

  EXPECT_THROW(history.jumpTo(0), std::bad_alloc);

  EXPECT_EQ(desk.place, 5);
}

TEST_F(HistoryOutOfMemory, TriesOnlyOnceMore)
{
  dragFiveTimes();
  history.setOutOfMemoryHandler([this](CommandHistory&) {
    ++timesAsked;
    desk.exhausting = {"undo 5"};
    return true;
  });
  desk.exhausting = {"undo 5"};

  EXPECT_THROW(history.undo(), std::bad_alloc);

  EXPECT_EQ(timesAsked, 1);
  EXPECT_EQ(view(history), "* 0>1 1>2 2>3 3>4 4>5 |");
}

TEST_F(HistoryOutOfMemory, FailsWhenTheHostCannotHelp)
{
  drag(1, {.name = "1"});
  letGoOf(10); // there is nothing to release
  desk.exhausting = {"undo 1"};

  EXPECT_THROW(history.undo(), std::bad_alloc);

  EXPECT_EQ(timesAsked, 1);
  EXPECT_EQ(view(history), "* 0>1 |");
}

TEST_F(HistoryOutOfMemory, FailsWithWhatTheHostThrows)
{
  drag(1, {.name = "1"});
  history.setOutOfMemoryHandler([](CommandHistory&) -> bool { throw std::runtime_error("host"); });
  desk.exhausting = {"undo 1"};

  EXPECT_THROW(history.undo(), std::runtime_error);

  EXPECT_EQ(view(history), "* 0>1 |");
}

TEST_F(HistoryOutOfMemory, DoesNotAskForOtherFailures)
{
  drag(1, {.name = "1"});
  letGoOf(1);
  desk.failing = {"undo 1"};

  EXPECT_THROW(history.undo(), Failure);

  EXPECT_EQ(timesAsked, 0);
}

TEST_F(HistoryOutOfMemory, DoesNotAskForFailuresOfListeners)
{
  letGoOf(1);
  const auto subscription = history.subscribe([](const auto&) { throw std::bad_alloc(); });

  EXPECT_THROW(drag(1), std::bad_alloc);

  EXPECT_EQ(timesAsked, 0);
  EXPECT_EQ(view(history), "* 0>1 |");
}

TEST_F(HistoryOutOfMemory, DoesNotAskTheHostWhileTheHostIsAsked)
{
  dragFiveTimes();
  history.setOutOfMemoryHandler([this](CommandHistory& full) {
    ++timesAsked;
    desk.exhausting = {"undo 5"};
    full.undo();
    return true;
  });
  desk.exhausting = {"undo 5"};

  EXPECT_THROW(history.undo(), std::bad_alloc);

  EXPECT_EQ(timesAsked, 1);
}

TEST_F(HistoryOutOfMemory, DoesNotLetTheHostReplaceItselfWhileItIsAsked)
{
  drag(1, {.name = "1"});
  history.setOutOfMemoryHandler([](CommandHistory& full) {
    full.setOutOfMemoryHandler(nullptr);
    return true;
  });
  desk.exhausting = {"undo 1"};

  EXPECT_THROW(history.undo(), std::logic_error);

  EXPECT_EQ(view(history), "* 0>1 |");
}

TEST_F(HistoryOutOfMemory, ReleasesEntriesForACommandOfATransaction)
{
  dragFiveTimes();
  letGoOf(4);
  desk.exhausting = {"execute 6"};

  CommandTransaction transaction(history, "T");
  drag(6, {.name = "6"});
  transaction.commit();

  EXPECT_EQ(view(history), "4>5 T |");
}

}
}
