// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Window/FilteredSelection.h"

#include <QtCore/QScopedValueRollback>
#include <QtCore/QSet>
#include <QtGui/QGuiApplication>

namespace Tarvik::PointCollections {
namespace {

using IsWanted = std::function<bool(const QModelIndex&)>;

/// Adds runs of consecutive rows below a parent to a selection.
void appendRuns(QItemSelection& selection,
                const QAbstractItemModel& model,
                const QModelIndex& parent,
                const IsWanted& isWanted)
{
  const auto end = model.rowCount(parent);
  for (int row = 0; row < end; ++row) {
    if (!isWanted(model.index(row, 0, parent)))
      continue;
    const auto begin = row;
    while (row + 1 < end && isWanted(model.index(row + 1, 0, parent)))
      ++row;
    selection.append(QItemSelectionRange(model.index(begin, 0, parent),
                                         model.index(row, model.columnCount(parent) - 1, parent)));
  }
}

/// As few ranges as possible: selection models are slow with many of them.
QItemSelection runsOf(const QAbstractItemModel& model, const IsWanted& isWanted)
{
  QItemSelection selection;
  const auto end = model.rowCount();
  for (int row = 0; row < end; ++row) {
    const auto parent = model.index(row, 0);
    if (model.hasChildren(parent))
      appendRuns(selection, model, parent, isWanted);
  }
  appendRuns(selection, model, {}, isWanted);
  return selection;
}

}

FilteredSelection::FilteredSelection(GroupTreeView* tree, GroupFilterModel* filter)
    : QObject(tree), m_tree(tree), m_filter(filter)
{
  connect(tree, &GroupTreeView::selectedRowsChanged, this, [this] {
    if (!m_isSelecting)
      Q_EMIT changed();
  });
}

FilteredSelection::~FilteredSelection() = default;

void FilteredSelection::reset()
{
  m_hidden = std::make_unique<QItemSelectionModel>(m_filter->sourceModel(), nullptr);
  connect(m_tree->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &FilteredSelection::noteUsersChoice, Qt::UniqueConnection);
}

void FilteredSelection::noteUsersChoice()
{
  const auto adds =
      QGuiApplication::keyboardModifiers() & (Qt::ControlModifier | Qt::ShiftModifier);
  if (!m_isSelecting && !adds && m_hidden)
    m_hidden->clear();
}

void FilteredSelection::setFilterText(const QString& text)
{
  if (!m_hidden) { // there is no model yet
    m_filter->setFilterText(text);
    return;
  }
  const auto before = rows();
  const QSet<QModelIndex> selected(before.begin(), before.end());
  const QScopedValueRollback selecting(m_isSelecting, true);
  m_filter->setFilterText(text);
  select([&](const QModelIndex& row) { return selected.contains(row); });
}

QModelIndexList FilteredSelection::rows() const
{
  auto rows = m_tree->selectedGroupRows();
  if (!m_hidden)
    return rows;
  const auto hidden = m_hidden->selection();
  for (const auto& range : hidden) {
    for (int row = range.top(); row <= range.bottom(); ++row)
      rows.append(m_hidden->model()->index(row, 0, range.parent()));
  }
  return rows;
}

QModelIndex FilteredSelection::select(const IsWanted& isWanted)
{
  const QScopedValueRollback selecting(m_isSelecting, true);
  const auto shown = runsOf(
      *m_filter, [&](const QModelIndex& row) { return isWanted(m_filter->mapToSource(row)); });
  m_tree->selectionModel()->select(shown,
                                   QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  m_hidden->clear();
  if (!m_filter->filterText().isEmpty())
    m_hidden->select(runsOf(*m_filter->sourceModel(),
                            [&](const QModelIndex& row) {
                              return isWanted(row) && !m_filter->mapFromSource(row).isValid();
                            }),
                     QItemSelectionModel::Select);
  return shown.isEmpty() ? QModelIndex() : QModelIndex(shown.constFirst().topLeft());
}

}
