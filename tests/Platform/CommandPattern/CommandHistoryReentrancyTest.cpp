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

/// A history while it runs a command that calls the history.
class RunningHistory : public HistoryTest {};

/// Calls an action from each of its operations, and counts how often it is refused.
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

TEST_F(RunningHistory, RefusesToBeOperatedByACommandThatItRuns)
{
  const std::vector<std::pair<std::string, std::function<void(CommandHistory&)>>> operations = {
      {"execute", [this](auto& subject) { subject.execute(append(document, "X")); }},
      {"undo", [](auto& subject) { subject.undo(); }},
      {"redo", [](auto& subject) { subject.redo(); }},
      {"jumpTo", [](auto& subject) { subject.jumpTo(0); }},
      {"markClean", [](auto& subject) { subject.markClean(); }},
      {"forgetCleanMark", [](auto& subject) { subject.forgetCleanMark(); }},
      {"setLimit", [](auto& subject) { subject.setLimit(1); }},
      {"setBudget", [](auto& subject) { subject.setBudget(1); }},
      {"setSizeFunction", [](auto& subject) { subject.setSizeFunction(nullptr); }},
      {"setOutOfMemoryHandler", [](auto& subject) { subject.setOutOfMemoryHandler(nullptr); }},
      {"setDropsCommandsWithoutChange",
       [](auto& subject) { subject.setDropsCommandsWithoutChange(true); }},
      {"setNoChangeFunction", [](auto& subject) { subject.setNoChangeFunction(nullptr); }},
      {"keep", [this](auto& subject) { subject.keep(append(document, "X")); }},
      {"releaseOldest", [](auto& subject) { subject.releaseOldest(1); }},
      {"releaseUndone", [](auto& subject) { subject.releaseUndone(); }},
      {"clear", [](auto& subject) { subject.clear(); }},
      {"reset", [](auto& subject) { subject.reset(); }},
      {"CommandTransaction", [](auto& subject) { CommandTransaction(subject).rollBack(); }}};

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

TEST_F(RunningHistory, SaysWhichOperationACommandMustNotCall)
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

TEST_F(RunningHistory, LetsARunningCommandLookAtIt)
{
  execute("A");
  std::vector<std::string> seen;

  history.execute(std::make_shared<MeddlingCommand>([&] { seen.push_back(view(history)); }));
  history.undo(); // asks before and after whether it can be redone

  EXPECT_EQ(seen, (std::vector<std::string>{"* A |", "* A M |", "* A M |", "* A M |"}));
}

TEST_F(RunningHistory, LetsARunningCommandOperateAnotherHistory)
{
  CommandHistory other;

  history.execute(std::make_shared<MeddlingCommand>([&] { other.execute(append(document, "A")); }));

  EXPECT_EQ(view(history), "* M |");
  EXPECT_EQ(view(other), "* A |");
}

TEST_F(RunningHistory, CanBeOperatedAgainAfterItRefusedACommand)
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
