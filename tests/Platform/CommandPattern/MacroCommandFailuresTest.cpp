// SPDX-License-Identifier: MIT
#include "CommandPattern/MacroCommand.h"

#include "Platform/CommandPattern/MacroTest.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string>
#include <vector>

namespace Tarvik {
namespace {

/// A macro of five commands, of which the one at `place` fails.
class FailingMacro : public MacroTest, public ::testing::WithParamInterface<int> {
protected:
  static std::string all() { return "A B C D E"; }
  static std::string failing() { return {static_cast<char>('A' + GetParam())}; }

  /// The names before the failing one.
  static std::string before()
  {
    return all().substr(0, static_cast<std::size_t>(std::max(0, 2 * GetParam() - 1)));
  }

  /// The names after the failing one.
  static std::string after()
  {
    return all().substr(std::min<std::size_t>(9, static_cast<std::size_t>(2 * GetParam() + 2)));
  }

  static std::string backwards(const std::string& names) { return {names.rbegin(), names.rend()}; }

  /// The calls, leaving out those that are none.
  static std::string sequence(const std::vector<std::string>& calls)
  {
    std::vector<std::string> some;
    std::copy_if(calls.begin(), calls.end(), std::back_inserter(some),
                 [](const auto& call) { return !call.empty(); });
    return joined(some, ", ");
  }
};

INSTANTIATE_TEST_SUITE_P(AtEveryPlace, FailingMacro, ::testing::Range(0, 5));

TEST_P(FailingMacro, LeavesNothingOfAnExecutionThatFails)
{
  const auto subject = macro(all());
  document.failAt("execute " + failing());

  EXPECT_EQ(failureOf([&] { subject->execute(); }), "execute " + failing());

  EXPECT_EQ(document.takeCalls(),
            sequence({each("execute", before()), "execute " + failing() + " failed",
                      each("undo", backwards(before()))}));
  EXPECT_EQ(document.text(), "");
}

TEST_P(FailingMacro, LeavesNothingOfAnExecutionWhosePreparationFails)
{
  HookedMacro subject(document, commands(all()));
  document.failAt("prepare " + failing());

  EXPECT_EQ(failureOf([&] { subject.execute(); }), "prepare " + failing());

  EXPECT_EQ(document.text(), "");
  const auto calls = document.takeCalls();
  EXPECT_EQ(calls.find("execute " + failing()), std::string::npos) << calls;
  EXPECT_EQ(calls.find("undo " + failing()), std::string::npos) << calls;
}

TEST_P(FailingMacro, LeavesNothingOfAnExecutionWhoseFinalizationFails)
{
  HookedMacro subject(document, commands(all()));
  document.failAt("finalize " + failing());

  EXPECT_EQ(failureOf([&] { subject.execute(); }), "finalize " + failing());

  EXPECT_EQ(document.text(), "");
  const auto calls = document.takeCalls();
  EXPECT_TRUE(calls.ends_with(sequence({"finalize " + failing() + " failed", "undo " + failing(),
                                        each("undo", backwards(before()))})))
      << calls;
}

TEST_P(FailingMacro, LeavesAllInEffectWhenItsUndoFails)
{
  const auto subject = macro(all());
  subject->execute();
  document.takeCalls();
  document.failAt("undo " + failing());

  EXPECT_EQ(failureOf([&] { subject->undo(); }), "undo " + failing());

  EXPECT_EQ(document.takeCalls(),
            sequence({each("undo", backwards(after())), "undo " + failing() + " failed",
                      each("redo", after())}));
  EXPECT_EQ(document.text(), all());
}

TEST_P(FailingMacro, LeavesNothingInEffectWhenItsRedoFails)
{
  const auto subject = macro(all());
  subject->execute();
  subject->undo();
  document.takeCalls();
  document.failAt("redo " + failing());

  EXPECT_EQ(failureOf([&] { subject->redo(); }), "redo " + failing());

  EXPECT_EQ(document.takeCalls(), sequence({each("redo", before()), "redo " + failing() + " failed",
                                            each("undo", backwards(before()))}));
  EXPECT_EQ(document.text(), "");
}

TEST_P(FailingMacro, CanBeRunAgainOnceNothingFails)
{
  const auto subject = macro(all());

  document.failAt("execute " + failing());
  EXPECT_THROW(subject->execute(), Failure);
  document.failNowhere();
  subject->execute();
  document.failAt("undo " + failing());
  EXPECT_THROW(subject->undo(), Failure);
  document.failNowhere();
  subject->undo();
  document.failAt("redo " + failing());
  EXPECT_THROW(subject->redo(), Failure);
  document.failNowhere();
  subject->redo();

  EXPECT_EQ(document.text(), all());
}

TEST_P(FailingMacro, IsReversedAsAWholeWithinAnotherMacro)
{
  MacroCommand outer({append(document, "X"), macro(all()), append(document, "Y")});

  for (const auto* const operation : {"execute", "undo", "redo"}) {
    const std::string before = document.text();
    document.failAt(operation + (" " + failing()));
    const auto run = [&] {
      if (operation == std::string("execute"))
        outer.execute();
      else if (operation == std::string("undo"))
        outer.undo();
      else
        outer.redo();
    };

    EXPECT_EQ(failureOf(run), operation + (" " + failing()));
    EXPECT_EQ(document.text(), before) << operation;

    document.failNowhere();
    run();
  }
  EXPECT_EQ(document.text(), "X " + all() + " Y");
}

}
}
