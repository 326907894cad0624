// SPDX-License-Identifier: MIT
#include "QtModels/History/History.h"

#include "CommandPattern/CommandTransaction.h"
#include "QtModels/History/Descriptions.h"
#include "QtModels/History/HistoryAction.h"
#include "QtModels/History/HistoryGroup.h"
#include "QtModels/Support/CurrentException.h"
#include "QtModels/Translation/LanguageWatcher.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace Tarvik {

namespace {

int toInt(std::size_t number)
{
  constexpr auto greatest = std::numeric_limits<int>::max();
  return number < std::size_t(greatest) ? static_cast<int>(number) : greatest;
}

/// Sets the value that was told last.
/// @return whether it was another one
template <class Value>
bool isNew(Value& told, Value now)
{
  return std::exchange(told, now) != now;
}

}

History::History(QObject* parent) : History(std::make_unique<CommandHistory>(), nullptr, parent) {}

History::History(CommandHistory& commands, QObject* parent) : History(nullptr, &commands, parent) {}

History::History(std::unique_ptr<CommandHistory> own, CommandHistory* commands, QObject* parent)
    : QObject(parent),
      m_own(std::move(own)),
      m_commands(m_own ? m_own.get() : commands),
      m_shape(shape()),
      m_told{canUndo(), canRedo(), isClean(), undoText(), redoText()},
      m_subscription(m_commands->subscribe([this](const CommandHistory&) { follow(); }))
{
  if (auto* const language = LanguageWatcher::instance())
    connect(language, &LanguageWatcher::languageChanged, this, &History::tellWhatIsNew);
}

History::~History()
{
  m_subscription.cancel();
  if (m_group != nullptr)
    m_group->removeHistory(this);
}

CommandHistory& History::commands() const
{
  return *m_commands;
}

/// Runs the action. If it throws, sends failed() with a message that begins as given.
/// @return whether it has not thrown
template <class Action>
bool History::attempt(const QString& messageStart, Action action)
{
  QString message;
  try {
    action();
    return true;
  } catch (...) {
    message = QStringLiteral("%1: %2").arg(messageStart, messageOfCurrentException());
  }
  Q_EMIT failed(message);
  return false;
}

bool History::push(std::shared_ptr<CommandBase> command)
{
  const auto text = command ? descriptionOf(*command) : QString();
  bool isKept = false;
  attempt(text.isEmpty() ? tr("An error occurred") : tr("An error occurred in \"%1\"").arg(text),
          [&] { isKept = m_commands->execute(std::move(command)); });
  return isKept;
}

void History::beginMacro(const QString& text)
{
  attempt(tr("An error occurred before \"%1\"").arg(text), [&] {
    m_macros.reserve(m_macros.size() + 1);
    m_macros.push_back(std::make_unique<CommandTransaction>(*m_commands, text.toStdString()));
  });
  tellWhatIsNew();
}

void History::endMacro()
{
  if (m_macros.empty())
    return;
  auto macro = std::move(m_macros.back());
  m_macros.pop_back();
  attempt(tr("An error occurred at the end of several steps"), [&] { macro->commit(); });
  macro.reset(); // if that has failed, it rolls back
  tellWhatIsNew();
}

void History::rollBackMacro()
{
  if (m_macros.empty())
    return;
  auto macro = std::move(m_macros.back());
  m_macros.pop_back();
  attempt(tr("An error occurred while several steps were undone"), [&] { macro->rollBack(); });
  macro.reset(); // if an inner transaction is open, this ends both
  tellWhatIsNew();
}

int History::count() const
{
  return toInt(m_commands->entries().size());
}

int History::index() const
{
  return toInt(m_commands->position());
}

int History::cleanIndex() const
{
  const auto position = m_commands->cleanPosition();
  return position ? toInt(*position) : -1;
}

QString History::text(int index) const
{
  return index >= 0 && index < count()
             ? descriptionOf(*m_commands->entries()[static_cast<std::size_t>(index)])
             : QString();
}

bool History::isClean() const
{
  return m_commands->isClean();
}

bool History::canUndo() const
{
  return m_commands->canUndo();
}

bool History::canRedo() const
{
  return m_commands->canRedo();
}

