// SPDX-License-Identifier: MIT
#include "CommandPattern/CommandHistory.h"

#include "CommandPattern/MacroCommand.h"
#include "Platform/CommandPattern/HistoryTest.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <list>
#include <memory>
#include <stdexcept>
#include <type_traits>

namespace Tarvik {
namespace {

class History : public HistoryTest {};

TEST_F(History, StartsEmptyAndClean)
{
  EXPECT_EQ(view(history), "* |");
  EXPECT_TRUE(history.isClean());
  EXPECT_FALSE(history.canUndo());
  EXPECT_FALSE(history.canRedo());
  EXPECT_EQ(history.limit(), CommandHistory::unlimited);
}

TEST_F(History, ExecutesACommandAndKeepsIt)
{
  const auto a = append(document, "A");

  history.execute(a);

  EXPECT_EQ(document.takeCalls(), "execute A");
  EXPECT_EQ(view(history), "* A |");
  EXPECT_EQ(history.entries().front(), a);
  EXPECT_EQ(a.use_count(), 2);
}

TEST_F(History, RefusesANullCommand)
{
  execute("A B");
  history.undo();

  EXPECT_THROW(history.execute(nullptr), std::invalid_argument);

  EXPECT_EQ(view(history), "* A | B");
}

TEST_F(History, UndoesTheLatestCommandFirst)
{
  execute("A B C");
  document.takeCalls();

  EXPECT_TRUE(history.undo());
  EXPECT_TRUE(history.undo());

  EXPECT_EQ(document.takeCalls(), "undo C, undo B");
  EXPECT_EQ(document.text(), "A");
  EXPECT_EQ(view(history), "* A | B C");
}

TEST_F(History, RedoesInTheOrderOfExecution)
{
  execute("A B C");
  history.jumpTo(0);
  document.takeCalls();

  EXPECT_TRUE(history.redo());
  EXPECT_TRUE(history.redo());

  EXPECT_EQ(document.takeCalls(), "redo A, redo B");
  EXPECT_EQ(document.text(), "A B");
  EXPECT_EQ(view(history), "* A B | C");
}

TEST_F(History, DoesNothingWhenThereIsNothingToUndoOrRedo)
{
  EXPECT_FALSE(history.undo());
  EXPECT_FALSE(history.redo());

  execute("A");
  EXPECT_FALSE(history.redo());
  history.undo();
  document.takeCalls();
  EXPECT_FALSE(history.undo());

  EXPECT_EQ(document.takeCalls(), "");
  EXPECT_EQ(view(history), "* | A");
}

TEST_F(History, KnowsWhatCanBeUndoneAndRedone)
{
  execute("A B");
  EXPECT_TRUE(history.canUndo());
  EXPECT_FALSE(history.canRedo());

  history.undo();
  EXPECT_TRUE(history.canUndo());
  EXPECT_TRUE(history.canRedo());

  history.undo();
  EXPECT_FALSE(history.canUndo());
  EXPECT_TRUE(history.canRedo());
}

TEST_F(History, DescribesWhatWouldBeUndoneAndRedone)
{
  EXPECT_EQ(history.undoDescription(), "");
  EXPECT_EQ(history.redoDescription(), "");

  execute("A B");
  EXPECT_EQ(history.undoDescription(), "B");
  EXPECT_EQ(history.redoDescription(), "");

  history.undo();
  EXPECT_EQ(history.undoDescription(), "A");
  EXPECT_EQ(history.redoDescription(), "B");

  history.undo();
  EXPECT_EQ(history.undoDescription(), "");
  EXPECT_EQ(history.redoDescription(), "A");
}

TEST_F(History, DescribesAMacroByItsFirstCommand)
{
  history.execute(std::make_shared<MacroCommand>(
      std::list<std::shared_ptr<CommandBase>>{append(document, "A"), append(document, "B")}));

  EXPECT_EQ(history.undoDescription(), "A");
}

TEST_F(History, CutsOffWhatCouldBeRedoneWhenACommandIsExecuted)
{
  const auto cutOff = append(document, "C");
  execute("A B");
  history.execute(cutOff);
  history.jumpTo(1);

  execute("D");

  EXPECT_EQ(document.text(), "A D");
  EXPECT_EQ(view(history), "* A D |");
  EXPECT_EQ(cutOff.use_count(), 1) << "the history still holds a command that it cut off";
}

TEST_F(History, ReleasesItsCommandsWhenItIsDestroyed)
{
  const auto a = append(document, "A");
  {
    CommandHistory shortLived;
    shortLived.execute(a);
  }
  EXPECT_EQ(a.use_count(), 1);
  EXPECT_EQ(document.text(), "A");
}

TEST_F(History, CannotBeCopied)
{
  static_assert(!std::is_copy_constructible_v<CommandHistory>);
  static_assert(!std::is_copy_assignable_v<CommandHistory>);
  static_assert(!std::is_convertible_v<std::size_t, CommandHistory>);
}

}
}
