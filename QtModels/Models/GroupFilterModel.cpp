// SPDX-License-Identifier: MIT
#include "QtModels/Models/GroupFilterModel.h"

#include "QtModels/Models/FilteredRows.h"
#include "QtModels/Models/GroupItemModelBase.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace Tarvik {
namespace {

/// The position of a row among ascending rows, or -1.
int positionOf(int row, const std::vector<int>& rows)
{
  const auto found = std::lower_bound(rows.begin(), rows.end(), row);
  return found != rows.end() && *found == row ? static_cast<int>(found - rows.begin()) : -1;
}

}

GroupFilterModel::GroupFilterModel(QObject* parent)
    : QAbstractProxyModel(parent), m_rows(std::make_unique<FilteredRows>())
{}

GroupFilterModel::~GroupFilterModel() = default;

void GroupFilterModel::setSourceModel(QAbstractItemModel* source)
{
  if (source == sourceModel())
    return; // the base would not connect again what is disconnected below
  beginResetModel();
  if (sourceModel())
    sourceModel()->disconnect(this);
  if (source)
    connectTo(source); // before the base, which tells headers after each change of the source
  QAbstractProxyModel::setSourceModel(source);
  if (source)
    connectDestroyed(source); // after the base, which forgets the source when it is destroyed
  m_rows->setSource(source);
  endResetModel();
  Q_EMIT matchesChanged();
}

void GroupFilterModel::connectTo(const QAbstractItemModel* source)
{
  using Model = QAbstractItemModel;
  connectRows(source);
  connectLayout(source);
  connect(source, &Model::dataChanged, this, &GroupFilterModel::tellData);
  connect(source, &Model::headerDataChanged, this, &Model::headerDataChanged);
  connect(source, &Model::modelAboutToBeReset, this, [this] { beginResetModel(); });
  connect(source, &Model::modelReset, this, [this] {
    m_rows->setSource(sourceModel());
    endResetModel();
    Q_EMIT matchesChanged();
  });
}

/// Views ask for columns as soon as they are told of the reset, when the source is no model any
/// more.
void GroupFilterModel::connectDestroyed(const QAbstractItemModel* source)
{
  connect(source, &QObject::destroyed, this, [this] {
    beginResetModel();
    m_rows->setSource(nullptr);
    endResetModel();
    Q_EMIT matchesChanged();
  });
}

/// Tells rows that come, leave and move as they are, or as a change of the layout while filtering.
void GroupFilterModel::connectRows(const QAbstractItemModel* source)
{
  using Model = QAbstractItemModel;
  connect(source, &Model::rowsAboutToBeInserted, this,
          [this](const QModelIndex& parent, int first, int last) {
            if (isFiltering())
              beginLayout();
            else
              beginInsertRows(mapFromSource(parent), first, last);
          });
  connect(source, &Model::rowsInserted, this,
          [this](const QModelIndex& parent, int first, int last) {
            if (!isFiltering())
              return endInsertRows();
            m_rows->insert(parent, first, last);
            showMatches();
          });
  connect(source, &Model::rowsAboutToBeRemoved, this,
          [this](const QModelIndex& parent, int first, int last) {
            if (isFiltering())
              beginLayout();
            else
              beginRemoveRows(mapFromSource(parent), first, last);
          });
  connect(source, &Model::rowsRemoved, this,
          [this](const QModelIndex& parent, int first, int last) {
            if (!isFiltering())
              return endRemoveRows();
            m_rows->remove(parent, first, last);
            showMatches();
          });
  connect(source, &Model::rowsAboutToBeMoved, this,
          [this](const QModelIndex& parent, int first, int last, const QModelIndex& to, int row) {
            if (!isFiltering()) {
              beginMoveRows(mapFromSource(parent), first, last, mapFromSource(to), row);
              return;
            }
            beginLayout();
            m_rows->move(parent, first, last, to, row);
          });
  connect(source, &Model::rowsMoved, this, [this] {
    if (isFiltering())
      showMatches();
    else
      endMoveRows();
  });
}

