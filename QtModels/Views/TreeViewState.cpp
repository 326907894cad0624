// SPDX-License-Identifier: MIT
#include "QtModels/Views/TreeViewState.h"

#include "QtModels/Models/GroupItemModelBase.h"
#include "QtModels/Views/SelectedRows.h"

#include <QtCore/QAbstractItemModel>
#include <QtCore/QItemSelectionModel>
#include <QtCore/QScopedValueRollback>
#include <QtWidgets/QScrollBar>

#include <algorithm>
#include <utility>

namespace Tarvik {
namespace {

using RowKind = GroupItemModelBase::RowKind;

RowKind kindOf(const QModelIndex& index)
{
  return index.data(GroupItemModelBase::KindRole).value<RowKind>();
}

QString identifierOf(const QModelIndex& index)
{
  return index.data(GroupItemModelBase::IdentifierRole).toString();
}

/// A view that lets others lay it out later.
class LaidOutLater : public QTreeView {
public:
  using QTreeView::scheduleDelayedItemsLayout;
};

}

TreeViewState::TreeViewState(QTreeView* view) : QObject(view), m_view(view)
{
  connect(this, &TreeViewState::stateLost, this, &TreeViewState::restoreQuietly,
          Qt::QueuedConnection);
  connectModel();
  connectView();
  const auto* model = m_view->model();
  for (int row = 0; row < model->rowCount(); ++row) {
    const auto index = model->index(row, 0);
    if (m_view->isExpanded(index) && kindOf(index) == RowKind::Group)
      m_expanded.insert(identifierOf(index));
  }
}

TreeViewState::~TreeViewState() = default;

void TreeViewState::connectModel()
{
  using Model = QAbstractItemModel;
  const auto* model = m_view->model();
  connect(model, &Model::rowsAboutToBeInserted, this, &TreeViewState::rememberRows);
  connect(model, &Model::rowsAboutToBeRemoved, this, &TreeViewState::rememberRows);
  connect(model, &Model::rowsAboutToBeMoved, this, &TreeViewState::rememberRows);
  connect(model, &Model::layoutAboutToBeChanged, this, &TreeViewState::rememberRows);
  connect(model, &Model::modelAboutToBeReset, this, &TreeViewState::rememberBeforeReset);
  connect(model, &Model::rowsRemoved, this, &TreeViewState::restoreLater);
  connect(model, &Model::rowsMoved, this, &TreeViewState::restoreLater);
  connect(model, &Model::rowsInserted, this,
          [this](const QModelIndex& parent, int first, int last) {
            if (!parent.isValid())
              expandAgain(first, last);
            restoreLater();
          });
  connect(model, &Model::layoutChanged, this, [this](const QList<QPersistentModelIndex>& parents) {
    m_wasLaidOut = m_wasLaidOut || parents.isEmpty();
    restoreLater();
  });
  connect(model, &Model::modelReset, this, [this] {
    m_wasReset = true;
    restoreLater();
  });
}

void TreeViewState::connectView()
{
  connect(m_view, &QTreeView::expanded, this, [this](const QModelIndex& index) {
    if (!m_isExpanding && kindOf(index) == RowKind::Group)
      m_expanded.insert(identifierOf(index));
  });
  connect(m_view, &QTreeView::collapsed, this, [this](const QModelIndex& index) {
    if (!m_isExpanding && kindOf(index) == RowKind::Group)
      m_expanded.remove(identifierOf(index));
  });
}

QStringList TreeViewState::expandedGroups() const
{
  QStringList ids(m_expanded.begin(), m_expanded.end());
  ids.sort();
  return ids;
}

void TreeViewState::setExpandedGroups(const QStringList& ids)
{
  m_expanded = QSet<QString>(ids.begin(), ids.end());
  layOutLater();
  const auto* model = m_view->model();
  for (int row = 0; row < model->rowCount(); ++row) {
    const auto index = model->index(row, 0);
    if (kindOf(index) == RowKind::Group)
      setExpanded(index, m_expanded.contains(identifierOf(index)));
  }
}

/// Remembers what is on the screen, unless earlier changes wait to be shown.
void TreeViewState::rememberRows()
{
  if (m_isWaiting)
    return;
  m_rows.clear();
  if (m_view->verticalScrollBar()->value() == 0)
    return; // what comes to the top is to be seen
  const int bottom = m_view->viewport()->height();
  const int begin = m_view->isRightToLeft() ? m_view->viewport()->width() - 1 : 0;
  auto index = m_view->indexAt({begin, 0}).siblingAtColumn(0);
  for (; index.isValid(); index = m_view->indexBelow(index)) {
    const int top = m_view->visualRect(index).top();
    if (top >= bottom)
      break;
    m_rows.append({index, top});
  }
}

void TreeViewState::rememberBeforeReset()
{
  if (m_wasReset)
    return;
  rememberRows();
  const auto top = std::find_if(m_rows.cbegin(), m_rows.cend(),
                                [](const VisibleRow& row) { return row.index.isValid(); });
  m_top = top != m_rows.cend() ? nameOf(top->index) : RowName();
  m_current = nameOf(m_view->currentIndex());
  m_selected.clear();
  const auto selected = SelectedRows::indexes(m_view->selectionModel());
  for (const auto& index : selected)
    m_selected.insert(nameOf(index));
}

void TreeViewState::restoreLater()
{
  if (!std::exchange(m_isWaiting, true))
    Q_EMIT stateLost(QPrivateSignal());
}

/// Exceptions must not reach the event loop. The view is then as Qt leaves it.
void TreeViewState::restoreQuietly() noexcept
{
  try {
    restore();
  } catch (...) { // NOLINT(bugprone-empty-catch)
  }
}

void TreeViewState::restore()
{
  if (!std::exchange(m_isWaiting, false))
    return;
  if (m_wasReset || m_wasLaidOut)
    expandAgain(0, m_view->model()->rowCount() - 1);
  if (m_wasReset)
    restoreSelection();
  m_wasLaidOut = false;
  m_wasReset = false;
  restorePosition();
}

/// Expands those of the rows that were expanded before.
void TreeViewState::expandAgain(int first, int last)
{
  if (m_expanded.isEmpty())
    return;
  QModelIndexList collapsed;
  for (int row = first; row <= last; ++row) {
    const auto index = m_view->model()->index(row, 0);
    if (!m_view->isExpanded(index) && kindOf(index) == RowKind::Group &&
        m_expanded.contains(identifierOf(index)))
      collapsed.append(index);
  }
  if (collapsed.isEmpty())
    return;
  layOutLater();
  for (const auto& index : std::as_const(collapsed))
    setExpanded(index, true);
}

void TreeViewState::setExpanded(const QModelIndex& index, bool isExpanded)
{
  const QScopedValueRollback expanding(m_isExpanding, true);
  m_view->setExpanded(index, isExpanded);
}

/// Lets the view lay out its rows once, not after each row that is expanded: that would take time
/// that grows with the square of the rows.
void TreeViewState::layOutLater()
{
  (m_view->*(&LaidOutLater::scheduleDelayedItemsLayout))();
}

void TreeViewState::restoreSelection()
{
  auto names = m_selected;
  for (const auto& name : {m_current, m_top}) {
    if (!name.isEmpty())
      names.insert(name);
  }
  const auto indexes = find(names);
  QModelIndexList selected;
  for (const auto& name : std::as_const(m_selected)) {
    const auto index = indexes.value(name);
    if (index.isValid())
      selected.append(index);
  }
  const bool hasAutoScroll = m_view->hasAutoScroll();
  m_view->setAutoScroll(false); // it would expand the group of the current row
  auto* const selectionModel = m_view->selectionModel();
  selectionModel->setCurrentIndex(indexes.value(m_current), QItemSelectionModel::NoUpdate);
  selectionModel->select(SelectedRows::selectionOf(std::move(selected)),
                         QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  m_view->setAutoScroll(hasAutoScroll);
  if (!m_top.isEmpty())
    m_rows = {{indexes.value(m_top), 0}};
}

/// The rows with these names, as far as there are any.
QHash<TreeViewState::RowName, QModelIndex> TreeViewState::find(const QSet<RowName>& names) const
{
  QHash<RowName, QModelIndex> found;
  QSet<QString> groups; // with wanted members
  for (const auto& name : names) {
    if (!name.group.isEmpty() && !name.element.isEmpty())
      groups.insert(name.group);
  }
  const auto note = [&](const QModelIndex& index) {
    const auto name = nameOf(index);
    if (names.contains(name) && !found.contains(name))
      found.insert(name, index);
  };
  const auto* model = m_view->model();
  for (int row = 0; row < model->rowCount() && found.size() < names.size(); ++row) {
    const auto index = model->index(row, 0);
    note(index);
    const bool isSearched = kindOf(index) == RowKind::Group && groups.contains(identifierOf(index));
    for (int member = 0; isSearched && member < model->rowCount(index); ++member)
      note(model->index(member, 0, index));
  }
  return found;
}

/// Moves the first row that is left of those that were on the screen to its old place.
void TreeViewState::restorePosition()
{
  const auto rows = std::exchange(m_rows, {});
  const auto isShown = [this](const VisibleRow& row) {
    const auto parent = row.index.parent();
    return row.index.isValid() && (!parent.isValid() || m_view->isExpanded(parent));
  };
  const auto row = std::find_if(rows.begin(), rows.end(), isShown);
  if (row == rows.end())
    return;
  const int column = m_view->horizontalScrollBar()->value();
  m_view->scrollTo(row->index, QAbstractItemView::PositionAtTop);
  const bool isPixelwise = m_view->verticalScrollMode() == QAbstractItemView::ScrollPerPixel;
  auto* const bar = m_view->verticalScrollBar();
  bar->setValue(bar->value() - (isPixelwise ? row->top : static_cast<int>(row - rows.begin())));
  m_view->horizontalScrollBar()->setValue(column);
}

TreeViewState::RowName TreeViewState::nameOf(const QModelIndex& index)
{
  const auto first = index.siblingAtColumn(0);
  switch (kindOf(first)) {
  case RowKind::Group:
    return {identifierOf(first), {}};
  case RowKind::Member:
    return {identifierOf(first.parent()), identifierOf(first)};
  case RowKind::Ungrouped:
    return {{}, identifierOf(first)};
  default:
    return {};
  }
}

}
