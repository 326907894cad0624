// SPDX-License-Identifier: MIT
#include "CommandPattern/MacroCommand.h"

#include "CommandPattern/FailureGuard.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <utility>

namespace Tarvik {

namespace {

using Step = void (*)(CommandBase&);

void undoOne(CommandBase& command)
{
  command.undo();
}

void redoOne(CommandBase& command)
{
  command.redo();
}

void redoIfCapable(CommandBase& command)
{
  if (command.isRedoCapable())
    command.redo();
}

/// Reverses a command while another command's exception is on its way. Drops its own exceptions:
/// the caller gets the first one.
void reverseQuietly(Step reverse, CommandBase& command) noexcept
{
  try {
    reverse(command);
  } catch (...) { // NOLINT(bugprone-empty-catch): see above
  }
}

/// Runs `step` on each command of [first, last). When it throws, runs `reverse` on those that have
/// finished, latest first.
template <class Iterator, class Function>
void runAllOrNone(Iterator first, Iterator last, Function step, Step reverse)
{
  auto current = first;
  FailureGuard guard([&] {
    while (current != first)
      reverseQuietly(reverse, **--current);
  });
  for (; current != last; ++current)
    step(*current);
  guard.succeed();
}

}

MacroCommand::MacroCommand(std::list<std::shared_ptr<CommandBase>> commands,
                           std::string description)
    : CommandBase(std::move(description)), m_commands(std::move(commands))
{
  const auto null = std::find(m_commands.begin(), m_commands.end(), nullptr);
  if (null != m_commands.end())
    throw std::invalid_argument("MacroCommand: sub-command " +
                                std::to_string(std::distance(m_commands.begin(), null) + 1) +
                                " of " + std::to_string(m_commands.size()) + " is null");
}

MacroCommand::MacroCommand(MacroCommand&& other) noexcept
    : CommandBase(static_cast<CommandBase&&>(other))
{
  m_commands.swap(other.m_commands);
}

MacroCommand& MacroCommand::operator=(MacroCommand&& other) noexcept
{
  if (this != &other) {
    CommandBase::operator=(static_cast<CommandBase&&>(other));
    std::list<std::shared_ptr<CommandBase>> taken;
    taken.swap(other.m_commands);
    m_commands.swap(taken); // `taken` may hold the last share of `other`
  }
  return *this;
}

MacroCommand::~MacroCommand() = default;

void MacroCommand::execute()
{
  const auto executeOne = [this](const std::shared_ptr<CommandBase>& command) {
    prepareExecute(command);
    command->execute();
    FailureGuard guard([&] { reverseQuietly(undoOne, *command); });
    finalizeExecute(command);
    guard.succeed();
  };
  runAllOrNone(m_commands.begin(), m_commands.end(), executeOne, undoOne);
}

void MacroCommand::undo()
{
  const auto undoShared = [](const auto& command) { undoOne(*command); };
  runAllOrNone(m_commands.rbegin(), m_commands.rend(), undoShared, redoIfCapable);
}

void MacroCommand::redo()
{
  const auto redoShared = [](const auto& command) { redoOne(*command); };
  runAllOrNone(m_commands.begin(), m_commands.end(), redoShared, undoOne);
}

const std::string& MacroCommand::getDescription() const
{
  const std::string& own = CommandBase::getDescription();
  return own.empty() && !m_commands.empty() ? m_commands.front()->getDescription() : own;
}

LegacyProgress::Speed::Rate MacroCommand::getSpeedRate()
{
  auto longest = CommandBase::getSpeedRate();
  for (const auto& command : m_commands)
    longest = std::max(longest, command->getSpeedRate());
  return longest;
}

bool MacroCommand::isRedoCapable()
{
  return std::all_of(m_commands.begin(), m_commands.end(),
                     [](const auto& command) { return command->isRedoCapable(); });
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): an override may keep its share
void MacroCommand::prepareExecute(std::shared_ptr<CommandBase>) {}

// NOLINTNEXTLINE(performance-unnecessary-value-param): as above
void MacroCommand::finalizeExecute(std::shared_ptr<CommandBase>) {}

}
