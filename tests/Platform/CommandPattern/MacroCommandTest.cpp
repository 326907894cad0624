// SPDX-License-Identifier: MIT
#include "CommandPattern/MacroCommand.h"

#include "Platform/CommandPattern/DocumentCommands.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <list>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace Tarvik {
namespace {

using LegacyProgress::Speed::Rate;
using SubCommands = std::list<std::shared_ptr<CommandBase>>;

/// A macro that notes the calls of its hooks.
class HookedMacro : public MacroCommand {
public:
  HookedMacro(Document& document, SubCommands commands)
      : MacroCommand(std::move(commands)), m_document(document)
  {}

protected:
  void prepareExecute(std::shared_ptr<CommandBase> command) override
  {
    m_document.note("prepare " + command->getDescription());
  }

  void finalizeExecute(std::shared_ptr<CommandBase> command) override
  {
    m_document.note("finalize " + command->getDescription());
  }

private:
  Document& m_document;
};

class RatedCommand : public AppendCommand {
public:
  RatedCommand(Document& document, Rate rate) : AppendCommand(document, "Rated"), m_rate(rate) {}
  Rate getSpeedRate() override { return m_rate; }

private:
  Rate m_rate;
};

class Macro : public ::testing::Test {
protected:
  /// One sub-command for each name: `commands("A B C")`.
  SubCommands commands(const std::string& names)
  {
    SubCommands result;
    for (const auto& name : words(names))
      result.push_back(append(document, name));
    return result;
  }

  std::shared_ptr<MacroCommand> macro(const std::string& names)
  {
    return std::make_shared<MacroCommand>(commands(names));
  }

  std::shared_ptr<CommandBase> rated(Rate rate)
  {
    return std::make_shared<RatedCommand>(document, rate);
  }

