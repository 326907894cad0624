// SPDX-License-Identifier: MIT
#include "CommandPattern/CommandHistory.h"

#include "Platform/CommandPattern/HistoryTest.h"
#include "Support/Allocations.h"

#include <gtest/gtest.h>

namespace Tarvik {
namespace {

/// A history that forgets on request: undone entries, the clean mark, or everything.
class ForgetfulHistory : public HistoryTest {
protected:
  int timesTold = 0;
  CommandHistory::Subscription subscription =
      history.subscribe([this](const auto&) { ++timesTold; });
};

TEST_F(ForgetfulHistory, ReleasesWhatCouldBeRedone)
{
  execute("A B C");
  history.markClean();
  history.jumpTo(1);
  timesTold = 0;

  history.releaseUndone();

  EXPECT_EQ(view(history), "A |");
  EXPECT_EQ(document.text(), "A");
  EXPECT_EQ(timesTold, 1);
  history.releaseUndone();
  EXPECT_EQ(timesTold, 1) << "there was nothing left to release";
}

TEST_F(ForgetfulHistory, ForgetsTheCleanMark)
{
  execute("A");
  history.markClean();
  timesTold = 0;

  history.forgetCleanMark();

  EXPECT_EQ(view(history), "A |");
  EXPECT_FALSE(history.isClean());
  EXPECT_EQ(timesTold, 1);
  history.forgetCleanMark();
  EXPECT_EQ(timesTold, 1) << "there was no mark any more";
  history.markClean();
  EXPECT_TRUE(history.isClean());
}

TEST_F(ForgetfulHistory, IsEmptyAndCleanAfterAReset)
{
  execute("A B");
  history.undo();
  timesTold = 0;

  history.reset();

  EXPECT_EQ(view(history), "* |");
  EXPECT_EQ(timesTold, 1);
  history.reset();
  EXPECT_EQ(timesTold, 1) << "it was new already";
}

TEST_F(ForgetfulHistory, IsCleanAfterAResetEvenWithoutEntries)
{
  history.setLimit(0);
  execute("A");
  EXPECT_FALSE(history.isClean());
  timesTold = 0;

  history.reset();

  EXPECT_TRUE(history.isClean());
  EXPECT_EQ(timesTold, 1);
}

TEST_F(ForgetfulHistory, KeepsItsSettingsWhenItIsReset)
{
  history.setLimit(3);
  history.setBudget(100);
  history.setDropsCommandsWithoutChange(true);
  execute("A");

  history.reset();

  EXPECT_EQ(history.limit(), 3U);
  EXPECT_EQ(history.budget(), 100U);
  EXPECT_TRUE(history.dropsCommandsWithoutChange());
}

#if !defined(_MSC_VER) // allocations in DLLs cannot be counted there

TEST_F(ForgetfulHistory, GivesItsOwnMemoryBackWhenItIsCleared)
{
  for (int i = 0; i < 2; ++i) {
    for (int command = 0; command < 1000; ++command)
      history.execute(append(document, "A"));
    const AllocationWatch watch;
    i == 0 ? history.clear() : history.reset();
    EXPECT_GE(watch.released(), 1000U + 2U) << "the commands and two lists of the history";
  }
}

#endif

}
}
