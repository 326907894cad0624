// SPDX-License-Identifier: MIT
#include "CommandPattern/CommandHistory.h"

#include "CommandPattern/MacroCommand.h"
#include "Platform/CommandPattern/DragCommands.h"
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

TEST_F(HistoryWithoutRedo, ForgetsACommandThatStopsBeingRedoCapableWhileItIsUndone)
{
  Desk desk;
  history.execute(std::make_shared<Drag>(desk, 1, DragTraits{.losesRedoInUndo = true}));
  execute("A");

  history.jumpTo(0);

  EXPECT_EQ(view(history), "* |");
  EXPECT_FALSE(history.redo());
  EXPECT_EQ(desk.place, 0);
}

TEST_F(HistoryWithoutRedo, ForgetsACommandThatCannotSayAfterItsUndoWhetherItCanBeRedone)
{
  class Forgetful : public AppendCommand {
  public:
    using AppendCommand::AppendCommand;
    bool isRedoCapable() override
    {
      if (m_asked++ > 0)
        throw Failure("asked again");
      return true;
    }

  private:
    int m_asked = 0;
  };
  history.execute(std::make_shared<Forgetful>(document, "F"));

  EXPECT_TRUE(history.undo());

  EXPECT_EQ(view(history), "* |");
  EXPECT_EQ(document.text(), "");
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
