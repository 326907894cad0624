// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Providers/GroupsChange.h"
#include "QtModels/Models/CollectedSteps.h"
#include "QtModels/Models/FollowedRows.h"
#include "QtModels/Models/ShownGroups.h"

#include <QtCore/QAbstractItemModel>
#include <QtCore/QList>
#include <QtCore/QPersistentModelIndex>

#include <cstddef>
#include <cstdint>
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
///
/// Steps wait until there is one of another list, and are then done in one pass: see
/// CollectedSteps. So a list is walked through once, however many steps it has. All steps of a list
/// must come together, in the order of a GroupsChange.
template <class T>
class LayoutUpdate {
public:
  /// @param parents  below which rows change; empty: anywhere
  explicit LayoutUpdate(
      GroupItemModel<T>& model,
      const QList<QPersistentModelIndex>& parents = {},
      QAbstractItemModel::LayoutChangeHint hint = QAbstractItemModel::NoLayoutChangeHint);
  LayoutUpdate(const LayoutUpdate&) = delete;
  LayoutUpdate& operator=(const LayoutUpdate&) = delete;

  /// If the update has failed, leaves the model empty and its persistent indexes invalid: it must
  /// be reset then.
  ~LayoutUpdate();

  void removeGroups(const GroupsRemoved<T>& step);
  void moveGroups(const GroupsMoved& step);
  void reorderGroups(const GroupsReordered& step);
  void insertGroups(const GroupsInserted<T>& step);
  void rename(std::size_t group, const std::string& name);
  void remove(std::size_t list, std::size_t position, const std::vector<T>& elements);
  void move(std::size_t list, std::size_t from, std::size_t count, std::size_t to);
  void reorder(std::size_t list, const std::vector<std::uint32_t>& order);
  void insert(std::size_t list, std::size_t position, const std::vector<T>& elements);

  /// Tells the model's views. Nothing may be changed after it. What was inserted must still exist.
  void finish();

private:
  using Rows = FollowedRows<T, const ShownGroup<T>*>;
  using Place = typename Rows::Place;
  using Groups = typename ShownGroups<T>::Groups;
  using GroupPointer = typename Groups::value_type;

  /// What a persistent index shows: a group, or an element at a place.
  struct Target {
    const ShownGroup<T>* group;
    Place place;
  };

  /// Steps of one list that are not done yet.
  template <class Entry>
  struct Waiting {
    CollectedSteps steps;
    std::vector<Entry> coming;
  };

  void begin();
  Waiting<GroupPointer>& waitingOfGroups();
  Waiting<T>& waitingOf(std::size_t list);
  void doWaitingSteps();
  void doSteps(Waiting<GroupPointer>& waiting);
  void doSteps(Waiting<T>& waiting);
  ShownGroup<T>* groupAt(std::size_t list) const
  {
    return list == GroupLists::nowhere ? nullptr : m_shown.groups[list].get();
  }
  std::vector<T>& elementsOf(std::size_t list)
  {
    auto* const group = groupAt(list);
    return group ? group->members : m_shown.ungrouped;
  }
  Target targetOf(const QModelIndex& index) const;
  QModelIndex indexOf(const Target& target, int column) const;

  GroupItemModel<T>& m_model;
  ShownGroups<T>& m_shown;
  QList<QPersistentModelIndex> m_parents;
  QAbstractItemModel::LayoutChangeHint m_hint;
  QModelIndexList m_persistent;
  QModelIndexList m_persistentNow; ///< where they are after the update: nowhere, until finish()
  std::vector<Target> m_targets;   ///< of the persistent indexes
  Rows m_rows;
  std::optional<Waiting<GroupPointer>> m_waitingOfGroups; ///< if set, nothing else waits
  std::optional<Waiting<T>> m_waitingOfList;
  std::size_t m_list = GroupLists::nowhere; ///< whose steps wait
  std::vector<Groups> m_removed;            ///< kept, with gaps: persistent indexes refer to them
  bool m_isFinished = false;
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
  m_persistentNow.resize(m_persistent.size()); // an update that fails needs no memory
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
  doWaitingSteps();
  m_shown.number(0);
  m_rows.finish();
  for (qsizetype i = 0; i < m_persistent.size(); ++i)
    m_persistentNow[i] = indexOf(m_targets[static_cast<std::size_t>(i)], m_persistent[i].column());
  m_model.changePersistentIndexList(m_persistent, m_persistentNow);
  m_isFinished = true;
  Q_EMIT m_model.layoutChanged(m_parents, m_hint);
}

