// SPDX-License-Identifier: MIT
#include "QtUndoGroup.h"

#include "UndoActions.h"

QUndoGroup::QUndoGroup(QObject* parent) : QObject(parent) {}

QUndoGroup::~QUndoGroup()
{
  for (auto* const stack : m_stacks)
    stack->m_group = nullptr;
}

void QUndoGroup::addStack(QUndoStack* stack)
{
  if (m_stacks.contains(stack))
    return;
  if (stack->m_group != nullptr)
    stack->m_group->removeStack(stack);
  m_stacks.append(stack);
  stack->m_group = this;
}

void QUndoGroup::removeStack(QUndoStack* stack)
{
  if (m_stacks.removeAll(stack) == 0)
    return;
  if (stack == m_active)
    setActiveStack(nullptr);
  stack->m_group = nullptr;
}

QList<QUndoStack*> QUndoGroup::stacks() const
{
  return m_stacks;
}

QUndoStack* QUndoGroup::activeStack() const
{
  return m_active;
}

QAction* QUndoGroup::createUndoAction(QObject* parent, const QString& prefix) const
{
  return QtShim::createUndoAction(*this, parent, {"QUndoGroup", "Undo", prefix});
}

QAction* QUndoGroup::createRedoAction(QObject* parent, const QString& prefix) const
{
  return QtShim::createRedoAction(*this, parent, {"QUndoGroup", "Redo", prefix});
}

bool QUndoGroup::canUndo() const
{
  return m_active != nullptr && m_active->canUndo();
}

bool QUndoGroup::canRedo() const
{
  return m_active != nullptr && m_active->canRedo();
}

QString QUndoGroup::undoText() const
{
  return m_active != nullptr ? m_active->undoText() : QString();
}

QString QUndoGroup::redoText() const
{
  return m_active != nullptr ? m_active->redoText() : QString();
}

bool QUndoGroup::isClean() const
{
  return m_active == nullptr || m_active->isClean();
}

void QUndoGroup::undo()
{
  if (m_active != nullptr)
    m_active->undo();
}

void QUndoGroup::redo()
{
  if (m_active != nullptr)
    m_active->redo();
}

void QUndoGroup::setActiveStack(QUndoStack* stack)
{
  if (stack == m_active)
    return;
  if (m_active != nullptr)
    disconnect(m_active, nullptr, this, nullptr);
  m_active = stack;
  if (stack != nullptr) {
    connect(stack, &QUndoStack::canUndoChanged, this, &QUndoGroup::canUndoChanged);
    connect(stack, &QUndoStack::undoTextChanged, this, &QUndoGroup::undoTextChanged);
    connect(stack, &QUndoStack::canRedoChanged, this, &QUndoGroup::canRedoChanged);
    connect(stack, &QUndoStack::redoTextChanged, this, &QUndoGroup::redoTextChanged);
    connect(stack, &QUndoStack::indexChanged, this, &QUndoGroup::indexChanged);
    connect(stack, &QUndoStack::cleanChanged, this, &QUndoGroup::cleanChanged);
  }
  emit canUndoChanged(canUndo());
  emit undoTextChanged(undoText());
  emit canRedoChanged(canRedo());
  emit redoTextChanged(redoText());
  emit cleanChanged(isClean());
  emit indexChanged(stack != nullptr ? stack->index() : 0);
  emit activeStackChanged(stack);
}
