// SPDX-License-Identifier: MIT
#include "QtUndoStack.h"

#include "CommandPattern/MacroCommand.h"
#include "QtUndoGroup.h"
#include "UndoActions.h"

#include <algorithm>
#include <cstddef>
#include <list>
#include <utility>

QUndoStack::QUndoStack(QObject* parent) : QObject(parent)
{
  m_history.setDropsCommandsWithoutChange(true);
  m_subscription = m_history.subscribe([this](const auto&) { m_isTold = true; });
  if (auto* const group = dynamic_cast<QUndoGroup*>(parent))
    group->addStack(this);
}

QUndoStack::~QUndoStack()
{
  if (m_group != nullptr)
    m_group->removeStack(this);
  clear();
}

void QUndoStack::clear()
{
  while (!m_macros.empty())
    endMacro();
  m_isTold = false;
  m_history.reset();
  if (m_isTold)
    tellAll();
}

void QUndoStack::push(QUndoCommand* command)
{
  m_isTold = false;
  m_history.execute(std::make_shared<QtShim::Entry>(std::unique_ptr<QUndoCommand>(command)));
  if (m_isTold)
    tellAll();
}

bool QUndoStack::canUndo() const
{
  return m_history.canUndo();
}

bool QUndoStack::canRedo() const
{
  return m_history.canRedo();
}

QString QUndoStack::undoText() const
{
  return QtShim::actionTextOf(m_history.undoDescription());
}

QString QUndoStack::redoText() const
{
  return QtShim::actionTextOf(m_history.redoDescription());
}

int QUndoStack::count() const
{
  return static_cast<int>(m_history.entries().size() + (m_macros.empty() ? 0 : 1));
}

int QUndoStack::index() const
{
  return static_cast<int>(m_history.position());
}

QString QUndoStack::text(int index) const
{
  return index < 0 || index >= static_cast<int>(m_history.entries().size())
             ? QString()
             : QtShim::textOf(
                   m_history.entries()[static_cast<std::size_t>(index)]->getDescription());
}

const QUndoCommand* QUndoStack::command(int index) const
{
  if (index < 0 || index >= static_cast<int>(m_history.entries().size()))
    return nullptr;
  const auto* const entry = dynamic_cast<const QtShim::Entry*>(
      m_history.entries()[static_cast<std::size_t>(index)].get());
  return entry != nullptr ? &entry->command() : nullptr;
}

QAction* QUndoStack::createUndoAction(QObject* parent, const QString& prefix) const
{
  return QtShim::createUndoAction(*this, parent, {"QUndoStack", "Undo", prefix});
}

QAction* QUndoStack::createRedoAction(QObject* parent, const QString& prefix) const
{
  return QtShim::createRedoAction(*this, parent, {"QUndoStack", "Redo", prefix});
}

bool QUndoStack::isActive() const
{
  return m_group == nullptr || m_group->activeStack() == this;
}

bool QUndoStack::isClean() const
{
  return m_macros.empty() && m_history.isClean();
}

int QUndoStack::cleanIndex() const
{
  const auto position = m_history.cleanPosition();
  return position ? static_cast<int>(*position) : -1;
}

// Qt's macro cuts off what can be redone when it begins; a transaction does when it is committed.
void QUndoStack::beginMacro(const QString& text)
{
  const bool isOutermost = m_macros.empty();
  if (isOutermost) {
    m_history.releaseUndone();
    m_macroText = text;
  }
  m_macros.push_back(std::make_unique<Tarvik::CommandTransaction>(m_history, text.toStdString()));
  if (isOutermost)
    tellActions();
}

void QUndoStack::endMacro()
{
  if (m_macros.empty())
    return;
  const bool isKept = m_macros.back()->commit();
  m_macros.pop_back();
  if (!m_macros.empty())
    return;
  if (!isKept) // Qt keeps empty macros
    m_history.keep(std::make_shared<Tarvik::MacroCommand>(
        std::list<std::shared_ptr<Tarvik::CommandBase>>(), m_macroText.toStdString()));
  tellAll();
}

void QUndoStack::setUndoLimit(int limit)
{
  if (m_history.entries().empty())
    m_history.setLimit(limit > 0 ? static_cast<std::size_t>(limit)
                                 : Tarvik::CommandHistory::unlimited);
}

int QUndoStack::undoLimit() const
{
  const auto limit = m_history.limit();
  return limit == Tarvik::CommandHistory::unlimited ? 0 : static_cast<int>(limit);
}

void QUndoStack::setClean()
{
  if (!m_macros.empty())
    return;
  m_history.markClean();
  tellClean();
}

void QUndoStack::resetClean()
{
  if (!m_macros.empty())
    return;
  m_history.forgetCleanMark();
  tellClean();
}

void QUndoStack::setIndex(int index)
{
  if (!m_macros.empty())
    return;
  const int before = this->index();
  const int target = std::clamp(index, 0, count());
  while (this->index() > target)
    stepBack();
  while (this->index() < std::min(target, count()))
    stepForward();
  if (this->index() != before) {
    emit indexChanged(this->index());
    tellActions();
  }
  tellClean();
}

void QUndoStack::undo()
{
  if (canUndo())
    setIndex(index() - 1);
}

// An obsolete command that is dropped leaves the index where it is, so this is one step, not a
// target.
void QUndoStack::redo()
{
  if (!canRedo())
    return;
  const int before = index();
  stepForward();
  if (index() != before) {
    emit indexChanged(index());
    tellActions();
  }
  tellClean();
}

void QUndoStack::setActive(bool active)
{
  if (m_group == nullptr)
    return;
  if (active)
    m_group->setActiveStack(this);
  else if (m_group->activeStack() == this)
    m_group->setActiveStack(nullptr);
}

void QUndoStack::stepBack()
{
  const int countBefore = count();
  const int cleanBefore = cleanIndex();
  m_history.undo();
  forgetCleanMarkAfterDrop(countBefore, cleanBefore);
}

void QUndoStack::stepForward()
{
  const int countBefore = count();
  const int cleanBefore = cleanIndex();
  m_history.redo();
  forgetCleanMarkAfterDrop(countBefore, cleanBefore);
}

/// A command that has become obsolete need not have changed nothing, so Qt does not trust a clean
/// state after it.
void QUndoStack::forgetCleanMarkAfterDrop(int countBefore, int cleanBefore)
{
  if (count() < countBefore && cleanBefore > index())
    m_history.forgetCleanMark();
}

void QUndoStack::tellActions()
{
  emit canUndoChanged(canUndo());
  emit undoTextChanged(undoText());
  emit canRedoChanged(canRedo());
  emit redoTextChanged(redoText());
}

void QUndoStack::tellClean()
{
  if (m_toldClean == isClean())
    return;
  m_toldClean = isClean();
  emit cleanChanged(m_toldClean);
}

void QUndoStack::tellAll()
{
  emit indexChanged(index());
  tellActions();
  tellClean();
}
