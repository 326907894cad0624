// SPDX-License-Identifier: MIT
#include "QtModels/History/UndoStackCommand.h"

#include "CommandPattern/HistoryEntry.h"
#include "QtModels/History/Descriptions.h"
#include "QtModels/Support/CurrentException.h"

#include <QtCore/QCoreApplication>

#include <stdexcept>
#include <utility>

namespace Tarvik {

const int UndoStackCommand::mergingId = 0x544B4D;

UndoStackCommand::UndoStackCommand(std::shared_ptr<CommandBase> command,
                                   FailureHandler onFailure,
                                   QUndoCommand* parent)
    : QUndoCommand(parent), m_command(std::move(command)), m_onFailure(std::move(onFailure))
{
  if (!m_command)
    throw std::invalid_argument("UndoStackCommand: the command is null");
  setText(descriptionOf(*m_command));
}

UndoStackCommand::~UndoStackCommand() = default;

void UndoStackCommand::redo()
{
  if (m_isInEffect) // its undo() has failed, as a part of another command
    return;
  if (!m_isExecuted)
    attempt(QT_TRANSLATE_NOOP("Tarvik::History", "An error occurred in \"%1\""),
            [this] { execute(); });
  else
    attempt(QT_TRANSLATE_NOOP("Tarvik::History", "An error occurred while \"%1\" was redone"),
            [this] {
              m_command->redo();
              m_isInEffect = true;
            });
}

void UndoStackCommand::undo()
{
  if (!m_isInEffect) // it has failed, as a part of another command
    return;
  attempt(QT_TRANSLATE_NOOP("Tarvik::History", "An error occurred while \"%1\" was undone"),
          [this] {
            m_command->undo();
            m_isInEffect = false;
            if (!m_command->isRedoCapable())
              setObsolete(true);
          });
}

void UndoStackCommand::execute()
{
  m_command->execute();
  m_isExecuted = true;
  m_isInEffect = true;
  setText(descriptionOf(*m_command)); // may name what the command has done
  dropUnlessChanged();
}

int UndoStackCommand::id() const
{
  return dynamic_cast<const HistoryEntry*>(m_command.get()) != nullptr ? mergingId : -1;
}

bool UndoStackCommand::mergeWith(const QUndoCommand* other)
{
  const auto* const later = dynamic_cast<const UndoStackCommand*>(other);
  auto* const entry = dynamic_cast<HistoryEntry*>(m_command.get());
  if (later == nullptr || entry == nullptr || !m_isInEffect || !later->m_isInEffect)
    return false; // a command that has failed has nothing to take over
  try {
    if (!entry->mergeWith(*later->m_command))
      return false;
  } catch (...) {
    return false; // nothing has changed then
  }
  setText(descriptionOf(*m_command));
  dropUnlessChanged();
  return true;
}

/// Runs the action. If it throws, the stack is to forget this command, and the handler gets a
/// message.
void UndoStackCommand::attempt(const char* failure, const std::function<void()>& action)
{
  try {
    action();
    return;
  } catch (...) {
    setObsolete(true);
    if (!m_onFailure)
      return;
    const auto start = QCoreApplication::translate("Tarvik::History", failure).arg(text());
    const auto message = QStringLiteral("%1: %2").arg(start, messageOfCurrentException());
    try {
      m_onFailure(message);
    } catch (...) { // NOLINT(bugprone-empty-catch): see the header
    }
  }
}

void UndoStackCommand::dropUnlessChanged()
{
  const auto* const entry = dynamic_cast<const HistoryEntry*>(m_command.get());
  try {
    if (entry != nullptr && entry->hasChangedNothing())
      setObsolete(true);
  } catch (...) { // NOLINT(bugprone-empty-catch): as if it had changed something
  }
}

}
