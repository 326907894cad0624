// SPDX-License-Identifier: MIT
#include "CommandPattern/CommandHistory.h"
#include "CommandPattern/CommandTransaction.h"

#include "Platform/CommandPattern/HistoryTest.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik {
namespace {

/// Notes what the history shows while the command is destroyed: the last command that shares a host
/// destroys it, and the host may look at the history to update a menu.
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

/// Operates the history while it is destroyed, and notes whether the history refuses.
class ParthianCommand : public AppendCommand {
public:
  using Action = std::function<void()>;

  ParthianCommand(Document& document,
                  const std::string& name,
                  Action action,
                  std::vector<std::string>& answers)
      : AppendCommand(document, name), m_action(std::move(action)), m_answers(answers)
  {}
  ParthianCommand(const ParthianCommand&) = delete;
  ParthianCommand& operator=(const ParthianCommand&) = delete;
  ~ParthianCommand() override
  {
    try {
      m_action();
      m_answers.push_back(getDescription() + " allowed");
    } catch (const std::logic_error& error) {
      m_answers.emplace_back(error.what());
    }
  }

private:
  Action m_action;
  std::vector<std::string>& m_answers;
};

/// What a history does when the destructor of the command that it releases calls the history.
class ReleasingHistory : public HistoryTest {
protected:
  using Operation = std::function<void(CommandHistory&)>;

  /// A history "A P C |" of which P calls an operation when it is destroyed.
  std::unique_ptr<CommandHistory> historyWith(const Operation& operation)
  {
    auto result = std::make_unique<CommandHistory>();
    result->execute(append(document, "A"));
    result->execute(std::make_shared<ParthianCommand>(
        document, "P", [history = result.get(), operation] { operation(*history); }, answers));
    result->execute(append(document, "C"));
    return result;
  }

  const std::vector<Operation> operations = {
      [this](auto& subject) { subject.execute(append(document, "X")); },
      [this](auto& subject) { subject.keep(append(document, "X")); },
      [](auto& subject) { subject.undo(); },
      [](auto& subject) { subject.redo(); },
      [](auto& subject) { subject.jumpTo(0); },
      [](auto& subject) { subject.markClean(); },
      [](auto& subject) { subject.forgetCleanMark(); },
      [](auto& subject) { subject.setLimit(7); },
      [](auto& subject) { subject.setBudget(7); },
      [](auto& subject) { subject.releaseOldest(7); },
      [](auto& subject) { subject.releaseUndone(); },
      [](auto& subject) { subject.clear(); },
      [](auto& subject) { subject.reset(); },
      [](auto& subject) { CommandTransaction(subject).rollBack(); }};

  /// Lets every operation be called while `release` runs, and checks what is left.
  void expectRefusal(const Operation& release, const std::string& viewAfterwards)
  {
    for (const auto& operation : operations) {
      answers.clear();
      auto subject = historyWith(operation);
      release(*subject);
      EXPECT_EQ(view(*subject), viewAfterwards);
      ASSERT_EQ(answers.size(), 1U);
      EXPECT_TRUE(answers[0].ends_with(": called by a command that this history is releasing"))
          << answers[0];
    }
  }

  std::vector<std::string> answers;
};

TEST_F(ReleasingHistory, RefusesToBeOperatedWhileItIsCleared)
{
  expectRefusal([](auto& subject) { subject.clear(); }, "|");
  expectRefusal([](auto& subject) { subject.reset(); }, "* |");
}

TEST_F(ReleasingHistory, RefusesToBeOperatedWhileItIsTrimmed)
{
  expectRefusal([](auto& subject) { subject.setLimit(1); }, "C |");
  expectRefusal([](auto& subject) { subject.releaseOldest(2); }, "C |");
  expectRefusal(
      [this](auto& subject) {
        subject.setBudget(10);
        subject.execute(append(document, "D"), 11);
      },
      "D |");
}

TEST_F(ReleasingHistory, RefusesToBeOperatedWhileItIsCutOff)
{
  const auto cutOff = [this](auto& subject) {
    subject.jumpTo(1);
    subject.execute(append(document, "D"));
  };
  expectRefusal(cutOff, "* A D |");
  expectRefusal(
      [](auto& subject) {
        subject.jumpTo(1);
        subject.releaseUndone();
      },
      "* A |");
  expectRefusal(
      [this](auto& subject) {
        subject.jumpTo(1);
        CommandTransaction transaction(subject, "T");
        subject.execute(append(document, "D"));
        transaction.commit();
      },
      "* A T |");
}

TEST_F(ReleasingHistory, RefusesToBeOperatedWhileItIsDestroyed)
{
  for (const auto& operation : operations) {
    answers.clear();
    historyWith(operation).reset();
    ASSERT_EQ(answers.size(), 1U);
    EXPECT_TRUE(answers[0].ends_with("releasing")) << answers[0];
  }
}

TEST_F(ReleasingHistory, RefusesToBeOperatedWhileACommandThatCannotBeRedoneLeavesIt)
{
  execute("A!");
  history.execute(std::make_shared<ParthianCommand>(
      document, "P", [this] { history.clear(); }, answers));

  history.jumpTo(0);

  EXPECT_EQ(answers, std::vector<std::string>{"CommandHistory::clear: called by a command that "
                                              "this history is releasing"});
  EXPECT_EQ(view(history), "* |");
}

TEST_F(ReleasingHistory, RefusesToBeOperatedWhileATransactionIsRolledBack)
{
  {
    const CommandTransaction transaction(history);
    history.execute(std::make_shared<ParthianCommand>(
        document, "P", [this] { execute("X"); }, answers));
  }

  ASSERT_EQ(answers.size(), 1U);
  EXPECT_TRUE(answers[0].ends_with("releasing")) << answers[0];
  EXPECT_EQ(view(history), "* |");
}

TEST_F(ReleasingHistory, MayBeOperatedByACommandThatItDoesNotKeep)
{
  history.setLimit(0);

  history.execute(std::make_shared<ParthianCommand>(
      document, "P", [this] { history.setLimit(5); }, answers));

  EXPECT_EQ(answers.size(), 1U);
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

  EXPECT_EQ(seen, (std::vector<std::string>{"B: | A", "A: |"}));
}

}
}
