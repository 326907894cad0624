// SPDX-License-Identifier: MIT
#include "QtModels/Models/GroupFilterModel.h"

#include "QtModels/Models/GroupItemModelBase.h"
#include "QtModels/Models/ShownGroups.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <numeric>
#include <utility>

namespace Tarvik {
namespace {

using ShownLists::at;

int sizeOf(const std::vector<int>& rows)
{
  return static_cast<int>(rows.size());
}

/// The position of a row among ascending rows, or -1.
int positionOf(int row, const std::vector<int>& rows)
{
  const auto found = std::lower_bound(rows.begin(), rows.end(), row);
  return found != rows.end() && *found == row ? static_cast<int>(found - rows.begin()) : -1;
}

/// Takes the entries from first to last out of a list.
template <class Entry>
std::vector<Entry> taken(std::vector<Entry>& list, int first, int last)
{
  const auto begin = at(list, static_cast<std::size_t>(first));
  const auto end = at(list, static_cast<std::size_t>(last) + 1);
  std::vector<Entry> entries(std::make_move_iterator(begin), std::make_move_iterator(end));
  list.erase(begin, end);
  return entries;
}

}

GroupFilterModel::GroupFilterModel(QObject* parent) : QAbstractProxyModel(parent) {}

GroupFilterModel::~GroupFilterModel() = default;

void GroupFilterModel::setSourceModel(QAbstractItemModel* source)
{
  beginResetModel();
  if (sourceModel())
    sourceModel()->disconnect(this);
  if (source)
    connectTo(source); // before the base, which tells headers after each change of the source
  QAbstractProxyModel::setSourceModel(source);
  readAll();
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
    readAll();
    endResetModel();
    Q_EMIT matchesChanged();
  });
  connect(source, &QObject::destroyed, this, [this] {
    beginResetModel();
    m_top = {};
    m_groups.clear();
    endResetModel();
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
            putRange(parent, first, readRange(parent, first, last));
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
            takeRange(parent, first, last);
            showMatches();
          });
  connect(source, &Model::rowsAboutToBeMoved, this,
          [this](const QModelIndex& parent, int first, int last, const QModelIndex& to, int row) {
            if (!isFiltering()) {
              beginMoveRows(mapFromSource(parent), first, last, mapFromSource(to), row);
              return;
            }
            beginLayout();
            const bool isAfter = parent == to && row > last;
            putRange(to, isAfter ? row - (last - first + 1) : row, takeRange(parent, first, last));
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
            readAgain(parents);
            showMatches();
          });
}

void GroupFilterModel::setFilterText(const QString& text)
{
  if (text == m_text)
    return;
  const auto pattern = text.toCaseFolded();
  m_text = text;
  if (pattern != m_pattern) {
    beginLayout();
    const auto before = std::exchange(m_pattern, pattern);
    if (before.isEmpty() || pattern.isEmpty())
      readAll();
    else
      filter(pattern.contains(before));
    endLayout();
    Q_EMIT matchesChanged();
  }
  Q_EMIT filterTextChanged(m_text);
}

int GroupFilterModel::matchingGroups() const
{
  int groups = 0;
  if (isFiltering()) {
    for (const int row : m_top.matching)
      groups += isGroup(row) ? 1 : 0;
    return groups;
  }
  while (groups < rowCount() &&
         index(groups, 0).data(GroupItemModelBase::KindRole).value<GroupItemModelBase::RowKind>() ==
             GroupItemModelBase::RowKind::Group)
    ++groups;
  return groups;
}

int GroupFilterModel::matchingElements() const
{
  if (isFiltering()) {
    return std::accumulate(
        m_groups.begin(), m_groups.end(), sizeOf(m_top.matching) - matchingGroups(),
        [](int sum, const auto& group) { return sum + sizeOf(group->matching); });
  }
  const int groups = matchingGroups();
  int elements = rowCount() - groups;
  for (int group = 0; group < groups; ++group)
    elements += rowCount(index(group, 0));
  return elements;
}

/// Whether the top row of the source is a group. Only while filtering.
bool GroupFilterModel::isGroup(int sourceRow) const
{
  return static_cast<std::size_t>(sourceRow) < m_groups.size();
}

auto GroupFilterModel::rowsOf(const QModelIndex& sourceParent) -> Rows&
{
  return sourceParent.isValid() ? *m_groups[static_cast<std::size_t>(sourceParent.row())] : m_top;
}

auto GroupFilterModel::rowsOf(const QModelIndex& sourceParent) const -> const Rows&
{
  return sourceParent.isValid() ? *m_groups[static_cast<std::size_t>(sourceParent.row())] : m_top;
}

QString GroupFilterModel::nameAt(int row, const QModelIndex& sourceParent) const
{
  return sourceModel()->index(row, 0, sourceParent).data().toString().toCaseFolded();
}

auto GroupFilterModel::readRows(const QModelIndex& sourceParent) const -> std::unique_ptr<Rows>
{
  auto rows = std::make_unique<Rows>();
  const int count = sourceModel()->rowCount(sourceParent);
  rows->names.reserve(static_cast<std::size_t>(count));
  for (int row = 0; row < count; ++row)
    rows->names.push_back(nameAt(row, sourceParent));
  return rows;
}

