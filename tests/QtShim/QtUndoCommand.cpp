// SPDX-License-Identifier: MIT
#include "QtUndoCommand.h"

#include <cstddef>
#include <utility>

QUndoCommand::QUndoCommand(QUndoCommand* parent)
{
  if (parent != nullptr)
    parent->m_children.emplace_back(this);
}

QUndoCommand::QUndoCommand(const QString& text, QUndoCommand* parent) : QUndoCommand(parent)
{
  setText(text);
}

QUndoCommand::~QUndoCommand() = default;

void QUndoCommand::undo()
{
  for (auto child = m_children.rbegin(); child != m_children.rend(); ++child)
    (*child)->undo();
}

void QUndoCommand::redo()
{
  for (const auto& child : m_children)
    child->redo();
}

int QUndoCommand::id() const
{
  return -1;
}

bool QUndoCommand::mergeWith(const QUndoCommand*)
{
  return false;
}

QString QUndoCommand::text() const
{
  return m_text;
}

QString QUndoCommand::actionText() const
{
  return m_actionText;
}

void QUndoCommand::setText(const QString& text)
{
  m_text = QtShim::textOf(text.toStdString());
  m_actionText = QtShim::actionTextOf(text.toStdString());
}

bool QUndoCommand::isObsolete() const
{
  return m_isObsolete;
}

void QUndoCommand::setObsolete(bool obsolete)
{
  m_isObsolete = obsolete;
}

int QUndoCommand::childCount() const
{
  return static_cast<int>(m_children.size());
}

const QUndoCommand* QUndoCommand::child(int index) const
{
  return index >= 0 && index < childCount() ? m_children[static_cast<std::size_t>(index)].get()
                                            : nullptr;
}

namespace QtShim {

QString textOf(const std::string& description)
{
  return QString::fromStdString(description.substr(0, description.find('\n')));
}

QString actionTextOf(const std::string& description)
{
  const auto separator = description.find('\n');
  return QString::fromStdString(separator == std::string::npos ? description
                                                               : description.substr(separator + 1));
}

Entry::Entry(std::unique_ptr<QUndoCommand> command)
    : CommandBase(std::string()), m_command(std::move(command))
{}

void Entry::execute()
{
  m_command->redo();
}

void Entry::undo()
{
  if (!m_command->isObsolete())
    m_command->undo();
}

void Entry::redo()
{
  if (!m_command->isObsolete())
    m_command->redo();
}

const std::string& Entry::getDescription() const
{
  m_description = (m_command->text() + '\n' + m_command->actionText()).toStdString();
  return m_description;
}

bool Entry::hasChangedNothing() const
{
  return m_command->isObsolete();
}

bool Entry::mergeWith(CommandBase& later)
{
  const auto* const other = dynamic_cast<Entry*>(&later);
  return other != nullptr && m_command->id() != -1 && m_command->id() == other->m_command->id() &&
         m_command->mergeWith(other->m_command.get());
}

}
