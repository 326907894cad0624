// SPDX-License-Identifier: MIT
#include "CommandPattern/CommandHistory.h"

#include "CommandPattern/FailureGuard.h"
#include "CommandPattern/HistoryEntry.h"
#include "CommandPattern/OpenTransaction.h"

#include <algorithm>
#include <exception>
#include <new>
#include <stdexcept>
#include <utility>

namespace Tarvik {

namespace {

/// Gives a variable another value until the end of the scope.
template <class T>
class TemporaryValue {
public:
  TemporaryValue(T& variable, T value) noexcept
      : m_variable(variable), m_before(std::exchange(variable, value))
  {}
  TemporaryValue(const TemporaryValue&) = delete;
  TemporaryValue& operator=(const TemporaryValue&) = delete;
  ~TemporaryValue() { m_variable = m_before; }

private:
  T& m_variable;
  T m_before;
};

using BusyScope = TemporaryValue<const char*>;

/// What a command answers; `otherwise` if it throws. For questions after the command has run, when
/// its change must not be lost.
template <class Question, class Answer>
Answer answerTo(Question question, Answer otherwise) noexcept
{
  try {
    return question();
  } catch (...) {
    return otherwise;
  }
}

std::size_t sumOf(std::size_t a, std::size_t b) noexcept
{
  ByteSum sum;
  sum.add(a);
  sum.add(b);
  return sum.value();
}

bool saysThatItChangedNothing(const CommandBase& command) noexcept
{
  const auto* const entry = dynamic_cast<const HistoryEntry*>(&command);
  return entry != nullptr && answerTo([&] { return entry->hasChangedNothing(); }, false);
}

}

const std::size_t CommandHistory::unlimited;

CommandHistory::CommandHistory(std::size_t limit) : m_limit(limit) {}

CommandHistory::~CommandHistory()
{
  for (const auto& open : m_transactions)
    while (open->commands().size() > 0)
      release(open->commands().takeBefore());
  m_entries.startHere();
  releaseFrom(0);
}

bool CommandHistory::execute(std::shared_ptr<CommandBase> command, std::optional<std::size_t> size)
{
  checkNotBusy("execute");
  if (!command)
    throw std::invalid_argument("CommandHistory::execute: the command is null");

  const auto execute = [&] {
    makeRoom(); // may fail: before the command's change
    const BusyScope running(m_busyWith, "running");
    command->execute();
  };
  retryWhenOutOfMemory(execute, [] { return true; });
  return add(std::move(command), size);
}

bool CommandHistory::keep(std::shared_ptr<CommandBase> command, std::optional<std::size_t> size)
{
  checkNotBusy("keep");
  if (!command)
    throw std::invalid_argument("CommandHistory::keep: the command is null");

  retryWhenOutOfMemory([this] { makeRoom(); }, [] { return true; });
  return add(std::move(command), size);
}

bool CommandHistory::undo()
{
  checkIdle("undo");
  if (!canUndo())
    return false;
  const auto state = m_entries.state();
  retryWhenOutOfMemory([this] { stepBack(); },
                       [&] { return m_entries.state() == state && canUndo(); });
  m_listeners.tell();
  return true;
}

bool CommandHistory::redo()
{
  checkIdle("redo");
  if (!canRedo())
    return false;
  const auto state = m_entries.state();
  retryWhenOutOfMemory([this] { stepForward(); },
                       [&] { return m_entries.state() == state && canRedo(); });
  m_listeners.tell();
  return true;
}

void CommandHistory::jumpTo(std::size_t position)
{
  checkIdle("jumpTo");
  if (position > m_entries.size())
    throw std::out_of_range("CommandHistory::jumpTo: there is no position " +
                            std::to_string(position) + "; the last one is " +
                            std::to_string(m_entries.size()));
  if (position == m_entries.position())
    return;

  const auto firstState = m_entries.firstState();
  const auto findAgain = [&] {
    const auto lost = m_entries.firstState() - firstState;
    const bool isThere =
        m_transactions.empty() && position >= lost && position - lost <= m_entries.size();
    position -= lost;
    return isThere;
  };
  retryWhenOutOfMemory([&] { walkTo(position); }, findAgain);
  m_listeners.tell();
}

bool CommandHistory::canUndo() const noexcept
{
  return m_entries.position() > 0 && m_transactions.empty();
}

bool CommandHistory::canRedo() const noexcept
{
  return m_entries.position() < m_entries.size() && m_transactions.empty();
}

std::string CommandHistory::undoDescription() const
{
  return canUndo() ? m_entries.before().getDescription() : std::string();
}

std::string CommandHistory::redoDescription() const
{
  return canRedo() ? m_entries.after().getDescription() : std::string();
}

std::span<const std::shared_ptr<CommandBase>> CommandHistory::entries() const noexcept
{
  return m_entries.commands();
}

std::size_t CommandHistory::position() const noexcept
{
  return m_entries.position();
}

void CommandHistory::markClean()
{
  checkIdle("markClean");
  if (isClean())
    return;
  m_entries.markClean();
  m_listeners.tell();
}

void CommandHistory::forgetCleanMark()
{
  checkNotBusy("forgetCleanMark");
  if (!m_entries.cleanPosition())
    return;
  m_entries.forgetCleanMark();
  m_listeners.tell();
}

bool CommandHistory::isClean() const noexcept
{
  return m_entries.isClean() &&
         std::all_of(m_transactions.begin(), m_transactions.end(),
                     [](const auto& open) { return open->commands().size() == 0; });
}

std::optional<std::size_t> CommandHistory::cleanPosition() const noexcept
{
  return m_entries.cleanPosition();
}

std::size_t CommandHistory::limit() const noexcept
{
  return m_limit;
}

void CommandHistory::setLimit(std::size_t limit)
{
  checkNotBusy("setLimit");
  if (limit == m_limit)
    return;
  m_limit = limit;
  trim();
  m_listeners.tell();
}

std::size_t CommandHistory::budget() const noexcept
{
  return m_budget;
}

void CommandHistory::setBudget(std::size_t bytes)
{
  checkNotBusy("setBudget");
  if (bytes == m_budget)
    return;
  m_budget = bytes;
  trim();
  m_listeners.tell();
}

std::size_t CommandHistory::sizeInBytes() const noexcept
{
  return m_entries.sizeInBytes();
}

void CommandHistory::setSizeFunction(SizeFunction function)
{
  checkNotBusy("setSizeFunction");
  m_sizeFunction = std::move(function);
}

bool CommandHistory::dropsCommandsWithoutChange() const noexcept
{
  return m_dropsCommandsWithoutChange;
}

void CommandHistory::setDropsCommandsWithoutChange(bool drops)
{
  checkNotBusy("setDropsCommandsWithoutChange");
  m_dropsCommandsWithoutChange = drops;
}

void CommandHistory::setNoChangeFunction(NoChangeFunction function)
{
  checkNotBusy("setNoChangeFunction");
  m_noChangeFunction = std::move(function);
}

void CommandHistory::setOutOfMemoryHandler(OutOfMemoryHandler handler)
{
  checkNotBusy("setOutOfMemoryHandler");
  if (m_isLettingGo)
    throw std::logic_error("CommandHistory::setOutOfMemoryHandler: called by the handler");
  m_outOfMemoryHandler = std::move(handler);
}

std::size_t CommandHistory::releaseOldest(std::size_t count)
{
  checkNotBusy("releaseOldest");
  std::size_t released = 0;
  for (; released < count && m_entries.position() > 1; ++released)
    release(m_entries.takeFirst());
  for (; released < count && m_entries.size() > m_entries.position() + 1; ++released)
    release(m_entries.takeLast());
  if (released > 0)
    m_listeners.tell();
  return released;
}

void CommandHistory::releaseUndone()
{
  checkNotBusy("releaseUndone");
  if (m_entries.position() == m_entries.size())
    return;
  releaseFrom(m_entries.position());
  m_listeners.tell();
}

void CommandHistory::clear()
{
  checkIdle("clear");
  const bool wasEmpty = m_entries.size() == 0;
  m_entries.startHere();
  releaseFrom(0);
  m_entries.freeMemory();
  if (!wasEmpty)
    m_listeners.tell();
}

void CommandHistory::reset()
{
  checkIdle("reset");
  const bool wasNew = m_entries.size() == 0 && isClean();
  m_entries.startHere();
  m_entries.markClean();
  releaseFrom(0);
  m_entries.freeMemory();
  if (!wasNew)
    m_listeners.tell();
}

CommandHistory::Subscription CommandHistory::subscribe(Listener listener)
{
  if (!listener)
    throw std::invalid_argument("CommandHistory::subscribe: the listener is empty");
  return m_listeners.subscribe([this, told = std::move(listener)] { told(*this); });
}

std::size_t CommandHistory::beginTransaction(std::string description)
{
  checkNotBusy("CommandTransaction");
  makeRoom();
  m_transactions.push_back(
      std::make_unique<OpenTransaction>(m_lastTransaction + 1, std::move(description)));
  return ++m_lastTransaction;
}

bool CommandHistory::commitTransaction(std::size_t number)
{
  const bool hasCommands = innermostTransaction("commit", number).commands().size() > 0;
  closeTransaction();
  if (m_transactions.empty())
    m_listeners.tell();
  return hasCommands;
}

void CommandHistory::rollBackTransaction(std::size_t number)
{
  auto& commands = innermostTransaction("rollBack", number).commands();
  FailureGuard guard([this] {
    closeTransaction();
    if (m_transactions.empty())
      m_listeners.tellQuietly();
  });
  while (commands.size() > 0) {
    {
      const BusyScope running(m_busyWith, "running");
      commands.before().undo();
    }
    release(commands.takeBefore());
  }
  guard.succeed();
  m_transactions.pop_back();
  if (m_transactions.empty())
    m_listeners.tell();
}

/// What the destructor of a transaction does. Must not be called by a command: that ends the
/// program.
void CommandHistory::abandonTransaction(std::size_t number) noexcept
{
  while (!m_transactions.empty() && m_transactions.back()->number() >= number) {
    checkNotBusy("~CommandTransaction");
    try {
      rollBackTransaction(m_transactions.back()->number());
    } catch (...) { // NOLINT(bugprone-empty-catch): what is not undone has become an entry
    }
  }
}

OpenTransaction& CommandHistory::innermostTransaction(const char* operation, std::size_t number)
{
  checkNotBusy(operation);
  if (!m_transactions.empty() && m_transactions.back()->number() == number)
    return *m_transactions.back();
  const bool isOpen = std::any_of(m_transactions.begin(), m_transactions.end(),
                                  [&](const auto& open) { return open->number() == number; });
  throw std::logic_error(
      std::string("CommandTransaction::") + operation +
      (isOpen ? ": an inner transaction is open" : ": the transaction has ended"));
}

/// Ends the innermost transaction. Its commands become one command: an entry, or one of the outer
/// transaction. There is room for it since the transaction began.
void CommandHistory::closeTransaction() noexcept
{
  const auto closed = std::move(m_transactions.back());
  m_transactions.pop_back();
  if (closed->commands().size() == 0)
    return;
  const std::size_t size = closed->commands().sizeInBytes();
  if (!m_transactions.empty()) {
    m_transactions.back()->commands().append(closed->asOneCommand(), size);
    return;
  }
  releaseFrom(m_entries.position());
  m_entries.append(closed->asOneCommand(), size);
  trim();
}

/// Runs the action. If that fails for want of memory, calls the host's handler and tries once more.
template <class Action, class Condition>
void CommandHistory::retryWhenOutOfMemory(Action action, Condition isStillPossible)
{
  std::exception_ptr failure;
  try {
    action();
    return;
  } catch (const std::bad_alloc&) { // it is not rethrown in here: see FailureGuard
    failure = std::current_exception();
  }
  if (!letGoOfMemory() || !isStillPossible())
    std::rethrow_exception(std::move(failure));
  action();
}

bool CommandHistory::letGoOfMemory()
{
  if (!m_outOfMemoryHandler || m_isLettingGo)
    return false;
  const TemporaryValue lettingGo(m_isLettingGo, true);
  return m_outOfMemoryHandler(*this);
}

/// Makes room for one more command.
void CommandHistory::makeRoom()
{
  if (m_transactions.empty())
    m_entries.makeRoom();
  else
    m_transactions.back()->makeRoom();
}

/// Keeps a command that has been executed. There must be room for it.
bool CommandHistory::add(std::shared_ptr<CommandBase> command, std::optional<std::size_t> size)
{
  if (isToBeDropped(*command))
    return false;
  const bool isEntry = m_transactions.empty();
  if (isEntry)
    releaseFrom(m_entries.position());
  auto& list = isEntry ? m_entries : m_transactions.back()->commands();
  if (!mergeIntoLast(list, *command, size)) {
    const std::size_t added = size ? *size : sizeOf(*command);
    list.append(std::move(command), added);
  }
  if (isEntry) {
    trim();
    m_listeners.tell();
  }
  return true;
}

/// Lets the last command of the list take over a later one, which has been executed.
bool CommandHistory::mergeIntoLast(EntryList& list,
                                   CommandBase& later,
                                   std::optional<std::size_t> size)
{
  if (list.position() == 0 || list.isClean() || &list.before() == &later)
    return false;
  auto* const last = dynamic_cast<HistoryEntry*>(&list.before());
  if (last == nullptr)
    return false;
  {
    const BusyScope running(m_busyWith, "running");
    if (!answerTo([&] { return last->mergeWith(later); }, false))
      return false;
    if (!answerTo([&] { return last->hasChangedNothing(); }, false)) {
      const std::size_t merged = sizeOf(list.before());
      list.setSizeBefore(merged > 0 ? merged : sumOf(list.sizeBefore(), size.value_or(0)));
      return true;
    }
  }
  release(list.takeBefore());
  return true;
}

/// The size that a command or the host tells; 0 if neither knows it.
std::size_t CommandHistory::sizeOf(const CommandBase& command) noexcept
{
  const BusyScope running(m_busyWith, "running");
  const auto* const entry = dynamic_cast<const HistoryEntry*>(&command);
  const std::size_t own =
      entry != nullptr ? answerTo([&] { return entry->sizeInBytes(); }, std::size_t(0)) : 0;
  if (own > 0 || !m_sizeFunction)
    return own;
  return answerTo([&] { return m_sizeFunction(command); }, std::size_t(0));
}

bool CommandHistory::isToBeDropped(const CommandBase& command) noexcept
{
  const BusyScope running(m_busyWith, "running");
  if (!m_dropsCommandsWithoutChange)
    return false;
  return saysThatItChangedNothing(command) ||
         (m_noChangeFunction && answerTo([&] { return m_noChangeFunction(command); }, false));
}

/// @return whether the entry is still there, to be redone
bool CommandHistory::stepBack()
{
  const BusyScope running(m_busyWith, "running");
  CommandBase& command = m_entries.before();
  const bool wasRedoCapable = command.isRedoCapable();
  command.undo();
  const bool isRedoCapable =
      wasRedoCapable && answerTo([&] { return command.isRedoCapable(); }, false);
  m_entries.moveBack();
  if (!isRedoCapable) {
    releaseFrom(m_entries.position());
    return false;
  }
  if (isToBeDropped(command)) {
    release(m_entries.takeAfter());
    return false;
  }
  return true;
}

/// @return whether the entry is still there, to be undone
bool CommandHistory::stepForward()
{
  const BusyScope running(m_busyWith, "running");
  CommandBase& command = m_entries.after();
  command.redo();
  m_entries.moveForward();
  if (!isToBeDropped(command))
    return true;
  release(m_entries.takeBefore());
  return false;
}

/// Goes to a position, or back to the present one when a command throws.
/// @param position  lowered when an entry before it is dropped
void CommandHistory::walkTo(std::size_t& position)
{
  const auto start = m_entries.position();
  const auto size = m_entries.size();
  auto wayBack = start;
  FailureGuard guard([&] {
    retrace(wayBack);
    if (m_entries.position() != start || m_entries.size() != size)
      m_listeners.tellQuietly();
  });
  while (m_entries.position() > position)
    if (!stepBack())
      --wayBack;
  while (m_entries.position() < position)
    if (!stepForward())
      --position;
  guard.succeed();
}

/// Goes back to a position while a command's exception is on its way. Stops where another command
/// throws or where an entry has been released.
void CommandHistory::retrace(std::size_t position) noexcept
{
  try {
    while (m_entries.position() > position)
      stepBack();
    while (m_entries.position() < std::min(position, m_entries.size()))
      if (!stepForward())
        --position;
  } catch (...) { // NOLINT(bugprone-empty-catch): the caller gets the first exception
  }
}

void CommandHistory::trim() noexcept
{
  while (m_entries.size() > m_limit || (m_entries.size() > 1 && m_entries.sizeInBytes() > m_budget))
    release(m_entries.position() > 0 ? m_entries.takeFirst() : m_entries.takeLast());
}

/// Releases the entries from a position on, the last one first.
void CommandHistory::releaseFrom(std::size_t position) noexcept
{
  while (m_entries.size() > position)
    release(m_entries.takeLast());
}

/// Gives up the share in a command. A destructor that operates the history is refused.
void CommandHistory::release(std::shared_ptr<CommandBase> command) noexcept
{
  const BusyScope releasing(m_busyWith, "releasing");
  command.reset();
}

void CommandHistory::checkNotBusy(const char* operation) const
{
  if (m_busyWith != nullptr)
    throw std::logic_error(std::string("CommandHistory::") + operation +
                           ": called by a command that this history is " + m_busyWith);
}

/// Refuses what must not happen within a transaction.
void CommandHistory::checkIdle(const char* operation) const
{
  checkNotBusy(operation);
  if (!m_transactions.empty())
    throw std::logic_error(std::string("CommandHistory::") + operation +
                           ": called while a transaction is open");
}

}
