// SPDX-License-Identifier: MIT
#include "CommandPattern/CommandHistory.h"

#include "CommandPattern/MacroCommand.h"
#include "Platform/CommandPattern/HistoryTest.h"
#include "Support/Allocations.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <list>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

namespace Tarvik {
namespace {

class HistoryFailures : public HistoryTest {};

TEST_F(HistoryFailures, LeaveTheHistoryAsItWasWhenACommandDoesNotExecute)
{
  execute("A B C");
  history.markClean();
  history.jumpTo(1);
  const auto failing = append(document, "X");
  document.failAt("execute X");

  EXPECT_EQ(failureOf([&] { history.execute(failing); }), "execute X");

  EXPECT_EQ(view(history), "A | B C *");
  EXPECT_EQ(document.text(), "A");
  EXPECT_EQ(failing.use_count(), 1);
  history.jumpTo(3);
  EXPECT_EQ(document.text(), "A B C");
}

TEST_F(HistoryFailures, LeaveAFullHistoryAsItWasWhenACommandDoesNotExecute)
{
  history.setLimit(2);
  execute("A B");
  document.failAt("execute X");

  EXPECT_THROW(execute("X"), Failure);

  EXPECT_EQ(view(history), "* A B |");
}

TEST_F(HistoryFailures, LeaveTheHistoryAsItWasWhenACommandIsNotUndone)
{
  for (const auto* const name : {"B", "B!"}) {
    CommandHistory subject;
    subject.execute(append(document, "A"));
    subject.execute(append(document, name));
    subject.execute(append(document, "C"));
    subject.undo();
    document.failAt("undo " + std::string(name));

    EXPECT_EQ(failureOf([&] { subject.undo(); }), "undo " + std::string(name));

    EXPECT_EQ(view(subject), "* A " + std::string(name) + " | C");
    document.failNowhere();
    EXPECT_TRUE(subject.undo());
    subject.jumpTo(0);
  }
  EXPECT_EQ(document.text(), "");
}

TEST_F(HistoryFailures, LeaveTheHistoryAsItWasWhenACommandIsNotRedone)
{
  execute("A B C");
  history.jumpTo(1);
  document.failAt("redo B");

  EXPECT_EQ(failureOf([&] { history.redo(); }), "redo B");

  EXPECT_EQ(view(history), "* A | B C");
  document.failNowhere();
  history.jumpTo(3);
  EXPECT_EQ(document.text(), "A B C");
}

TEST_F(HistoryFailures, LeaveTheHistoryAsItWasAtEveryStepOfAJump)
{
  const std::string names = "A B C D E";
  execute(names);

  for (std::size_t from = 0; from <= 5; ++from)
    for (std::size_t to = 0; to <= 5; ++to)
      for (std::size_t step = std::min(from, to); step < std::max(from, to); ++step) {
        history.jumpTo(from);
        const auto viewBefore = view(history);
        const auto textBefore = document.text();
        const auto failing = (from < to ? "redo " : "undo ") + words(names)[step];
        document.failAt(failing);

        EXPECT_EQ(failureOf([&] { history.jumpTo(to); }), failing) << from << " to " << to;

        EXPECT_EQ(view(history), viewBefore) << failing << ", from " << from << " to " << to;
        EXPECT_EQ(document.text(), textBefore) << failing << ", from " << from << " to " << to;
        document.failNowhere();
      }
}

TEST_F(HistoryFailures, ReverseAJumpAsFarAsCommandsCanBeRedone)
{
  execute("A B C! D");
  document.failAt("undo A");

  EXPECT_EQ(failureOf([&] { history.jumpTo(0); }), "undo A");

  EXPECT_EQ(view(history), "* A B |");
  EXPECT_EQ(document.text(), "A B");
}

TEST_F(HistoryFailures, StopTheReversalOfAJumpWhereACommandFailsAgain)
{
  execute("A B C D");
  document.failAt("undo A");
  document.failAt("redo C");

  EXPECT_EQ(failureOf([&] { history.jumpTo(0); }), "undo A");

  EXPECT_EQ(view(history), "* A B | C D");
  EXPECT_EQ(document.text(), "A B");
}

TEST_F(HistoryFailures, CallListenersWhenAJumpIsNotWhollyReversed)
{
  execute("A B C!");
  std::vector<std::string> views;
  const auto subscription =
      history.subscribe([&](const CommandHistory& changed) { views.push_back(view(changed)); });
  document.failAt("undo A");

  EXPECT_THROW(history.jumpTo(0), Failure);

  EXPECT_EQ(views, std::vector<std::string>{"* A B |"});
}

TEST_F(HistoryFailures, OfCommandsAreSeenRatherThanThoseOfListeners)
{
  execute("A B C!");
  const auto subscription =
      history.subscribe([](const CommandHistory&) { throw std::runtime_error("of a listener"); });
  document.failAt("undo A");

  EXPECT_EQ(failureOf([&] { history.jumpTo(0); }), "undo A");

  EXPECT_EQ(view(history), "* A B |");
}

TEST_F(HistoryFailures, WithinAMacroLeaveHistoryAndDocumentAsTheyWere)
{
  execute("A");
  history.execute(std::make_shared<MacroCommand>(std::list<std::shared_ptr<CommandBase>>{
      append(document, "B"), append(document, "C"), append(document, "D")}));
  document.failAt("undo C");

  EXPECT_EQ(failureOf([&] { history.undo(); }), "undo C");

  EXPECT_EQ(view(history), "* A B |");
  EXPECT_EQ(document.text(), "A B C D");
}

TEST_F(HistoryFailures, OfAnyTypeLeaveTheHistoryUsable)
{
  class ThrowsANumber : public AppendCommand {
  public:
    using AppendCommand::AppendCommand;
    void execute() override { throw 42; }
  };
  class ThrowsWhenAsked : public AppendCommand {
  public:
    using AppendCommand::AppendCommand;
    bool isRedoCapable() override { throw 43; }
  };

  EXPECT_THROW(history.execute(std::make_shared<ThrowsANumber>(document, "N")), int);
  EXPECT_EQ(view(history), "* |");

  history.execute(std::make_shared<ThrowsWhenAsked>(document, "W"));
  EXPECT_THROW(history.undo(), int);
  EXPECT_EQ(view(history), "* W |");
  EXPECT_EQ(document.text(), "W");
  execute("A");
  EXPECT_EQ(view(history), "* W A |");
}

#if !defined(_MSC_VER) // allocations in DLLs cannot be counted there

/// Counts how often it is in effect, and takes no memory for it.
class CountingCommand : public CommandBase {
public:
  CountingCommand() : CommandBase("Counting") {}
  void execute() override { ++inEffect; }
  void undo() override { --inEffect; }
  void redo() override { ++inEffect; }

