// SPDX-License-Identifier: MIT
#include "CommandPattern/CommandHistory.h"

#include "Platform/CommandPattern/DragCommands.h"

#include <gtest/gtest.h>

#include <memory>

namespace Tarvik {
namespace {

class CommandsWithoutChange : public DragTest {
protected:
  CommandsWithoutChange() { history.setDropsCommandsWithoutChange(true); }
};

TEST_F(CommandsWithoutChange, AreKeptUnlessTheHostWantsOtherwise)
{
  CommandHistory keeping;

  EXPECT_FALSE(keeping.dropsCommandsWithoutChange());
  EXPECT_TRUE(keeping.execute(std::make_shared<Drag>(desk, 0)));

  EXPECT_EQ(view(keeping), "* 0>0 |");
}

TEST_F(CommandsWithoutChange, LeaveNoEntryAndNoUnsavedState)
{
  const auto idle = std::make_shared<Drag>(desk, 0);

  EXPECT_FALSE(history.execute(idle));

  EXPECT_EQ(view(history), "* |");
  EXPECT_TRUE(history.isClean());
  EXPECT_EQ(idle.use_count(), 1);
}

TEST_F(CommandsWithoutChange, LeaveWhatCanBeRedone)
{
  drag(1);
  drag(2);
  history.undo();

  drag(1);

  EXPECT_EQ(view(history), "* 0>1 | 1>2");
  history.redo();
  EXPECT_EQ(desk.place, 2);
}

TEST_F(CommandsWithoutChange, AreNotToldToListeners)
{
  int told = 0;
  const auto subscription = history.subscribe([&](const auto&) { ++told; });

  drag(0);

  EXPECT_EQ(told, 0);
}

TEST_F(CommandsWithoutChange, AreOnlyThoseThatSaySo)
{
  Document document;

  EXPECT_TRUE(history.execute(append(document, "A")));
  EXPECT_TRUE(drag(1));

  EXPECT_EQ(view(history), "* A 0>1 |");
}

TEST_F(CommandsWithoutChange, AreDroppedWhenTheyWereExecutedElsewhere)
{
  const auto idle = std::make_shared<Drag>(desk, 0);
  idle->execute();

  EXPECT_FALSE(history.keep(idle));

  EXPECT_EQ(view(history), "* |");
}

TEST_F(CommandsWithoutChange, AreDroppedWhenTheyAreUndoneLater)
{
  history.setDropsCommandsWithoutChange(false);
  drag(1);
  drag(1);
  drag(2);
  history.setDropsCommandsWithoutChange(true);
  history.undo();

  history.undo();

  EXPECT_EQ(view(history), "* 0>1 | 1>2");
}

TEST_F(CommandsWithoutChange, AreToldByTheHostIfTheyDoNotSayIt)
{
  desk.place = 1;
  history.setNoChangeFunction(
      [](const CommandBase& command) { return command.getDescription() == "1>2"; });

  drag(2);
  EXPECT_EQ(view(history), "* |");
  drag(3);
  EXPECT_EQ(view(history), "* 2>3 |");
  drag(3);
  EXPECT_EQ(view(history), "* 2>3 |") << "this one says it itself";
}

TEST_F(CommandsWithoutChange, AreKeptWhenTheHostDoesNotWantToKnow)
{
  history.setNoChangeFunction([](const CommandBase&) { return true; });
  history.setDropsCommandsWithoutChange(false);

  drag(1);

  EXPECT_EQ(view(history), "* 0>1 |");
}

TEST_F(CommandsWithoutChange, AreKeptWhenTheHostThrows)
{
  history.setNoChangeFunction([](const CommandBase&) -> bool { throw std::bad_alloc(); });

  drag(1);

  EXPECT_EQ(view(history), "* 0>1 |");
}

TEST_F(CommandsWithoutChange, AreDroppedWhenTheyAreRedoneLater)
{
  history.setDropsCommandsWithoutChange(false);
  drag(1);
  drag(1);
  drag(2);
  history.jumpTo(1);
  history.setDropsCommandsWithoutChange(true);

  history.redo();

  EXPECT_EQ(view(history), "* 0>1 | 1>2");
}

TEST_F(CommandsWithoutChange, KeepTheCleanStateWhenTheyAreDroppedLater)
{
  history.setDropsCommandsWithoutChange(false);
  drag(1);
  drag(1);
  history.markClean();
  drag(2);
  history.setDropsCommandsWithoutChange(true);

  history.jumpTo(0);
  EXPECT_EQ(view(history), "| 0>1 * 1>2");
  history.redo();

  EXPECT_TRUE(history.isClean()) << "the states before and after the dropped command are the same";
}

TEST_F(CommandsWithoutChange, DoNotLeadAJumpAstray)
{
  history.setDropsCommandsWithoutChange(false);
  for (const int place : {1, 1, 2, 2, 3})
    drag(place);
  history.jumpTo(0);
  history.setDropsCommandsWithoutChange(true);

  history.jumpTo(4);

  EXPECT_EQ(view(history), "* 0>1 1>2 | 2>3");
  EXPECT_EQ(desk.place, 2);
}

TEST_F(CommandsWithoutChange, DoNotLeadTheReversalOfAJumpAstray)
{
  history.setDropsCommandsWithoutChange(false);
  drag(1, {.name = "a"});
  drag(1);
  drag(2);
  drag(2);
  drag(3);
  history.undo();
  history.setDropsCommandsWithoutChange(true);
  desk.failing = {"undo a"};

  EXPECT_EQ(failureOf([&] { history.jumpTo(0); }), "undo a");

  EXPECT_EQ(view(history), "* 0>1 1>2 | 2>3");
  EXPECT_EQ(desk.place, 2);
}

}
}