template <class T>
LayoutUpdate<T>::~LayoutUpdate()
{
  if (m_isFinished)
    return;
  const auto gone = std::exchange(m_shown, {}); // until no persistent index refers to it
  m_persistentNow.fill(QModelIndex());
  try {
    m_model.changePersistentIndexList(m_persistent, m_persistentNow);
    Q_EMIT m_model.layoutChanged(m_parents, m_hint);
  } catch (...) { // NOLINT(bugprone-empty-catch): a reset follows, which tells everything
  }
}

template <class T>
void LayoutUpdate<T>::removeGroups(const GroupsRemoved<T>& step)
{
  waitingOfGroups().steps.remove(step.position, step.groups.size());
}

template <class T>
void LayoutUpdate<T>::moveGroups(const GroupsMoved& step)
{
  waitingOfGroups().steps.move(step.from, step.count, step.to);
}

template <class T>
void LayoutUpdate<T>::reorderGroups(const GroupsReordered& step)
{
  waitingOfGroups().steps.reorder(step.order);
}

template <class T>
void LayoutUpdate<T>::insertGroups(const GroupsInserted<T>& step)
{
  auto& waiting = waitingOfGroups();
  auto groups = shown(step.groups);
  for (std::size_t i = 0; i < groups.size(); ++i)
    m_rows.came(groups[i].get(), 0, step.groups[i].getGroupMembers());
  waiting.steps.insert(step.position, groups.size());
  ShownLists::insert(waiting.coming, waiting.coming.size(), std::move(groups));
}

template <class T>
void LayoutUpdate<T>::rename(std::size_t group, const std::string& name)
{
  doWaitingSteps();
  m_shown.groups[group]->name = name;
}

template <class T>
void LayoutUpdate<T>::remove(std::size_t list, std::size_t position, const std::vector<T>& elements)
{
  waitingOf(list).steps.remove(position, elements.size());
}

template <class T>
void LayoutUpdate<T>::move(std::size_t list, std::size_t from, std::size_t count, std::size_t to)
{
  waitingOf(list).steps.move(from, count, to);
}

template <class T>
void LayoutUpdate<T>::reorder(std::size_t list, const std::vector<std::uint32_t>& order)
{
  waitingOf(list).steps.reorder(order);
}

template <class T>
void LayoutUpdate<T>::insert(std::size_t list, std::size_t position, const std::vector<T>& elements)
{
  auto& waiting = waitingOf(list);
  waiting.steps.insert(position, elements.size());
  waiting.coming.insert(waiting.coming.end(), elements.begin(), elements.end());
  m_rows.came(groupAt(list), position, elements);
}

/// For a step of the list of groups. Others must be done before it.
template <class T>
auto LayoutUpdate<T>::waitingOfGroups() -> Waiting<GroupPointer>&
{
  if (!m_waitingOfGroups) {
    doWaitingSteps();
    m_waitingOfGroups = {CollectedSteps(m_shown.groups.size()), {}};
  }
  return *m_waitingOfGroups;
}

/// For a step of a list of elements. Others must be done before it.
template <class T>
auto LayoutUpdate<T>::waitingOf(std::size_t list) -> Waiting<T>&
{
  if (!m_waitingOfList || m_list != list) {
    doWaitingSteps();
    m_list = list;
    m_waitingOfList = {CollectedSteps(elementsOf(list).size()), {}};
  }
  return *m_waitingOfList;
}

template <class T>
void LayoutUpdate<T>::doWaitingSteps()
{
  if (m_waitingOfGroups)
    doSteps(*m_waitingOfGroups);
  if (m_waitingOfList)
    doSteps(*m_waitingOfList);
  m_waitingOfGroups.reset();
  m_waitingOfList.reset();
}

template <class T>
void LayoutUpdate<T>::doSteps(Waiting<GroupPointer>& waiting)
{
  auto& groups = m_removed.emplace_back();
  groups = rebuilt(m_shown.groups, waiting.steps.pieces(), waiting.coming);
  groups.swap(m_shown.groups);
  for (const auto& removed : groups) {
    if (!removed)
      continue; // it is shown
    m_rows.rearranged(removed.get(), removed->members, {});
    removed->row = -1;
  }
}

template <class T>
void LayoutUpdate<T>::doSteps(Waiting<T>& waiting)
{
  auto& elements = elementsOf(m_list);
  const auto pieces = waiting.steps.pieces();
  m_rows.rearranged(groupAt(m_list), elements, pieces);
  if (waiting.steps.onlyRemove())
    keepOnly(elements, pieces);
  else
    elements = rebuilt(elements, pieces, waiting.coming);
}

}
}
