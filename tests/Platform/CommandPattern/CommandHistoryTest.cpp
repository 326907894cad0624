// SPDX-License-Identifier: MIT
#include "CommandPattern/CommandHistory.h"

#include "CommandPattern/MacroCommand.h"
#include "Platform/CommandPattern/HistoryTest.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

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

TEST_F(History, LetsGoOfItsCommandsWhenItIsDestroyed)
{
  const auto a = append(document, "A");
  {
    CommandHistory shortLived;
    shortLived.execute(a);
  }
  EXPECT_EQ(a.use_count(), 1);
  EXPECT_EQ(document.text(), "A");
}

/// Notes what the history shows when the command is destroyed: hosts go with the last command that
/// shares them, and may have a menu to bring up to date.
class LookingBackCommand : public AppendCommand {
public:
  LookingBackCommand(Document& document,
                     const std::string& name,
                     const CommandHistory& history,
                     std::vector<std::string>& seen)
      : AppendCommand(document, name), m_history(history), m_seen(seen)
  {}
  LookingBackCommand(const LookingBackCommand&) = delete;
  LookingBackCommand& operator=(const LookingBackCommand&) = delete;
  ~LookingBackCommand() override { m_seen.push_back(getDescription() + ": " + view(m_history)); }

private:
  const CommandHistory& m_history;
  std::vector<std::string>& m_seen;
};

class HistoryThatIsLookedAt : public HistoryTest {
protected:
  void execute(const std::string& names)
  {
    for (const auto& name : words(names))
      watched.execute(std::make_shared<LookingBackCommand>(document, name, watched, seen));
  }

  std::vector<std::string> seen;
  CommandHistory watched;
};

TEST_F(HistoryThatIsLookedAt, IsInOrderWhileItIsCleared)
{
  execute("A B");

  watched.clear();

  EXPECT_EQ(seen, (std::vector<std::string>{"B: | A", "A: |"}));
}

TEST_F(HistoryThatIsLookedAt, IsInOrderWhileItIsCutOff)
{
  execute("A B C");
  watched.markClean();
  watched.jumpTo(1);

  execute("D");

  EXPECT_EQ(seen, (std::vector<std::string>{"C: A | B", "B: A |"}));
}

TEST_F(HistoryThatIsLookedAt, IsInOrderWhileItIsTrimmed)
{
  watched.setLimit(2);

  execute("A B C");
  watched.setLimit(1);

  EXPECT_EQ(seen, (std::vector<std::string>{"A: B C |", "B: C |"}));
}

TEST_F(HistoryThatIsLookedAt, IsInOrderWhenWhatCannotBeRedoneLeavesIt)
{
  execute("A B! C");

  watched.jumpTo(1);

  EXPECT_EQ(seen, (std::vector<std::string>{"C: * A | B!", "B!: * A |"}));
}

TEST(HistoryThatIsDestroyed, IsInOrderUntilAllCommandsAre)
{
  Document document;
  std::vector<std::string> seen;
  {
    CommandHistory history;
    for (const auto& name : {"A", "B"})
      history.execute(std::make_shared<LookingBackCommand>(document, name, history, seen));
  }

  EXPECT_EQ(seen, (std::vector<std::string>{"B: * | A", "A: * |"}));
}

TEST_F(History, JumpsFromEveryPositionToEveryOther)
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

TEST_F(History, DoesNotJumpBehindItsLastEntry)
{
  execute("A B");
  history.undo();
  document.takeCalls();

  for (const std::size_t position : {std::size_t(3), CommandHistory::unlimited})
    EXPECT_THROW(history.jumpTo(position), std::out_of_range) << position;

  EXPECT_EQ(document.takeCalls(), "");
  EXPECT_EQ(view(history), "* A | B");
}

TEST_F(History, TellsWhereItCannotJump)
{
  execute("A B");

  try {
    history.jumpTo(7);
    FAIL() << "jumped";
  } catch (const std::out_of_range& error) {
    EXPECT_STREQ(error.what(), "CommandHistory::jumpTo: there is no position 7; the last one is 2");
  }
}