/// Reads all names of the source, or forgets them when nothing is filtered.
void GroupFilterModel::readAll()
{
  m_top = {};
  m_groups.clear();
  if (!isFiltering() || !sourceModel())
    return;
  auto all = readRange({}, 0, sourceModel()->rowCount() - 1);
  m_top.names = std::move(all.names);
  m_groups = std::move(all.groups);
  filter(false);
}

auto GroupFilterModel::readRange(const QModelIndex& sourceParent, int first, int last) const
    -> TakenRows
{
  TakenRows read;
  for (int row = first; row <= last; ++row) {
    const auto index = sourceModel()->index(row, 0, sourceParent);
    const auto kind = index.data(GroupItemModelBase::KindRole).value<GroupItemModelBase::RowKind>();
    read.names.push_back(nameAt(row, sourceParent));
    if (kind == GroupItemModelBase::RowKind::Group)
      read.groups.push_back(readRows(index));
  }
  return read;
}

auto GroupFilterModel::takeRange(const QModelIndex& sourceParent, int first, int last) -> TakenRows
{
  TakenRows result;
  result.names = taken(rowsOf(sourceParent).names, first, last);
  if (!sourceParent.isValid() && isGroup(first))
    result.groups = taken(m_groups, first, (std::min)(last, static_cast<int>(m_groups.size()) - 1));
  return result;
}

void GroupFilterModel::putRange(const QModelIndex& sourceParent, int row, TakenRows rows)
{
  const auto position = static_cast<std::size_t>(row);
  ShownLists::insert(rowsOf(sourceParent).names, position, std::move(rows.names));
  if (!rows.groups.empty())
    ShownLists::insert(m_groups, position, std::move(rows.groups));
}

/// Reads the names below these rows of the source; of all rows if there are none.
void GroupFilterModel::readAgain(const Parents& sourceParents)
{
  const bool isBelowGroups =
      !sourceParents.isEmpty() &&
      std::all_of(sourceParents.begin(), sourceParents.end(),
                  [](const QPersistentModelIndex& parent) { return parent.isValid(); });
  if (!isBelowGroups)
    return readAll();
  for (const QModelIndex parent : sourceParents)
    rowsOf(parent) = *readRows(parent);
}

/// @return whether any name is another one
bool GroupFilterModel::readNamesAgain(const QModelIndex& first, const QModelIndex& last)
{
  bool isChanged = false;
  auto& names = rowsOf(first.parent()).names;
  for (int row = first.row(); row <= last.row(); ++row) {
    auto name = nameAt(row, first.parent());
    auto& known = names[static_cast<std::size_t>(row)];
    isChanged = isChanged || name != known;
    known = std::move(name);
  }
  return isChanged;
}

/// Finds out which rows are shown.
/// @param narrows  whether only rows that matched before can match
void GroupFilterModel::filter(bool narrows)
{
  findMatches(m_top, narrows);
  m_top.shown.clear();
  auto next = m_top.matching.begin();
  for (int row = 0; row < static_cast<int>(m_groups.size()); ++row) {
    auto& group = *m_groups[static_cast<std::size_t>(row)];
    findMatches(group, narrows);
    const bool matchesItself = next != m_top.matching.end() && *next == row;
    if (matchesItself) {
      ++next;
      group.shown.resize(group.names.size());
      std::iota(group.shown.begin(), group.shown.end(), 0);
    } else {
      group.shown = group.matching;
    }
    if (matchesItself || !group.matching.empty())
      m_top.shown.push_back(row);
  }
  m_top.shown.insert(m_top.shown.end(), next, m_top.matching.end());
}

void GroupFilterModel::findMatches(Rows& rows, bool narrows) const
{
  const auto contains = [&](int row) {
    return rows.names[static_cast<std::size_t>(row)].contains(m_pattern);
  };
  if (narrows) {
    std::erase_if(rows.matching, [&](int row) { return !contains(row); });
    return;
  }
  rows.matching.clear();
  for (int row = 0; row < static_cast<int>(rows.names.size()); ++row) {
    if (contains(row))
      rows.matching.push_back(row);
  }
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
  filter(false);
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
  if (readNamesAgain(first, last)) {
    beginLayout();
    showMatches();
  }
  const auto& shown = rowsOf(first.parent()).shown;
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
      isFiltering() ? rowsOf(sourceParent).shown[static_cast<std::size_t>(row)] : row;
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
  const bool isElement =
      sourceParent.isValid() && (sourceParent.parent().isValid() || !isGroup(sourceParent.row()));
  return isElement ? 0 : sizeOf(rowsOf(sourceParent).shown);
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
  const auto& shown = rowsOf(sourceParent).shown;
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
  const int row = positionOf(sourceIndex.row(), rowsOf(sourceParent).shown);
  return row < 0 ? QModelIndex() : createIndex(row, sourceIndex.column(), pointer);
}

}
