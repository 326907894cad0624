// SPDX-License-Identifier: MIT
#include "CommandPattern/CommandHistory.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace Tarvik {

namespace {

/// Sets a flag until the end of the scope.
class FlagScope {
public:
  explicit FlagScope(bool& flag) noexcept : m_flag(flag) { flag = true; }
  FlagScope(const FlagScope&) = delete;
  FlagScope& operator=(const FlagScope&) = delete;
  ~FlagScope() { m_flag = false; }

private:
  bool& m_flag;
};

/// Releases the entries from a position on. Each is taken out of the list before it is destroyed:
/// its destructor may run code that looks at the history.
void releaseFrom(std::vector<std::shared_ptr<CommandBase>>& entries, std::size_t position) noexcept
{
  while (entries.size() > position) {
    const auto released = std::move(entries.back());
    entries.pop_back();
  }
}

}

const std::size_t CommandHistory::unlimited;

CommandHistory::CommandHistory(std::size_t limit) : m_limit(limit) {}

CommandHistory::~CommandHistory()
{
  m_position = 0;
  eraseAfter(0);
}

void CommandHistory::execute(std::shared_ptr<CommandBase> command)
{
  checkNotRunning("execute");
  if (!command)
    throw std::invalid_argument("CommandHistory::execute: the command is null");

  if (m_entries.capacity() == m_position) // allocation may fail: before the command's change
    m_entries.reserve(2 * m_position + 1);
  {
    const FlagScope running(m_isRunning);
    command->execute();
  }
  eraseAfter(m_position);
  m_entries.push_back(std::move(command));
  ++m_position;
  trimToLimit();
  m_listeners.tell();
}

bool CommandHistory::undo()
{
  checkNotRunning("undo");
  if (!canUndo())
    return false;
  stepBack();
  m_listeners.tell();
  return true;
}

bool CommandHistory::redo()
{
  checkNotRunning("redo");
  if (!canRedo())
    return false;
  stepForward();
  m_listeners.tell();
  return true;
}

void CommandHistory::jumpTo(std::size_t position)
{
  checkNotRunning("jumpTo");
  if (position > m_entries.size())
    throw std::out_of_range("CommandHistory::jumpTo: there is no position " +
                            std::to_string(position) + "; the last one is " +
                            std::to_string(m_entries.size()));
  const auto start = m_position;
  const auto entriesAtStart = m_entries.size();
  if (position == start)
    return;
  try {
    while (m_position > position)
      stepBack();
    while (m_position < position)
      stepForward();
  } catch (...) {
    retrace(start);
    if (m_position != start || m_entries.size() != entriesAtStart)
      m_listeners.tellQuietly();
    throw;
  }
  m_listeners.tell();
}

bool CommandHistory::canUndo() const noexcept
{
  return m_position > 0;
}

bool CommandHistory::canRedo() const noexcept
{
  return m_position < m_entries.size();
}

std::string CommandHistory::undoDescription() const
{
  return canUndo() ? m_entries[m_position - 1]->getDescription() : std::string();
}

std::string CommandHistory::redoDescription() const
{
  return canRedo() ? m_entries[m_position]->getDescription() : std::string();
}

const std::vector<std::shared_ptr<CommandBase>>& CommandHistory::entries() const noexcept
{
  return m_entries;
}

std::size_t CommandHistory::position() const noexcept
{
  return m_position;
}

void CommandHistory::markClean()
{
  checkNotRunning("markClean");
  if (isClean())
    return;
  m_cleanPosition = m_position;
  m_listeners.tell();
}

bool CommandHistory::isClean() const noexcept
{
  return m_cleanPosition == m_position;
}

std::optional<std::size_t> CommandHistory::cleanPosition() const noexcept
{
  return m_cleanPosition;
}

std::size_t CommandHistory::limit() const noexcept
{
  return m_limit;
}

void CommandHistory::setLimit(std::size_t limit)
{
  checkNotRunning("setLimit");
  if (limit == m_limit)
    return;
  m_limit = limit;
  trimToLimit();
  m_listeners.tell();
}

void CommandHistory::clear()
{
  checkNotRunning("clear");
  if (m_entries.empty())
    return;
  m_cleanPosition = isClean() ? std::optional<std::size_t>(0) : std::nullopt;
  m_position = 0;
  eraseAfter(0);
  m_listeners.tell();
}

CommandHistory::Subscription CommandHistory::subscribe(Listener listener)
{
  if (!listener)
    throw std::invalid_argument("CommandHistory::subscribe: the listener is empty");
  return m_listeners.subscribe([this, told = std::move(listener)] { told(*this); });
}

void CommandHistory::stepBack()
{
  const FlagScope running(m_isRunning);
  CommandBase& command = *m_entries[m_position - 1];
  const bool redoCapable = command.isRedoCapable();
  command.undo();
  --m_position;
  if (!redoCapable)
    eraseAfter(m_position);
}

void CommandHistory::stepForward()
{
  const FlagScope running(m_isRunning);
  m_entries[m_position]->redo();
  ++m_position;
}

/// Goes back to a position while a command's exception is handled. Stops where another command
/// throws or where an entry has been released.
void CommandHistory::retrace(std::size_t position) noexcept
{
  try {
    while (m_position > position)
      stepBack();
    while (m_position < std::min(position, m_entries.size()))
      stepForward();
  } catch (...) { // NOLINT(bugprone-empty-catch): the caller gets the first exception
  }
}

void CommandHistory::trimToLimit() noexcept
{
  if (m_entries.size() <= m_limit)
    return;
  const auto oldest = std::min(m_position, m_entries.size() - m_limit);
  std::rotate(m_entries.begin(), m_entries.begin() + static_cast<std::ptrdiff_t>(oldest),
              m_entries.end());
  m_position -= oldest;
  if (m_cleanPosition && *m_cleanPosition < oldest)
    m_cleanPosition.reset();
  else if (m_cleanPosition)
    *m_cleanPosition -= oldest;
  releaseFrom(m_entries, m_entries.size() - oldest);
  if (m_entries.size() > m_limit)
    eraseAfter(m_limit);
}

void CommandHistory::eraseAfter(std::size_t position) noexcept
{
  if (m_cleanPosition && *m_cleanPosition > position)
    m_cleanPosition.reset();
  releaseFrom(m_entries, position);
}

void CommandHistory::checkNotRunning(const char* operation) const
{
  if (m_isRunning)
    throw std::logic_error(std::string("CommandHistory::") + operation +
                           ": called by a command that this history is running");
}

}