TEST_F(History, CannotBeCopied)
{
  static_assert(!std::is_copy_constructible_v<CommandHistory>);
  static_assert(!std::is_copy_assignable_v<CommandHistory>);
  static_assert(!std::is_convertible_v<std::size_t, CommandHistory>);
}

// Commands that are not redo-capable

TEST_F(History, ForgetsACommandThatCannotBeRedoneOnceItIsUndone)
{
  execute("A B!");

  history.undo();

  EXPECT_EQ(document.text(), "A");
  EXPECT_EQ(view(history), "* A |");
}

TEST_F(History, ForgetsWhatStandsBehindACommandThatCannotBeRedone)
{
  execute("A B! C D");

  history.jumpTo(2);
  EXPECT_EQ(view(history), "* A B! | C D");
  history.undo();

  EXPECT_EQ(document.text(), "A");
  EXPECT_EQ(view(history), "* A |");
}

TEST_F(History, ForgetsCommandsThatCannotBeRedoneOnItsWayBack)
{
  execute("A B! C D! E");

  history.jumpTo(0);

  EXPECT_EQ(document.text(), "");
  EXPECT_EQ(view(history), "* | A");
}

TEST_F(History, AsksAMacroWhetherItCanBeRedone)
{
  history.execute(std::make_shared<MacroCommand>(
      std::list<std::shared_ptr<CommandBase>>{append(document, "A"), append(document, "B!")}));

  history.undo();

  EXPECT_EQ(view(history), "* |");
}

// The clean mark

TEST_F(History, IsCleanAtTheMarkOnly)
{
  execute("A B");
  EXPECT_FALSE(history.isClean());

  history.markClean();
  EXPECT_TRUE(history.isClean());
  EXPECT_EQ(view(history), "A B * |");

  history.undo();
  EXPECT_FALSE(history.isClean());
  history.undo();
  EXPECT_FALSE(history.isClean());
  history.jumpTo(2);
  EXPECT_TRUE(history.isClean());
  execute("C");
  EXPECT_FALSE(history.isClean());
  history.undo();
  EXPECT_TRUE(history.isClean());
}

TEST_F(History, HasOneCleanMark)
{
  execute("A B");
  history.markClean();
  history.undo();

  history.markClean();

  EXPECT_EQ(view(history), "A * | B");
}

TEST_F(History, LosesTheCleanMarkThatIsCutOff)
{
  execute("A B C");
  history.markClean();
  history.jumpTo(1);

  execute("D E");

  EXPECT_EQ(view(history), "A D E |");
  EXPECT_EQ(history.cleanPosition(), std::nullopt);
  EXPECT_FALSE(history.isClean()) << "the state behind three other commands was the clean one";
}

TEST_F(History, KeepsTheCleanMarkWhereABranchBegins)
{
  execute("A B C");
  history.jumpTo(1);
  history.markClean();

  execute("D");

  EXPECT_EQ(view(history), "A * D |");
}

TEST_F(History, LosesTheCleanMarkBehindACommandThatCannotBeRedone)
{
  execute("A B! C");
  history.markClean();

  history.jumpTo(1);

  EXPECT_EQ(view(history), "A |");
}

TEST_F(History, KeepsTheCleanMarkInFrontOfACommandThatCannotBeRedone)
{
  execute("A");
  history.markClean();
  execute("B! C");

  history.jumpTo(1);

  EXPECT_EQ(view(history), "A * |");
}

TEST_F(History, CanBeMarkedCleanAgainAfterTheMarkWasLost)
{
  execute("A");
  history.markClean();
  history.undo();
  execute("B");
  EXPECT_EQ(view(history), "B |");

  history.markClean();

  EXPECT_EQ(view(history), "B * |");
}

// The limit

TEST_F(History, ForgetsTheOldestCommandsBeyondItsLimit)
{
  history.setLimit(2);

  execute("A B C D");

  EXPECT_EQ(document.text(), "A B C D");
  EXPECT_EQ(view(history), "C D |");
}

TEST_F(History, TakesALimitFromItsStart)
{
  CommandHistory limited(2);

  for (const auto* const name : {"A", "B", "C"})
    limited.execute(append(document, name));

  EXPECT_EQ(limited.limit(), 2U);
  EXPECT_EQ(view(limited), "B C |");
}

