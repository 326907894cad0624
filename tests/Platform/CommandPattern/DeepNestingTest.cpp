// SPDX-License-Identifier: MIT
// Exceptions that leave many nested commands, on the stack of a Windows program.
//
// With Visual C++ a handler keeps the stack that lies above it, up to where the exception was
// thrown, until it ends. So a handler per nested command that takes back and rethrows would exhaust
// the stack. Elsewhere that costs no stack; but everywhere it shows in that an exception is being
// handled while commands are reversed.

#include "CommandPattern/CommandHistory.h"
#include "CommandPattern/CommandTransaction.h"
#include "CommandPattern/MacroCommand.h"
#include "Platform/CommandPattern/DocumentCommands.h"
#include "Support/ThreadWithStack.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <exception>
#include <functional>
#include <list>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <utility>

namespace Tarvik {
namespace {

constexpr std::size_t stackOfAWindowsProgram = (hasSanitizer ? 8192 : 1024) * std::size_t{1024};
constexpr int depth = 250;

/// Appends its name, and expects that no exception is being handled when it is reversed.
class ReversedOutsideOfHandlers : public AppendCommand {
public:
  using AppendCommand::AppendCommand;

  void undo() override
  {
    EXPECT_EQ(std::current_exception(), nullptr);
    AppendCommand::undo();
  }

  void redo() override
  {
    EXPECT_EQ(std::current_exception(), nullptr);
    AppendCommand::redo();
  }
};

/// A command that executes others in a history of its own, whose listener expects that no exception
/// is being handled.
class CommandWithHistory : public CommandBase {
public:
  CommandWithHistory() : CommandBase("nested") {}

protected:
  CommandHistory m_history;

private:
  CommandHistory::Subscription m_subscription =
      m_history.subscribe([](const auto&) { EXPECT_EQ(std::current_exception(), nullptr); });
};

/// Executes three commands in its history, and jumps through it.
class JumpingCommand : public CommandWithHistory {
public:
  JumpingCommand(std::shared_ptr<CommandBase> first,
                 std::shared_ptr<CommandBase> nested,
                 std::shared_ptr<CommandBase> last)
      : m_commands{std::move(first), std::move(nested), std::move(last)}
  {}

  void execute() override
  {
    for (const auto& command : m_commands)
      m_history.execute(command);
  }
  void undo() override { m_history.jumpTo(0); }
  void redo() override { m_history.jumpTo(m_history.entries().size()); }

private:
  std::list<std::shared_ptr<CommandBase>> m_commands;
};

/// Executes a command in a transaction, which it rolls back on undo().
class RollingBackCommand : public CommandWithHistory {
public:
  explicit RollingBackCommand(std::shared_ptr<CommandBase> nested) : m_nested(std::move(nested)) {}

  void execute() override
  {
    m_transaction.emplace(m_history, "transaction");
    m_history.execute(m_nested);
  }
  void undo() override { m_transaction->rollBack(); }
  void redo() override { execute(); }

private:
  std::shared_ptr<CommandBase> m_nested;
  std::optional<CommandTransaction> m_transaction;
};

/// Executes a command in a history that asks a function for memory.
class CommandInNeed : public CommandWithHistory {
public:
  CommandInNeed(std::shared_ptr<CommandBase> nested, CommandHistory::OutOfMemoryHandler handler)
      : m_nested(std::move(nested))
  {
    m_history.setOutOfMemoryHandler(std::move(handler));
  }

  void execute() override { m_history.execute(m_nested); }
  void undo() override { m_history.undo(); }
  void redo() override { m_history.redo(); }

private:
  std::shared_ptr<CommandBase> m_nested;
};

/// Never has enough memory.
class GreedyCommand : public CommandBase {
public:
  GreedyCommand() : CommandBase("greedy") {}

  void execute() override { throw std::bad_alloc(); }
  void undo() override {}
  void redo() override {}
};

class DeepNesting : public ::testing::Test {
protected:
  using Wrap = std::function<std::shared_ptr<CommandBase>(std::shared_ptr<CommandBase>)>;

  static std::shared_ptr<CommandBase> nested(std::shared_ptr<CommandBase> innermost,
                                             const Wrap& wrap)
  {
    for (int i = 0; i < depth; ++i)
      innermost = wrap(std::move(innermost));
    return innermost;
  }

  std::shared_ptr<CommandBase> appendOutsideOfHandlers(const std::string& name)
  {
    return std::make_shared<ReversedOutsideOfHandlers>(document, name);
  }