QString History::undoText() const
{
  return canUndo() ? text(index() - 1) : QString();
}

QString History::redoText() const
{
  return canRedo() ? text(index()) : QString();
}

QAction* History::createUndoAction(QObject* parent, const QString& prefix)
{
  return makeUndoAction(*this, prefix, parent);
}

QAction* History::createRedoAction(QObject* parent, const QString& prefix)
{
  return makeRedoAction(*this, prefix, parent);
}

int History::undoLimit() const
{
  return m_commands->limit() == CommandHistory::unlimited ? 0 : toInt(m_commands->limit());
}

void History::setUndoLimit(int limit)
{
  attempt(tr("The number of steps cannot be limited"), [&] {
    m_commands->setLimit(limit > 0 ? static_cast<std::size_t>(limit) : CommandHistory::unlimited);
  });
}

qint64 History::budget() const
{
  constexpr auto greatest = std::numeric_limits<qint64>::max();
  const auto budget = m_commands->budget();
  if (budget == CommandHistory::unlimited)
    return 0;
  return budget < static_cast<quint64>(greatest) ? static_cast<qint64>(budget) : greatest;
}

void History::setBudget(qint64 bytes)
{
  attempt(tr("The memory of the steps cannot be limited"), [&] {
    m_commands->setBudget(bytes > 0 ? static_cast<std::size_t>(bytes) : CommandHistory::unlimited);
  });
}

bool History::isActive() const
{
  return m_group == nullptr || m_group->activeHistory() == this;
}

void History::undo()
{
  attempt(tr("An error occurred while \"%1\" was undone").arg(undoText()),
          [this] { m_commands->undo(); });
}

void History::redo()
{
  attempt(tr("An error occurred while \"%1\" was redone").arg(redoText()),
          [this] { m_commands->redo(); });
}

void History::setIndex(int index)
{
  attempt(tr("An error occurred while several steps were undone or redone"),
          [&] { m_commands->jumpTo(static_cast<std::size_t>(std::clamp(index, 0, count()))); });
}

void History::setClean()
{
  attempt(tr("The state cannot be marked as saved"), [this] { m_commands->markClean(); });
}

void History::resetClean()
{
  attempt(tr("The mark of the saved state cannot be removed"),
          [this] { m_commands->forgetCleanMark(); });
}

void History::clear()
{
  attempt(tr("The steps cannot be forgotten"), [this] { m_commands->reset(); });
}

void History::setActive(bool active)
{
  if (m_group != nullptr && active != isActive())
    m_group->setActiveHistory(active ? this : nullptr);
}

History::Shape History::shape() const
{
  const auto entries = m_commands->entries();
  const auto position = m_commands->position();
  return {entries.size(),
          position,
          position > 0 ? entries[position - 1].get() : nullptr,
          m_commands->cleanPosition(),
          m_commands->limit(),
          m_commands->budget()};
}

void History::follow()
{
  const auto before = std::exchange(m_shape, shape());
  const auto& now = m_shape;
  const bool isSameEntry =
      now.count == before.count && now.position == before.position && now.last == before.last;
  const bool isAboutMarks = now.cleanPosition != before.cleanPosition ||
                            now.limit != before.limit || now.budget != before.budget;
  // When nothing is different at all, the last entry has taken another command over, or a
  // transaction has left none.
  const bool hasOtherState = !isSameEntry || !isAboutMarks;

  Q_EMIT changed();
  if (hasOtherState)
    Q_EMIT indexChanged(index());
  tellWhatIsNew();
}

/// Sends the signals about single values. The values are read one by one, since a slot may change
/// the history.
void History::tellWhatIsNew()
{
  if (isNew(m_told.canUndo, canUndo()))
    Q_EMIT canUndoChanged(m_told.canUndo);
  if (isNew(m_told.undoText, undoText()))
    Q_EMIT undoTextChanged(m_told.undoText);
  if (isNew(m_told.canRedo, canRedo()))
    Q_EMIT canRedoChanged(m_told.canRedo);
  if (isNew(m_told.redoText, redoText()))
    Q_EMIT redoTextChanged(m_told.redoText);
  if (isNew(m_told.isClean, isClean()))
    Q_EMIT cleanChanged(m_told.isClean);
}

}