  int inEffect = 0;
};

TEST_F(HistoryFailures, OfAllocationsLeaveACommandKeptOrNotExecuted)
{
  for (std::size_t failing = 0, failures = 0;; ++failing) {
    Document freshDocument;
    CommandHistory subject;
    for (const auto* const name : {"A", "B"})
      subject.execute(append(freshDocument, name));
    subject.undo();
    std::vector<std::string> views;
    const auto subscription =
        subject.subscribe([&](const CommandHistory& changed) { views.push_back(view(changed)); });
    const auto added = append(freshDocument, "A name too long to be kept within the string");

    bool failed = false;
    {
      const AllocationWatch watch(failing);
      try {
        subject.execute(added);
      } catch (const std::bad_alloc&) {
        failed = true;
      }
    }

    if (subject.entries().back() == added) {
      EXPECT_EQ(view(subject), "* A " + added->getDescription() + " |") << "allocation " << failing;
      EXPECT_EQ(freshDocument.text(), "A " + added->getDescription()) << "allocation " << failing;
    } else {
      EXPECT_EQ(view(subject), "* A | B") << "allocation " << failing;
      EXPECT_EQ(freshDocument.text(), "A") << "allocation " << failing;
    }
    failures += failed ? 1 : 0;
    if (!failed) {
      EXPECT_EQ(subject.entries().back(), added);
      EXPECT_GT(failures, 3U)
          << "the allocations of history, command and listener were not reached";
      break;
    }
  }
}

TEST_F(HistoryFailures, OfAllocationsLeaveNoCommandExecutedButNotKept)
{
  int failures = 0;
  for (std::size_t kept = 0; kept < 40; ++kept) {
    CommandHistory subject;
    for (std::size_t i = 0; i < kept; ++i)
      subject.execute(std::make_shared<CountingCommand>());
    const auto added = std::make_shared<CountingCommand>();

    bool failed = false;
    {
      const AllocationWatch watch(0);
      try {
        subject.execute(added);
      } catch (const std::bad_alloc&) {
        failed = true;
      }
    }

    EXPECT_EQ(added->inEffect, failed ? 0 : 1) << "after " << kept << " commands";
    EXPECT_EQ(subject.entries().size(), failed ? kept : kept + 1);
    EXPECT_EQ(subject.position(), subject.entries().size());
    failures += failed ? 1 : 0;
  }
  EXPECT_GT(failures, 0) << "the history never needed memory";
}

TEST_F(HistoryFailures, OfAllocationsLeaveListenersUnsubscribed)
{
  for (std::size_t failing = 0, failures = 0;; ++failing) {
    CommandHistory subject;
    int told = 0;
    CommandHistory::Listener listener = [&](const CommandHistory&) { ++told; };
    CommandHistory::Subscription subscription;
    bool failed = false;
    {
      const AllocationWatch watch(failing);
      try {
        subscription = subject.subscribe(listener);
      } catch (const std::bad_alloc&) {
        failed = true;
      }
    }

    subject.execute(std::make_shared<CountingCommand>());

    EXPECT_EQ(told, failed ? 0 : 1) << "allocation " << failing;
    failures += failed ? 1 : 0;
    if (!failed) {
      EXPECT_GT(failures, 0U);
      break;
    }
  }
}

TEST_F(HistoryFailures, OfAllocationsDoNotReachUndoAndRedo)
{
  for (int i = 0; i < 3; ++i)
    history.execute(std::make_shared<CountingCommand>());

  const AllocationWatch watch;
  history.undo();
  history.redo();
  history.jumpTo(0);
  history.jumpTo(3);
  history.markClean();

  EXPECT_EQ(watch.count(), 0U);
}

TEST_F(HistoryFailures, OfAllocationsAreRareSinceTheHistoryGrowsInLeaps)
{
  const std::vector<std::shared_ptr<CommandBase>> commands(10'000,
                                                           std::make_shared<CountingCommand>());
  std::size_t allocations = 0;
  {
    const AllocationWatch watch;
    for (const auto& command : commands)
      history.execute(command);
    allocations = watch.count();
  }

  EXPECT_LE(allocations, 32U) << "for " << commands.size() << " commands";
}

#endif

}
}