  /// Executes, undoes and redoes the command. Each fails at the innermost command at first.
  void expectThatEachFailureChangesNothing(CommandBase& command)
  {
    for (const auto operation : {&CommandBase::execute, &CommandBase::undo, &CommandBase::redo}) {
      const auto before = document.text();
      document.failAt("execute X");
      document.failAt("undo X");
      document.failAt("redo X");
      EXPECT_THROW((command.*operation)(), Failure);
      EXPECT_EQ(document.text(), before);
      document.failNowhere();
      (command.*operation)();
    }
  }

  Document document;
};

TEST_F(DeepNesting, OfMacrosLetsAnExceptionOut)
{
  const auto macros = nested(append(document, "X"), [this](auto inner) {
    return std::make_shared<MacroCommand>(
        std::list{appendOutsideOfHandlers("A"), std::move(inner), appendOutsideOfHandlers("B")});
  });

  ThreadWithStack::run(stackOfAWindowsProgram,
                       [&] { expectThatEachFailureChangesNothing(*macros); });
}

TEST_F(DeepNesting, OfMacrosLetsAnExceptionOfTheirHooksOut)
{
  /// Fails when its last sub-command has been executed.
  class FailingAtItsEnd : public MacroCommand {
    using MacroCommand::MacroCommand;
    void finalizeExecute(std::shared_ptr<CommandBase>) override { throw Failure("finalize"); }
  };
  /// Runs another command as a part of its hook.
  class WithCommandInItsHook : public MacroCommand {
  public:
    WithCommandInItsHook(std::list<std::shared_ptr<CommandBase>> commands,
                         std::shared_ptr<CommandBase> inner)
        : MacroCommand(std::move(commands)), m_inner(std::move(inner))
    {}

  private:
    void finalizeExecute(std::shared_ptr<CommandBase>) override { m_inner->execute(); }
    std::shared_ptr<CommandBase> m_inner;
  };
  const auto macros =
      nested(std::make_shared<FailingAtItsEnd>(std::list{appendOutsideOfHandlers("X")}),
             [this](auto inner) {
               return std::make_shared<WithCommandInItsHook>(
                   std::list{appendOutsideOfHandlers("A")}, std::move(inner));
             });

  ThreadWithStack::run(stackOfAWindowsProgram, [&] { EXPECT_THROW(macros->execute(), Failure); });

  EXPECT_EQ(document.text(), "");
}

TEST_F(DeepNesting, OfJumpsLetsAnExceptionOut)
{
  const auto jumps = nested(append(document, "X"), [this](auto inner) {
    return std::make_shared<JumpingCommand>(appendOutsideOfHandlers("A"), std::move(inner),
                                            appendOutsideOfHandlers("B"));
  });
  jumps->execute();

  ThreadWithStack::run(stackOfAWindowsProgram, [&] {
    const auto before = document.text();
    document.failAt("undo X");
    EXPECT_THROW(jumps->undo(), Failure);
    EXPECT_EQ(document.text(), before);

    document.failNowhere();
    jumps->undo();
    document.failAt("redo X");
    EXPECT_THROW(jumps->redo(), Failure);
    EXPECT_EQ(document.text(), "");
  });
}

TEST_F(DeepNesting, OfTransactionsLetsAnExceptionOut)
{
  const auto transactions = nested(append(document, "X"), [](auto inner) {
    return std::make_shared<RollingBackCommand>(std::move(inner));
  });
  transactions->execute();
  document.failAt("undo X");

  ThreadWithStack::run(stackOfAWindowsProgram,
                       [&] { EXPECT_EQ(failureOf([&] { transactions->undo(); }), "undo X"); });

  EXPECT_EQ(document.text(), "X");
}

TEST_F(DeepNesting, OfHistoriesLetsTheWantOfMemoryOut)
{
  int asked = 0;
  const auto ask = [&](CommandHistory&) {
    EXPECT_EQ(std::current_exception(), nullptr);
    ++asked;
    return false;
  };
  const auto histories = nested(std::make_shared<GreedyCommand>(), [&](auto inner) {
    return std::make_shared<CommandInNeed>(std::move(inner), ask);
  });

  ThreadWithStack::run(stackOfAWindowsProgram,
                       [&] { EXPECT_THROW(histories->execute(), std::bad_alloc); });

  EXPECT_EQ(asked, depth);
}

}
}
