// SPDX-License-Identifier: MIT
#include "QtModels/History/HistoryView.h"

#include "QtModels/History/History.h"
#include "QtModels/History/HistoryGroup.h"
#include "QtModels/History/HistoryModel.h"

namespace Tarvik {

HistoryView::HistoryView(QWidget* parent) : QListView(parent), m_model(new HistoryModel(this))
{
  setModel(m_model);
}

HistoryView::HistoryView(History* history, QWidget* parent) : HistoryView(parent)
{
  setHistory(history);
}

HistoryView::HistoryView(HistoryGroup* group, QWidget* parent) : HistoryView(parent)
{
  setGroup(group);
}

HistoryView::~HistoryView() = default;

History* HistoryView::history() const
{
  return m_model->history();
}

HistoryGroup* HistoryView::group() const
{
  return m_group;
}

QString HistoryView::emptyLabel() const
{
  return m_model->emptyLabel();
}

void HistoryView::setEmptyLabel(const QString& label)
{
  m_model->setEmptyLabel(label);
}

QIcon HistoryView::cleanIcon() const
{
  return m_model->cleanIcon();
}

void HistoryView::setCleanIcon(const QIcon& icon)
{
  m_model->setCleanIcon(icon);
}

void HistoryView::setHistory(History* history)
{
  setGroup(nullptr);
  showHistory(history);
}

void HistoryView::setGroup(HistoryGroup* group)
{
  if (m_group != nullptr)
    disconnect(m_group, nullptr, this, nullptr);
  m_group = group;
  if (group != nullptr) {
    connect(group, &HistoryGroup::activeHistoryChanged, this, &HistoryView::showHistory);
    connect(group, &QObject::destroyed, this, [this] { showHistory(nullptr); });
  }
  showHistory(group != nullptr ? group->activeHistory() : nullptr);
}

void HistoryView::showHistory(History* history)
{
  if (history == m_model->history())
    return;
  if (m_model->history() != nullptr)
    disconnect(m_model->history(), nullptr, this, nullptr);
  m_model->setHistory(history);
  if (history != nullptr)
    connect(history, &History::indexChanged, this, &HistoryView::showPosition);
  showPosition();
}

void HistoryView::showPosition()
{
  if (history() != nullptr)
    setCurrentIndex(m_model->index(history()->index()));
}

void HistoryView::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
  QListView::currentChanged(current, previous);
  if (history() == nullptr || !current.isValid() || m_model->isFollowing())
    return;
  history()->setIndex(current.row());
  // Later, since the view still selects the row that was clicked.
  if (history() != nullptr && history()->index() != current.row())
    QMetaObject::invokeMethod(this, "showPosition", Qt::QueuedConnection);
}

}
