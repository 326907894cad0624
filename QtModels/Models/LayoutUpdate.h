// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Providers/GroupsChange.h"
#include "QtModels/Models/FollowedRows.h"
#include "QtModels/Models/ShownGroups.h"

#include <QtCore/QAbstractItemModel>
#include <QtCore/QList>
#include <QtCore/QPersistentModelIndex>

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik {

template <class T>
class GroupItemModel;

namespace ShownLists {

/// Changes what a model shows, and tells it as one change of the layout. Persistent indexes follow
/// their groups and elements.
template <class T>
class LayoutUpdate {
public:
  /// @param parents  below which rows change; empty: anywhere
  explicit LayoutUpdate(
      GroupItemModel<T>& model,
      const QList<QPersistentModelIndex>& parents = {},
      QAbstractItemModel::LayoutChangeHint hint = QAbstractItemModel::NoLayoutChangeHint);

  void removeGroups(const GroupsRemoved<T>& step);
  void moveGroups(const GroupsMoved& step);
  void reorderGroups(const GroupsReordered& step);
  void insertGroups(const GroupsInserted<T>& step);
  void rename(ShownGroup<T>& group, const std::string& name);
  void remove(ShownGroup<T>* list, std::size_t position, const std::vector<T>& elements);
  void move(ShownGroup<T>* list, std::size_t from, std::size_t count, std::size_t to);
  void reorder(ShownGroup<T>* list, const std::vector<std::uint32_t>& order);
  void insert(ShownGroup<T>* list, std::size_t position, const std::vector<T>& elements);

  /// Tells the model's views. Nothing may be changed after it. What was inserted must still exist.
  void finish();

private:
  using Rows = FollowedRows<T, const ShownGroup<T>*>;
  using Place = typename Rows::Place;

  /// What a persistent index shows: a group, or an element at a place.
  struct Target {
    const ShownGroup<T>* group;
    Place place;
  };

  std::vector<T>& elementsOf(ShownGroup<T>* list)
  {
    return list ? list->members : m_shown.ungrouped;
  }
  void begin();
  Target targetOf(const QModelIndex& index) const;
  QModelIndex indexOf(const Target& target, int column) const;

  GroupItemModel<T>& m_model;
  ShownGroups<T>& m_shown;
  QList<QPersistentModelIndex> m_parents;
  QAbstractItemModel::LayoutChangeHint m_hint;
  QModelIndexList m_persistent;
  std::vector<Target> m_targets; ///< of the persistent indexes
  Rows m_rows;
  typename ShownGroups<T>::Groups m_removed; ///< kept: persistent indexes refer to them
};

template <class T>
LayoutUpdate<T>::LayoutUpdate(GroupItemModel<T>& model,
                              const QList<QPersistentModelIndex>& parents,
                              QAbstractItemModel::LayoutChangeHint hint)
    : m_model(model), m_shown(model.m_shown), m_parents(parents), m_hint(hint)
{
  begin();
}

/// Notes what the persistent indexes show, after views have made theirs.
template <class T>
void LayoutUpdate<T>::begin()
{
  Q_EMIT m_model.layoutAboutToBeChanged(m_parents, m_hint);
  m_persistent = m_model.persistentIndexList();
  m_targets.reserve(static_cast<std::size_t>(m_persistent.size()));
  for (const auto& index : std::as_const(m_persistent)) {
    m_targets.push_back(targetOf(index));
    if (!m_targets.back().group)
      m_rows.follow(m_targets.back().place);
  }
  m_rows.start();
}

template <class T>
auto LayoutUpdate<T>::targetOf(const QModelIndex& index) const -> Target
{
  const auto row = static_cast<std::size_t>(index.row());
  const auto* group = static_cast<const ShownGroup<T>*>(index.constInternalPointer());
  if (group)
    return {nullptr, {group, row}};
  if (row < m_shown.groups.size())
    return {m_shown.groups[row].get(), {}};
  return {nullptr, {nullptr, row - m_shown.groups.size()}};
}

template <class T>
QModelIndex LayoutUpdate<T>::indexOf(const Target& target, int column) const
{
  if (target.group) {
    const bool isGone = target.group->row < 0;
    return isGone ? QModelIndex() : m_model.createIndex(target.group->row, column);
  }
  const auto place = m_rows.placeOf(target.place);
  if (!place)
    return {};
  const auto first = place->list ? 0 : m_shown.groups.size();
  return m_model.createIndex(static_cast<int>(first + place->position), column, place->list);
}

template <class T>
void LayoutUpdate<T>::finish()
{
  m_shown.number(0);
  m_rows.finish();
  QModelIndexList now;
  now.reserve(m_persistent.size());
  for (std::size_t i = 0; i < m_targets.size(); ++i)
    now.append(indexOf(m_targets[i], m_persistent[static_cast<qsizetype>(i)].column()));
  m_model.changePersistentIndexList(m_persistent, now);
  Q_EMIT m_model.layoutChanged(m_parents, m_hint);
}

template <class T>
void LayoutUpdate<T>::removeGroups(const GroupsRemoved<T>& step)
{
  makeRoom(m_removed, step.groups.size());
  const auto count = step.groups.size();
  for (std::size_t i = 0; i < count; ++i) {
    auto& group = m_shown.groups[step.position + i];
    m_rows.removed(group.get(), 0, group->members);
    group->row = -1;
    m_removed.push_back(std::move(group));
  }
  ShownLists::remove(m_shown.groups, step.position, count);
}

template <class T>
void LayoutUpdate<T>::moveGroups(const GroupsMoved& step)
{
  ShownLists::move(m_shown.groups, step.from, step.count, step.to);
}

template <class T>
void LayoutUpdate<T>::reorderGroups(const GroupsReordered& step)
{
  ShownLists::reorder(m_shown.groups, step.order);
}

template <class T>
void LayoutUpdate<T>::insertGroups(const GroupsInserted<T>& step)
{
  auto groups = shown(step.groups);
  for (std::size_t i = 0; i < groups.size(); ++i)
    m_rows.inserted(groups[i].get(), 0, step.groups[i].getGroupMembers());
  ShownLists::insert(m_shown.groups, step.position, std::move(groups));
}

template <class T>
void LayoutUpdate<T>::rename(ShownGroup<T>& group, const std::string& name)
{
  group.name = name;
}

template <class T>
void LayoutUpdate<T>::remove(ShownGroup<T>* list,
                             std::size_t position,
                             const std::vector<T>& elements)
{
  m_rows.removed(list, position, elements);
  ShownLists::remove(elementsOf(list), position, elements.size());
}

template <class T>
void LayoutUpdate<T>::move(ShownGroup<T>* list, std::size_t from, std::size_t count, std::size_t to)
{
  m_rows.moved(list, from, count, to);
  ShownLists::move(elementsOf(list), from, count, to);
}

template <class T>
void LayoutUpdate<T>::reorder(ShownGroup<T>* list, const std::vector<std::uint32_t>& order)
{
  m_rows.reordered(list, order);
  ShownLists::reorder(elementsOf(list), order);
}

template <class T>
void LayoutUpdate<T>::insert(ShownGroup<T>* list,
                             std::size_t position,
                             const std::vector<T>& elements)
{
  m_rows.inserted(list, position, elements);
  ShownLists::insert(elementsOf(list), position, elements);
}

}
}
