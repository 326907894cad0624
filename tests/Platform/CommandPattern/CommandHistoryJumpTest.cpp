// SPDX-License-Identifier: MIT
#include "CommandPattern/CommandHistory.h"

#include "Platform/CommandPattern/HistoryTest.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <stdexcept>
#include <string>

namespace Tarvik {
namespace {

class HistoryJump : public HistoryTest {};

TEST_F(HistoryJump, LeadsFromEveryPositionToEveryOther)
{
  execute("A B C D");
  const std::string all = document.text();

  for (std::size_t from = 0; from <= 4; ++from)
    for (std::size_t to = 0; to <= 4; ++to) {
      history.jumpTo(from);
      history.jumpTo(to);
      EXPECT_EQ(history.position(), to) << "from " << from;
      EXPECT_EQ(document.text(), all.substr(0, to == 0 ? 0 : 2 * to - 1)) << from << " to " << to;
      EXPECT_EQ(history.entries().size(), 4U) << from << " to " << to;
    }
}

TEST_F(HistoryJump, DoesNotLeadBeyondItsLastEntry)
{
  execute("A B");
  history.undo();
  document.takeCalls();

  for (const std::size_t position : {std::size_t(3), CommandHistory::unlimited})
    EXPECT_THROW(history.jumpTo(position), std::out_of_range) << position;

  EXPECT_EQ(document.takeCalls(), "");
  EXPECT_EQ(view(history), "* A | B");
}

TEST_F(HistoryJump, SaysWhichPositionIsTheLast)
{
  execute("A B");

  try {
    history.jumpTo(7);
    FAIL() << "jumped";
  } catch (const std::out_of_range& error) {
    EXPECT_STREQ(error.what(), "CommandHistory::jumpTo: there is no position 7; the last one is 2");
  }
}

}
}
