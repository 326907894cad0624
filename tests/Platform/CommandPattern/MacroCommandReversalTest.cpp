// SPDX-License-Identifier: MIT
#include "CommandPattern/MacroCommand.h"

#include "Platform/CommandPattern/MacroTest.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace Tarvik {
namespace {

/// How a macro reverses its commands when one fails, also where a reversal fails.
class ReversedMacro : public MacroTest {};

TEST_F(ReversedMacro, IsReversedWhenItHasRunAndALaterCommandFails)
{
  MacroCommand outer({macro("A B"), append(document, "C")});
  document.failAt("execute C");

  EXPECT_EQ(failureOf([&] { outer.execute(); }), "execute C");

  EXPECT_EQ(document.takeCalls(), "execute A, execute B, execute C failed, undo B, undo A");
}

TEST_F(ReversedMacro, ReversesTheRestOfAnExecutionWhereOneReversalFails)
{
  const auto subject = macro("A B C D");
  document.failAt("execute D");
  document.failAt("undo B");

  EXPECT_EQ(failureOf([&] { subject->execute(); }), "execute D");

  EXPECT_TRUE(document.takeCalls().ends_with("undo C, undo B failed, undo A"));
}

TEST_F(ReversedMacro, ReversesTheRestOfAnUndoWhereOneReversalFails)
{
  const auto subject = macro("A B C D");
  subject->execute();
  document.takeCalls();
  document.failAt("undo A");
  document.failAt("redo C");

  EXPECT_EQ(failureOf([&] { subject->undo(); }), "undo A");

  EXPECT_EQ(document.takeCalls(),
            "undo D, undo C, undo B, undo A failed, redo B, redo C failed, redo D");
}

TEST_F(ReversedMacro, ReversesTheRestOfARedoWhereOneReversalFails)
{
  const auto subject = macro("A B C D");
  subject->execute();
  subject->undo();
  document.takeCalls();
  document.failAt("redo D");
  document.failAt("undo B");

  EXPECT_EQ(failureOf([&] { subject->redo(); }), "redo D");

  EXPECT_TRUE(document.takeCalls().ends_with("undo C, undo B failed, undo A"));
}

TEST_F(ReversedMacro, ShowsTheHooksExceptionWhenTheUndoAfterItFails)
{
  HookedMacro subject(document, commands("A B"));
  document.failAt("finalize B");
  document.failAt("undo B");

  EXPECT_EQ(failureOf([&] { subject.execute(); }), "finalize B");

  EXPECT_TRUE(document.takeCalls().ends_with("finalize B failed, undo B failed, undo A"));
}

TEST_F(ReversedMacro, RedoesNoCommandThatIsNotRedoCapable)
{
  const auto subject = macro("A B! C");
  subject->execute();
  document.takeCalls();
  document.failAt("undo A");

  EXPECT_EQ(failureOf([&] { subject->undo(); }), "undo A");

  EXPECT_EQ(document.takeCalls(), "undo C, undo B!, undo A failed, redo C");
}

TEST_F(ReversedMacro, UndoesCommandsThatAreNotRedoCapableWhenAnExecutionFails)
{
  const auto subject = macro("A! B! C");
  document.failAt("execute C");

  EXPECT_EQ(failureOf([&] { subject->execute(); }), "execute C");

  EXPECT_EQ(document.text(), "");
}

TEST_F(ReversedMacro, PassesOnExceptionsOfAnyType)
{
  class ThrowsANumber : public AppendCommand {
  public:
    using AppendCommand::AppendCommand;
    void execute() override { throw 42; }
  };
  MacroCommand subject(
      {append(document, "A"), std::make_shared<ThrowsANumber>(document, "Thrower")});

  EXPECT_THROW(subject.execute(), int);

  EXPECT_EQ(document.takeCalls(), "execute A, undo A");
}

}
}