TEST_F(History, LetsGoOfTheCommandsThatItForgets)
{
  const auto a = append(document, "A");
  history.execute(a);
  execute("B");

  history.setLimit(1);

  EXPECT_EQ(a.use_count(), 1);
}

TEST_F(History, ForgetsAtOnceWhenTheLimitIsLowered)
{
  execute("A B C D");

  history.setLimit(3);

  EXPECT_EQ(view(history), "B C D |");
}

TEST_F(History, KeepsMoreFromNowOnWhenTheLimitIsRaised)
{
  history.setLimit(1);
  execute("A B");

  history.setLimit(3);
  execute("C D");

  EXPECT_EQ(view(history), "B C D |");
}

TEST_F(History, ForgetsUndoneCommandsOnlyWhenAllOthersAreForgotten)
{
  execute("A B C D E");
  history.jumpTo(2);

  history.setLimit(4);
  EXPECT_EQ(view(history), "B | C D E");
  history.setLimit(3);
  EXPECT_EQ(view(history), "| C D E");
  history.setLimit(2);
  EXPECT_EQ(view(history), "| C D");
  history.setLimit(0);
  EXPECT_EQ(view(history), "|");
}

TEST_F(History, ForgetsTheOldestOfBothKindsInOneGo)
{
  execute("A B C D E");
  history.jumpTo(2);

  history.setLimit(1);

  EXPECT_EQ(view(history), "| C");
  history.redo();
  EXPECT_EQ(document.text(), "A B C");
}

TEST_F(History, KeepsNothingWithALimitOfZero)
{
  history.setLimit(0);

  execute("A B");

  EXPECT_EQ(document.text(), "A B");
  EXPECT_EQ(view(history), "|");
  EXPECT_FALSE(history.undo());
  EXPECT_FALSE(history.isClean());
}

TEST_F(History, CountsWhatCanBeRedoneAgainstItsLimitOnlyUntilItIsCutOff)
{
  history.setLimit(2);
  execute("A B");
  history.undo();

  execute("C");

  EXPECT_EQ(view(history), "* A C |");
}

TEST_F(History, LosesTheCleanMarkThatTheLimitPasses)
{
  history.setLimit(2);

  execute("A B");
  EXPECT_EQ(view(history), "* A B |");
  execute("C");

  EXPECT_EQ(view(history), "B C |");
}

TEST_F(History, KeepsTheCleanMarkAtItsStateWhenTheLimitMovesIt)
{
  execute("A B C");
  history.markClean();
  execute("D");

  history.setLimit(2);
  EXPECT_EQ(view(history), "C * D |");
  history.setLimit(1);
  EXPECT_EQ(view(history), "* D |");
  history.setLimit(0);
  EXPECT_EQ(view(history), "|");
}

TEST_F(History, StaysCleanWhenTheLimitTakesAllItsCommands)
{
  execute("A B");
  history.markClean();

  history.setLimit(0);

  EXPECT_EQ(view(history), "* |");
}

TEST_F(History, LosesTheCleanMarkBehindUndoneCommandsThatTheLimitTakes)
{
  execute("A B C");
  history.markClean();
  history.jumpTo(0);

  history.setLimit(2);

  EXPECT_EQ(view(history), "| A B");
}

// Clearing

TEST_F(History, ForgetsAllCommandsAndLeavesTheDocumentWhenCleared)
{
  const auto a = append(document, "A");
  history.execute(a);
  execute("B");
  history.undo();
  document.takeCalls();

  history.clear();

  EXPECT_EQ(document.takeCalls(), "");
  EXPECT_EQ(document.text(), "A");
  EXPECT_EQ(view(history), "|");
  EXPECT_EQ(a.use_count(), 1);
}

TEST_F(History, StaysCleanWhenClearedInItsCleanState)
{
  execute("A B");
  history.undo();
  history.markClean();

  history.clear();

  EXPECT_EQ(view(history), "* |");
}

TEST_F(History, LosesACleanMarkElsewhereWhenCleared)
{
  execute("A"); // the mark stays at position 0, which will be the position again

  history.clear();

  EXPECT_EQ(view(history), "|");
  EXPECT_FALSE(history.isClean());
}