void GroupFilterModel::connectLayout(const QAbstractItemModel* source)
{
  connect(source, &QAbstractItemModel::layoutAboutToBeChanged, this,
          &GroupFilterModel::beginLayout);
  connect(source, &QAbstractItemModel::layoutChanged, this,
          [this](const Parents& parents, Hint hint) {
            if (!isFiltering())
              return endLayout(parents, hint);
            m_rows->readAgain(parents);
            showMatches();
          });
}

bool GroupFilterModel::isFiltering() const
{
  return m_rows->isFiltering();
}

void GroupFilterModel::setFilterText(const QString& text)
{
  if (text == m_text)
    return;
  const auto pattern = text.toCaseFolded();
  m_text = text;
  if (pattern != m_rows->pattern()) {
    beginLayout();
    m_rows->setPattern(pattern);
    endLayout();
    Q_EMIT matchesChanged();
  }
  Q_EMIT filterTextChanged(m_text);
}

int GroupFilterModel::matchingGroups() const
{
  if (isFiltering())
    return m_rows->matchingGroups();
  int groups = 0;
  while (groups < rowCount() &&
         index(groups, 0).data(GroupItemModelBase::KindRole).value<GroupItemModelBase::RowKind>() ==
             GroupItemModelBase::RowKind::Group)
    ++groups;
  return groups;
}

int GroupFilterModel::matchingElements() const
{
  if (isFiltering())
    return m_rows->matchingElements();
  const int groups = matchingGroups();
  int elements = rowCount() - groups;
  for (int group = 0; group < groups; ++group)
    elements += rowCount(index(group, 0));
  return elements;
}

/// The base drops above the next row that is shown. When that is an element below hidden ones,
/// groups cannot go there, and go to the end of the groups instead.
bool GroupFilterModel::canDropMimeData(const QMimeData* data,
                                       Qt::DropAction action,
                                       int row,
                                       int column,
                                       const QModelIndex& parent) const
{
  return QAbstractProxyModel::canDropMimeData(data, action, row, column, parent) ||
         (isEndOfGroups(row, parent) &&
          sourceModel()->canDropMimeData(data, action, m_rows->groups(), column, {}));
}

bool GroupFilterModel::dropMimeData(
    const QMimeData* data, Qt::DropAction action, int row, int column, const QModelIndex& parent)
{
  if (QAbstractProxyModel::canDropMimeData(data, action, row, column, parent))
    return QAbstractProxyModel::dropMimeData(data, action, row, column, parent);
  return isEndOfGroups(row, parent) &&
         sourceModel()->dropMimeData(data, action, m_rows->groups(), column, {});
}

/// Whether a place is right below the last group that a text leaves.
bool GroupFilterModel::isEndOfGroups(int row, const QModelIndex& parent) const
{
  return isFiltering() && sourceModel() && !parent.isValid() && row == m_rows->shownGroups();
}

/// Begins a change of the layout. The source must not have changed yet.
void GroupFilterModel::beginLayout(const Parents& sourceParents, Hint hint)
{
  // what is below one row of the source may hide and show other rows here
  Q_EMIT layoutAboutToBeChanged(isFiltering() ? Parents() : mapped(sourceParents), hint);
  m_persistent = persistentIndexList();
  m_persistentSources.clear();
  for (const auto& index : std::as_const(m_persistent))
    m_persistentSources.append(mapToSource(index));
}

/// Filters all rows, and ends the change of the layout.
void GroupFilterModel::showMatches()
{
  m_rows->filter();
  endLayout();
  Q_EMIT matchesChanged();
}

void GroupFilterModel::endLayout(const Parents& sourceParents, Hint hint)
{
  QModelIndexList now;
  now.reserve(m_persistent.size());
  for (const auto& source : std::as_const(m_persistentSources))
    now.append(mapFromSource(source));
  changePersistentIndexList(std::exchange(m_persistent, {}), now);
  m_persistentSources.clear();
  Q_EMIT layoutChanged(isFiltering() ? Parents() : mapped(sourceParents), hint);
}