  Document document;
};

/// "execute A, execute B" for `each("execute", "A B")`.
std::string each(const std::string& operation, const std::string& names)
{
  std::vector<std::string> calls;
  for (const auto& name : words(names))
    calls.push_back(std::string(operation).append(" ").append(name));
  return joined(calls, ", ");
}

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

TEST_F(Macro, CallsItsHooksAroundEveryCommandThatItExecutes)
{
  HookedMacro hooked(document, commands("A B"));

  hooked.execute();

  EXPECT_EQ(document.takeCalls(), "prepare A, execute A, finalize A, "
                                  "prepare B, execute B, finalize B");
}

TEST_F(Macro, CallsNoHookWhenItUndoesAndRedoes)
{
  HookedMacro hooked(document, commands("A B"));
  hooked.execute();
  document.takeCalls();

  hooked.undo();
  hooked.redo();

  EXPECT_EQ(document.takeCalls(), "undo B, undo A, redo A, redo B");
}

TEST_F(Macro, HandsTheVeryCommandToItsHooks)
{
  class Collector : public MacroCommand {
  public:
    using MacroCommand::MacroCommand;
    std::vector<const CommandBase*> seen;

  protected:
    void prepareExecute(std::shared_ptr<CommandBase> command) override
    {
      seen.push_back(command.get());
    }
    void finalizeExecute(std::shared_ptr<CommandBase> command) override
    {
      seen.push_back(command.get());
    }
  };
  const auto a = append(document, "A");
  const auto b = append(document, "B");
  Collector collector({a, b});

  collector.execute();

  EXPECT_EQ(collector.seen, (std::vector<const CommandBase*>{a.get(), a.get(), b.get(), b.get()}));
}

TEST_F(Macro, RefusesANullCommandAndTellsItsPlace)
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

TEST_F(Macro, HasTheDescriptionThatItIsGiven)
{
  EXPECT_EQ(MacroCommand(commands("A B"), "Both").getDescription(), "Both");
  EXPECT_EQ(MacroCommand({}, "None").getDescription(), "None");
}

TEST_F(Macro, HasItsFirstCommandsDescriptionWhenItIsGivenNone)
{
  EXPECT_EQ(macro("A B")->getDescription(), "A");
  EXPECT_EQ(MacroCommand({macro("C D"), append(document, "E")}).getDescription(), "C");
}

TEST_F(Macro, HasNoDescriptionWhenNobodyGivesOne)
{
  EXPECT_EQ(MacroCommand({}).getDescription(), "");
  EXPECT_EQ(MacroCommand({append(document, "")}).getDescription(), "");
  EXPECT_EQ(MacroCommand({std::make_shared<MacroCommand>(SubCommands{})}).getDescription(), "");
}

TEST_F(Macro, TakesAsLongAsItsLongestCommand)
{
  const auto instant = rated(Rate::Instant);
  const auto brief = rated(Rate::Short);
  const auto lengthy = rated(Rate::Long);

  EXPECT_EQ(MacroCommand({}).getSpeedRate(), Rate::Instant);
  EXPECT_EQ(MacroCommand({instant, instant}).getSpeedRate(), Rate::Instant);
  EXPECT_EQ(MacroCommand({instant, brief, instant}).getSpeedRate(), Rate::Short);
  EXPECT_EQ(MacroCommand({lengthy, brief}).getSpeedRate(), Rate::Long);
  EXPECT_EQ(MacroCommand({brief, lengthy}).getSpeedRate(), Rate::Long);
  EXPECT_EQ(MacroCommand({instant, std::make_shared<MacroCommand>(SubCommands{lengthy})}) //
                .getSpeedRate(),
            Rate::Long);
}

TEST_F(Macro, IsRedoCapableWhenAllItsCommandsAre)
{
  EXPECT_TRUE(MacroCommand({}).isRedoCapable());
  EXPECT_TRUE(macro("A B")->isRedoCapable());
  EXPECT_FALSE(macro("A! B")->isRedoCapable());
  EXPECT_FALSE(macro("A B!")->isRedoCapable());
  EXPECT_FALSE(MacroCommand({append(document, "A"), macro("B C!")}).isRedoCapable());
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

TEST_F(Macro, TakesItsCommandsAlongWhenMoved)
{
  MacroCommand source(commands("A B"), "Both");
  source.execute();

  MacroCommand target(std::move(source));
  source.undo(); // NOLINT: it is moved from, and does nothing

  EXPECT_EQ(document.text(), "A B");
  EXPECT_EQ(source.getDescription(), "");
  EXPECT_EQ(target.getDescription(), "Both");
  target.undo();
  EXPECT_EQ(document.text(), "");
}

TEST_F(Macro, LetsGoOfItsOwnCommandsWhenMoveAssigned)
{
  const auto old = append(document, "Old");
  MacroCommand target({old}, "Target");
  MacroCommand source(commands("A B"), "Both");

  auto& result = (target = std::move(source));

  EXPECT_EQ(&result, &target);
  EXPECT_EQ(old.use_count(), 1);
  EXPECT_EQ(target.getDescription(), "Both");
  EXPECT_EQ(source.getDescription(), ""); // NOLINT: it is moved from
  source.execute();
  target.execute();
  EXPECT_EQ(document.text(), "A B");
}

TEST_F(Macro, StaysWhatItIsWhenMovedToItself)
{
  MacroCommand both(commands("A B"), "Both");
  auto& alias = both;

  both = std::move(alias);
  both.execute();

  EXPECT_EQ(both.getDescription(), "Both");
  EXPECT_EQ(document.text(), "A B");
}

TEST_F(Macro, CanTakeThePlaceOfTheMacroThatHoldsIt)
{
  auto inner = macro("A B");
  auto& source = *inner;
  MacroCommand outer({std::move(inner), append(document, "C")}, "Outer");

  outer = std::move(source); // drops the last pointer to the source
  outer.execute();

  EXPECT_EQ(document.text(), "A B");
  EXPECT_EQ(outer.getDescription(), "A");
}

TEST_F(Macro, CanBeMovedWithoutFailureButNotCopied)
{
  static_assert(!std::is_copy_constructible_v<MacroCommand>);
  static_assert(!std::is_copy_assignable_v<MacroCommand>);
  static_assert(std::is_nothrow_move_constructible_v<MacroCommand>);
  static_assert(std::is_nothrow_move_assignable_v<MacroCommand>);
}

/// A macro of five commands, of which the one at `place` fails.
class FailingMacro : public Macro, public ::testing::WithParamInterface<int> {
protected:
  static std::string all() { return "A B C D E"; }
  static std::string failing() { return {static_cast<char>('A' + GetParam())}; }

  /// The names before the failing one.
  static std::string before()
  {
    return all().substr(0, static_cast<std::size_t>(std::max(0, 2 * GetParam() - 1)));
  }

  /// The names behind the failing one.
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

TEST_P(FailingMacro, IsTakenBackAsAWholeWithinAnotherMacro)
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

TEST_F(Macro, IsTakenBackWhenItHasRunAndACommandBehindItFails)
{
  MacroCommand outer({macro("A B"), append(document, "C")});
  document.failAt("execute C");

  EXPECT_EQ(failureOf([&] { outer.execute(); }), "execute C");

  EXPECT_EQ(document.takeCalls(), "execute A, execute B, execute C failed, undo B, undo A");
}

TEST_F(Macro, ReversesTheRestOfAnExecutionWhereOneReversalFails)
{
  const auto subject = macro("A B C D");
  document.failAt("execute D");
  document.failAt("undo B");

  EXPECT_EQ(failureOf([&] { subject->execute(); }), "execute D");

  EXPECT_TRUE(document.takeCalls().ends_with("undo C, undo B failed, undo A"));
}

TEST_F(Macro, ReversesTheRestOfAnUndoWhereOneReversalFails)
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

TEST_F(Macro, ReversesTheRestOfARedoWhereOneReversalFails)
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

TEST_F(Macro, ShowsTheHooksExceptionWhenTheUndoBehindItFails)
{
  HookedMacro subject(document, commands("A B"));
  document.failAt("finalize B");
  document.failAt("undo B");

  EXPECT_EQ(failureOf([&] { subject.execute(); }), "finalize B");

  EXPECT_TRUE(document.takeCalls().ends_with("finalize B failed, undo B failed, undo A"));
}

TEST_F(Macro, RedoesNoCommandThatIsNotRedoCapable)
{
  const auto subject = macro("A B! C");
  subject->execute();
  document.takeCalls();
  document.failAt("undo A");

  EXPECT_EQ(failureOf([&] { subject->undo(); }), "undo A");

  EXPECT_EQ(document.takeCalls(), "undo C, undo B!, undo A failed, redo C");
}

TEST_F(Macro, UndoesCommandsThatAreNotRedoCapableWhenAnExecutionFails)
{
  const auto subject = macro("A! B! C");
  document.failAt("execute C");

  EXPECT_EQ(failureOf([&] { subject->execute(); }), "execute C");

  EXPECT_EQ(document.text(), "");
}

TEST_F(Macro, LetsExceptionsOfAnyTypeThrough)
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