TEST_F(History, StaysCleanWhenClearedWithoutCommands)
{
  history.clear();

  EXPECT_EQ(view(history), "* |");
}

TEST_F(History, KeepsItsLimitWhenCleared)
{
  history.setLimit(1);
  execute("A");

  history.clear();
  execute("B C");

  EXPECT_EQ(view(history), "C |");
}

// Commands that reach for the history that runs them

/// Calls an action from one of the three operations, and notes what it throws.
class MeddlingCommand : public CommandBase {
public:
  MeddlingCommand(std::function<void()> action) : CommandBase("M"), m_action(std::move(action)) {}

  void execute() override { meddle(); }
  void undo() override { meddle(); }
  void redo() override { meddle(); }
  bool isRedoCapable() override
  {
    meddle();
    return true;
  }

  int refused = 0;
  int allowed = 0;

private:
  void meddle()
  {
    try {
      m_action();
      ++allowed;
    } catch (const std::logic_error&) {
      ++refused;
    }
  }

  std::function<void()> m_action;
};

TEST_F(History, RefusesToBeOperatedByACommandThatItRuns)
{
  const std::vector<std::pair<std::string, std::function<void(CommandHistory&)>>> operations = {
      {"execute", [this](auto& subject) { subject.execute(append(document, "X")); }},
      {"undo", [](auto& subject) { subject.undo(); }},
      {"redo", [](auto& subject) { subject.redo(); }},
      {"jumpTo", [](auto& subject) { subject.jumpTo(0); }},
      {"markClean", [](auto& subject) { subject.markClean(); }},
      {"setLimit", [](auto& subject) { subject.setLimit(1); }},
      {"clear", [](auto& subject) { subject.clear(); }}};

  for (const auto& [name, operate] : operations) {
    CommandHistory subject;
    subject.execute(append(document, "A"));
    const auto meddling =
        std::make_shared<MeddlingCommand>([&, action = operate] { action(subject); });

    subject.execute(meddling);
    subject.undo();
    subject.redo();
    subject.jumpTo(1);
    subject.jumpTo(2);

    EXPECT_EQ(meddling->allowed, 0) << name;
    EXPECT_GE(meddling->refused, 5) << name;
    EXPECT_EQ(view(subject), "* A M |") << name;
    EXPECT_EQ(subject.limit(), CommandHistory::unlimited) << name;
  }
}

TEST_F(History, TellsWhichOperationACommandMustNotCall)
{
  history.execute(std::make_shared<MeddlingCommand>([this] {
    try {
      history.undo();
      ADD_FAILURE() << "allowed";
    } catch (const std::logic_error& error) {
      EXPECT_STREQ(error.what(),
                   "CommandHistory::undo: called by a command that this history is running");
    }
  }));
}

TEST_F(History, LetsARunningCommandLookAtIt)
{
  execute("A");
  std::vector<std::string> seen;

  history.execute(std::make_shared<MeddlingCommand>([&] { seen.push_back(view(history)); }));
  history.undo(); // asks whether it can be redone, too

  EXPECT_EQ(seen, (std::vector<std::string>{"* A |", "* A M |", "* A M |"}));
}

TEST_F(History, LetsARunningCommandOperateAnotherHistory)
{
  CommandHistory other;

  history.execute(std::make_shared<MeddlingCommand>([&] { other.execute(append(document, "A")); }));

  EXPECT_EQ(view(history), "* M |");
  EXPECT_EQ(view(other), "* A |");
}

TEST_F(History, CanBeOperatedAgainAfterItRefusedACommand)
{
  class Reckless : public AppendCommand {
  public:
    Reckless(Document& document, CommandHistory& history)
        : AppendCommand(document, "R"), m_history(history)
    {}
    void execute() override { m_history.undo(); }

  private:
    CommandHistory& m_history;
  };
  execute("A");

  EXPECT_THROW(history.execute(std::make_shared<Reckless>(document, history)), std::logic_error);
  EXPECT_EQ(view(history), "* A |");

  EXPECT_TRUE(history.undo());
  EXPECT_EQ(view(history), "* | A");
}

}
}
