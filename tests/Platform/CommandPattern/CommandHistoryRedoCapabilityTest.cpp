// SPDX-License-Identifier: MIT
#include "CommandPattern/CommandHistory.h"

#include "CommandPattern/MacroCommand.h"
#include "Platform/CommandPattern/HistoryTest.h"

#include <gtest/gtest.h>

#include <list>
#include <memory>

namespace Tarvik {
namespace {

/// A history of which some commands cannot be redone.
class HistoryWithoutRedo : public HistoryTest {};

TEST_F(HistoryWithoutRedo, ForgetsACommandThatCannotBeRedoneOnceItIsUndone)
{
  execute("A B!");

  history.undo();

  EXPECT_EQ(document.text(), "A");
  EXPECT_EQ(view(history), "* A |");
}

TEST_F(HistoryWithoutRedo, ForgetsWhatFollowsACommandThatCannotBeRedone)
{
  execute("A B! C D");

  history.jumpTo(2);
  EXPECT_EQ(view(history), "* A B! | C D");
  history.undo();

  EXPECT_EQ(document.text(), "A");
  EXPECT_EQ(view(history), "* A |");
}

TEST_F(HistoryWithoutRedo, ForgetsCommandsThatCannotBeRedoneOnItsWayBack)
{
  execute("A B! C D! E");

  history.jumpTo(0);

  EXPECT_EQ(document.text(), "");
  EXPECT_EQ(view(history), "* | A");
}

TEST_F(HistoryWithoutRedo, AsksAMacroWhetherItCanBeRedone)
{
  history.execute(std::make_shared<MacroCommand>(
      std::list<std::shared_ptr<CommandBase>>{append(document, "A"), append(document, "B!")}));

  history.undo();

  EXPECT_EQ(view(history), "* |");
}

}
}
