// SPDX-License-Identifier: MIT
#include "QtModels/History/HistoryGroup.h"

#include "QtModels/History/History.h"
#include "QtModels/History/HistoryAction.h"

namespace Tarvik {

HistoryGroup::HistoryGroup(QObject* parent) : QObject(parent) {}

HistoryGroup::~HistoryGroup()
{
  for (auto* const history : m_histories)
    history->m_group = nullptr;
}

void HistoryGroup::addHistory(History* history)
{
  if (history->m_group == this)
    return;
  if (history->m_group != nullptr)
    history->m_group->removeHistory(history);
  m_histories.append(history);
  history->m_group = this;
}

void HistoryGroup::removeHistory(History* history)
{
  if (!m_histories.removeOne(history))
    return;
  if (history == m_active)
    setActiveHistory(nullptr);
  history->m_group = nullptr;
}

QList<History*> HistoryGroup::histories() const
{
  return m_histories;
}

History* HistoryGroup::activeHistory() const
{
  return m_active;
}

bool HistoryGroup::canUndo() const
{
  return m_active != nullptr && m_active->canUndo();
}

bool HistoryGroup::canRedo() const
{
  return m_active != nullptr && m_active->canRedo();
}

bool HistoryGroup::isClean() const
{
  return m_active == nullptr || m_active->isClean();
}

QString HistoryGroup::undoText() const
{
  return m_active != nullptr ? m_active->undoText() : QString();
}

QString HistoryGroup::redoText() const
{
  return m_active != nullptr ? m_active->redoText() : QString();
}

QAction* HistoryGroup::createUndoAction(QObject* parent, const QString& prefix)
{
  return makeUndoAction(*this, prefix, parent);
}

QAction* HistoryGroup::createRedoAction(QObject* parent, const QString& prefix)
{
  return makeRedoAction(*this, prefix, parent);
}

void HistoryGroup::undo()
{
  if (m_active != nullptr)
    m_active->undo();
}

void HistoryGroup::redo()
{
  if (m_active != nullptr)
    m_active->redo();
}

void HistoryGroup::setActiveHistory(History* history)
{
  if (history == m_active || (history != nullptr && !m_histories.contains(history)))
    return;
  if (m_active != nullptr)
    disconnect(m_active, nullptr, this, nullptr);
  m_active = history;
  if (history != nullptr) {
    connect(history, &History::indexChanged, this, &HistoryGroup::indexChanged);
    connect(history, &History::cleanChanged, this, &HistoryGroup::cleanChanged);
    connect(history, &History::canUndoChanged, this, &HistoryGroup::canUndoChanged);
    connect(history, &History::canRedoChanged, this, &HistoryGroup::canRedoChanged);
    connect(history, &History::undoTextChanged, this, &HistoryGroup::undoTextChanged);
    connect(history, &History::redoTextChanged, this, &HistoryGroup::redoTextChanged);
    connect(history, &History::failed, this, &HistoryGroup::failed);
  }
  Q_EMIT activeHistoryChanged(history);
  tellAll();
}

void HistoryGroup::tellAll()
{
  Q_EMIT canUndoChanged(canUndo());
  Q_EMIT undoTextChanged(undoText());
  Q_EMIT canRedoChanged(canRedo());
  Q_EMIT redoTextChanged(redoText());
  Q_EMIT cleanChanged(isClean());
  Q_EMIT indexChanged(m_active != nullptr ? m_active->index() : 0);
}

}