auto GroupFilterModel::mapped(const Parents& sourceParents) const -> Parents
{
  Parents parents;
  for (const auto& parent : sourceParents)
    parents.append(mapFromSource(parent));
  return parents;
}

void GroupFilterModel::tellData(const QModelIndex& first,
                                const QModelIndex& last,
                                const QList<int>& roles)
{
  if (!isFiltering()) {
    Q_EMIT dataChanged(mapFromSource(first), mapFromSource(last), roles);
    return;
  }
  if (m_rows->readNamesAgain(first, last)) {
    beginLayout();
    showMatches();
  }
  const auto& shown = m_rows->shownBelow(first.parent());
  const auto begin = std::lower_bound(shown.begin(), shown.end(), first.row());
  const auto end = std::upper_bound(begin, shown.end(), last.row());
  const auto parent = mapFromSource(first.parent());
  if (begin == end || (first.parent().isValid() && !parent.isValid()))
    return;
  Q_EMIT dataChanged(index(static_cast<int>(begin - shown.begin()), first.column(), parent),
                     index(static_cast<int>(end - shown.begin()) - 1, last.column(), parent),
                     roles);
}

QModelIndex GroupFilterModel::index(int row, int column, const QModelIndex& parent) const
{
  if (!hasIndex(row, column, parent))
    return {};
  const auto sourceParent = mapToSource(parent);
  const int sourceRow =
      isFiltering() ? m_rows->shownBelow(sourceParent)[static_cast<std::size_t>(row)] : row;
  const auto source = sourceModel()->index(sourceRow, column, sourceParent);
  return createIndex(row, column, source.internalPointer());
}

QModelIndex GroupFilterModel::parent(const QModelIndex& child) const
{
  return mapFromSource(mapToSource(child).parent());
}

int GroupFilterModel::rowCount(const QModelIndex& parent) const
{
  if (!sourceModel() || parent.column() > 0)
    return 0;
  const auto sourceParent = mapToSource(parent);
  if (!isFiltering())
    return sourceModel()->rowCount(sourceParent);
  const bool isElement = sourceParent.isValid() &&
                         (sourceParent.parent().isValid() || !m_rows->isGroup(sourceParent.row()));
  return isElement ? 0 : static_cast<int>(m_rows->shownBelow(sourceParent).size());
}

int GroupFilterModel::columnCount(const QModelIndex& parent) const
{
  return sourceModel() ? sourceModel()->columnCount(mapToSource(parent)) : 0;
}

bool GroupFilterModel::hasChildren(const QModelIndex& parent) const
{
  return rowCount(parent) > 0;
}

QModelIndex GroupFilterModel::mapToSource(const QModelIndex& proxyIndex) const
{
  if (!sourceModel() || !proxyIndex.isValid())
    return {};
  auto* const pointer = proxyIndex.internalPointer();
  if (!isFiltering())
    return createSourceIndex(proxyIndex.row(), proxyIndex.column(), pointer);
  const auto sourceParent = createSourceIndex(0, 0, pointer).parent();
  const auto& shown = m_rows->shownBelow(sourceParent);
  return createSourceIndex(shown[static_cast<std::size_t>(proxyIndex.row())], proxyIndex.column(),
                           pointer);
}

QModelIndex GroupFilterModel::mapFromSource(const QModelIndex& sourceIndex) const
{
  if (!sourceModel() || !sourceIndex.isValid())
    return {};
  auto* const pointer = sourceIndex.internalPointer();
  if (!isFiltering())
    return createIndex(sourceIndex.row(), sourceIndex.column(), pointer);
  const auto sourceParent = sourceIndex.parent();
  const int row = positionOf(sourceIndex.row(), m_rows->shownBelow(sourceParent));
  return row < 0 ? QModelIndex() : createIndex(row, sourceIndex.column(), pointer);
}

}
