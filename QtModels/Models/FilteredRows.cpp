// SPDX-License-Identifier: MIT
#include "QtModels/Models/FilteredRows.h"

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

void FilteredRows::setSource(const QAbstractItemModel* source)
{
  m_source = source;
  readAll();
}

void FilteredRows::setPattern(const QString& pattern)
{
  const auto before = std::exchange(m_pattern, pattern);
  if (before.isEmpty() || pattern.isEmpty())
    return readAll();
  forgetMatches(pattern.contains(before));
  filter();
}

const std::vector<int>& FilteredRows::shownBelow(const QModelIndex& parent) const
{
  return (parent.isValid() ? *m_groups[static_cast<std::size_t>(parent.row())] : m_top).shown;
}

bool FilteredRows::isGroup(int row) const
{
  return static_cast<std::size_t>(row) < m_groups.size();
}

int FilteredRows::shownGroups() const
{
  const auto end = std::lower_bound(m_top.shown.begin(), m_top.shown.end(), groups());
  return static_cast<int>(end - m_top.shown.begin());
}

int FilteredRows::matchingGroups() const
{
  return static_cast<int>(std::count_if(m_top.matching.begin(), m_top.matching.end(),
                                        [this](int row) { return isGroup(row); }));
}

int FilteredRows::matchingElements() const
{
  return std::accumulate(m_groups.begin(), m_groups.end(),
                         sizeOf(m_top.matching) - matchingGroups(),
                         [](int sum, const auto& group) { return sum + sizeOf(group->matching); });
}

void FilteredRows::insert(const QModelIndex& parent, int first, int last)
{
  putRange(parent, first, readRange(parent, first, last));
}

void FilteredRows::remove(const QModelIndex& parent, int first, int last)
{
  takeRange(parent, first, last);
}

void FilteredRows::move(
    const QModelIndex& parent, int first, int last, const QModelIndex& to, int row)
{
  const bool isAfter = parent == to && row > last;
  putRange(to, isAfter ? row - (last - first + 1) : row, takeRange(parent, first, last));
}

void FilteredRows::readAgain(const Parents& parents)
{
  const bool isBelowGroups =
      !parents.isEmpty() &&
      std::all_of(parents.begin(), parents.end(),
                  [](const QPersistentModelIndex& parent) { return parent.isValid(); });
  if (!isBelowGroups)
    return readAll();
  for (const QModelIndex parent : parents)
    rowsOf(parent) = *readRows(parent);
}

bool FilteredRows::readNamesAgain(const QModelIndex& first, const QModelIndex& last)
{
  bool doOthersMatch = false;
  auto& rows = rowsOf(first.parent());
  for (int row = first.row(); row <= last.row(); ++row) {
    auto name = nameAt(row, first.parent());
    auto& known = rows.names[static_cast<std::size_t>(row)];
    doOthersMatch =
        doOthersMatch || (name != known && name.contains(m_pattern) != known.contains(m_pattern));
    known = std::move(name);
  }
  if (doOthersMatch)
    rows.matches = Matches::Unknown;
  return doOthersMatch;
}

auto FilteredRows::rowsOf(const QModelIndex& parent) -> Rows&
{
  return parent.isValid() ? *m_groups[static_cast<std::size_t>(parent.row())] : m_top;
}

QString FilteredRows::nameAt(int row, const QModelIndex& parent) const
{
  return m_source->index(row, 0, parent).data().toString().toCaseFolded();
}

auto FilteredRows::readRows(const QModelIndex& parent) const -> std::unique_ptr<Rows>
{
  auto rows = std::make_unique<Rows>();
  const int count = m_source->rowCount(parent);
  rows->names.reserve(static_cast<std::size_t>(count));
  for (int row = 0; row < count; ++row)
    rows->names.push_back(nameAt(row, parent));
  return rows;
}

/// Reads all names of the source, or forgets them when nothing is filtered.
void FilteredRows::readAll()
{
  m_top = {};
  m_groups.clear();
  if (!isFiltering() || !m_source)
    return;
  auto all = readRange({}, 0, m_source->rowCount() - 1);
  m_top.names = std::move(all.names);
  m_groups = std::move(all.groups);
  filter();
}

auto FilteredRows::readRange(const QModelIndex& parent, int first, int last) const -> TakenRows
{
  TakenRows read;
  for (int row = first; row <= last; ++row) {
    const auto index = m_source->index(row, 0, parent);
    const auto kind = index.data(GroupItemModelBase::KindRole).value<GroupItemModelBase::RowKind>();
    read.names.push_back(nameAt(row, parent));
    if (kind == GroupItemModelBase::RowKind::Group)
      read.groups.push_back(readRows(index));
  }
  return read;
}

auto FilteredRows::takeRange(const QModelIndex& parent, int first, int last) -> TakenRows
{
  TakenRows result;
  auto& rows = rowsOf(parent);
  rows.matches = Matches::Unknown;
  result.names = taken(rows.names, first, last);
  if (!parent.isValid() && isGroup(first))
    result.groups = taken(m_groups, first, (std::min)(last, static_cast<int>(m_groups.size()) - 1));
  return result;
}

void FilteredRows::putRange(const QModelIndex& parent, int row, TakenRows rows)
{
  const auto position = static_cast<std::size_t>(row);
  auto& list = rowsOf(parent);
  list.matches = Matches::Unknown;
  ShownLists::insert(list.names, position, std::move(rows.names));
  if (!rows.groups.empty())
    ShownLists::insert(m_groups, position, std::move(rows.groups));
}

/// Lets filter() search all lists, for another text.
/// @param narrows  whether only rows that match now can match it
void FilteredRows::forgetMatches(bool narrows)
{
  const auto forget = [narrows](Rows& rows) {
    if (!narrows)
      rows.matches = Matches::Unknown;
    else if (rows.matches == Matches::Known)
      rows.matches = Matches::TooMany;
  };
  forget(m_top);
  for (const auto& group : m_groups)
    forget(*group);
}

void FilteredRows::filter()
{
  findMatches(m_top);
  m_top.shown.clear();
  auto next = m_top.matching.begin();
  for (int row = 0; row < groups(); ++row) {
    auto& group = *m_groups[static_cast<std::size_t>(row)];
    const bool matchesItself = next != m_top.matching.end() && *next == row;
    if (matchesItself)
      ++next;
    showMembers(group, matchesItself);
    if (matchesItself || !group.matching.empty())
      m_top.shown.push_back(row);
  }
  m_top.shown.insert(m_top.shown.end(), next, m_top.matching.end());
}

/// Finds out which members of a group are shown, unless that is known.
/// @param isWhole  whether all of them are
void FilteredRows::showMembers(Rows& group, bool isWhole) const
{
  if (group.matches == Matches::Known && group.isWhole == isWhole)
    return;
  findMatches(group);
  group.isWhole = isWhole;
  if (!isWhole) {
    group.shown = group.matching;
    return;
  }
  group.shown.resize(group.names.size());
  std::iota(group.shown.begin(), group.shown.end(), 0);
}

void FilteredRows::findMatches(Rows& rows) const
{
  const auto contains = [&](int row) {
    return rows.names[static_cast<std::size_t>(row)].contains(m_pattern);
  };
  if (rows.matches == Matches::TooMany)
    std::erase_if(rows.matching, [&](int row) { return !contains(row); });
  if (rows.matches == Matches::Unknown) {
    rows.matching.clear();
    for (int row = 0; row < static_cast<int>(rows.names.size()); ++row) {
      if (contains(row))
        rows.matching.push_back(row);
    }
  }
  rows.matches = Matches::Known;
}

}
