// SPDX-License-Identifier: MIT
#include "CommandPattern/MacroCommand.h"

#include "Platform/CommandPattern/MacroTest.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

namespace Tarvik {
namespace {

class Macro : public MacroTest {};

TEST_F(Macro, ExecutesItsCommandsInOrder)
{
  macro("A B C")->execute();

  EXPECT_EQ(document.takeCalls(), "execute A, execute B, execute C");
  EXPECT_EQ(document.text(), "A B C");
}

TEST_F(Macro, UndoesItsCommandsLatestFirst)
{
  const auto abc = macro("A B C");
  abc->execute();
  document.takeCalls();

  abc->undo();

  EXPECT_EQ(document.takeCalls(), "undo C, undo B, undo A");
  EXPECT_EQ(document.text(), "");
}

TEST_F(Macro, RedoesItsCommandsInOrder)
{
  const auto abc = macro("A B C");
  abc->execute();
  abc->undo();
  document.takeCalls();

  abc->redo();

  EXPECT_EQ(document.takeCalls(), "redo A, redo B, redo C");
  EXPECT_EQ(document.text(), "A B C");
}

TEST_F(Macro, GoesBackAndForthAnyNumberOfTimes)
{
  const auto abc = macro("A B C");
  abc->execute();

  for (int round = 0; round < 3; ++round) {
    abc->undo();
    EXPECT_EQ(document.text(), "");
    abc->redo();
    EXPECT_EQ(document.text(), "A B C");
  }
}

TEST_F(Macro, RefusesANullCommandAndSaysWhichOneItIs)
{
  const auto a = append(document, "A");

  const auto messageOf = [](SubCommands commands) -> std::string {
    try {
      const MacroCommand refused(std::move(commands));
    } catch (const std::invalid_argument& error) {
      return error.what();
    }
    return "accepted";
  };

  EXPECT_EQ(messageOf({nullptr}), "MacroCommand: sub-command 1 of 1 is null");
  EXPECT_EQ(messageOf({a, nullptr, a}), "MacroCommand: sub-command 2 of 3 is null");
  EXPECT_EQ(messageOf({a, a, nullptr, nullptr}), "MacroCommand: sub-command 3 of 4 is null");
  EXPECT_EQ(a.use_count(), 1) << "a refused macro keeps its sub-commands";
}

TEST_F(Macro, SharesItsCommandsWithTheCaller)
{
  const auto a = append(document, "A");
  {
    const MacroCommand macro({a});
    EXPECT_EQ(a.use_count(), 2);
  }
  EXPECT_EQ(a.use_count(), 1);
}

TEST_F(Macro, DoesNothingWhenItIsEmpty)
{
  HookedMacro empty(document, {});

  empty.execute();
  empty.undo();
  empty.redo();

  EXPECT_EQ(document.takeCalls(), "");
}

TEST_F(Macro, RunsMacrosWithinIt)
{
  MacroCommand outer({append(document, "A"), macro("B C"), append(document, "D")});

  outer.execute();
  EXPECT_EQ(document.text(), "A B C D");
  outer.undo();
  EXPECT_EQ(document.text(), "");
  outer.redo();

  EXPECT_EQ(document.takeCalls(), each("execute", "A B C D") + ", " + each("undo", "D C B A") +
                                      ", " + each("redo", "A B C D"));
}

TEST_F(Macro, RunsACommandAsOftenAsItIsGiven)
{
  const auto a = append(document, "A");
  MacroCommand twice({a, a});

  twice.execute();
  EXPECT_EQ(document.text(), "A A");
  twice.undo();

  EXPECT_EQ(document.text(), "");
}

}
}
