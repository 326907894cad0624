// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Providers/GroupsChange.h"
#include "HighLevelServices/GroupCommands/Search.h"
#include "QtModels/Models/LayoutUpdate.h"
#include "QtModels/Models/ShownGroups.h"
#include "QtModels/Models/Travellers.h"

#include <QtCore/QAbstractItemModel>

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik::ShownLists {

/// Changes what a model shows, and tells each step as it is done.
///
/// Memory is taken before a step begins to be told.
template <class T>
class StepwiseUpdate {
public:
  explicit StepwiseUpdate(GroupItemModel<T>& model) : m_model(model), m_shown(model.m_shown) {}

  void removeGroups(const GroupsRemoved<T>& step);
  void moveGroups(const GroupsMoved& step);
  void reorderGroups(const GroupsReordered& step);
  void insertGroups(const GroupsInserted<T>& step);
  void rename(std::size_t group, const std::string& name);
  void remove(std::size_t list, std::size_t position, const std::vector<T>& elements);
  void move(std::size_t list, std::size_t from, std::size_t count, std::size_t to);
  void reorder(std::size_t list, const std::vector<std::uint32_t>& order);
  void insert(std::size_t list, std::size_t position, const std::vector<T>& elements);
  void pass(const Passage& passage);

private:
  static bool isGroup(std::size_t list) { return list != GroupLists::nowhere; }
  std::vector<T>& elementsOf(std::size_t list)
  {
    return isGroup(list) ? m_shown.groups[list]->members : m_shown.ungrouped;
  }
  QModelIndex indexOf(std::size_t list) const
  {
    return isGroup(list) ? m_model.index(static_cast<int>(list), 0) : QModelIndex();
  }

  /// The row of a position in a list.
  int rowOf(std::size_t list, std::size_t position) const
  {
    return static_cast<int>(isGroup(list) ? position : m_shown.groups.size() + position);
  }

  GroupItemModel<T>& m_model;
  ShownGroups<T>& m_shown;
};

template <class T>
void StepwiseUpdate<T>::removeGroups(const GroupsRemoved<T>& step)
{
  const auto count = step.groups.size();
  typename ShownGroups<T>::Groups removed; // they live until views have forgotten them
  removed.reserve(count);
  m_model.beginRemoveRows({}, static_cast<int>(step.position),
                          static_cast<int>(step.position + count - 1));
  for (std::size_t i = 0; i < count; ++i)
    removed.push_back(std::move(m_shown.groups[step.position + i]));
  ShownLists::remove(m_shown.groups, step.position, count);
  m_shown.number(step.position);
  m_model.endRemoveRows();
}

template <class T>
void StepwiseUpdate<T>::moveGroups(const GroupsMoved& step)
{
  const auto from = static_cast<int>(step.from);
  const auto next = static_cast<int>(step.to > step.from ? step.to + step.count : step.to);
  m_model.beginMoveRows({}, from, from + static_cast<int>(step.count) - 1, {}, next);
  ShownLists::move(m_shown.groups, step.from, step.count, step.to);
  m_shown.number(0);
  m_model.endMoveRows();
}

template <class T>
void StepwiseUpdate<T>::reorderGroups(const GroupsReordered& step)
{
  LayoutUpdate<T> update(m_model, {QPersistentModelIndex()}, QAbstractItemModel::VerticalSortHint);
  update.reorderGroups(step);
  update.finish();
}

template <class T>
void StepwiseUpdate<T>::insertGroups(const GroupsInserted<T>& step)
{
  auto groups = shown(step.groups);
  makeRoom(m_shown.groups, groups.size());
  m_model.beginInsertRows({}, static_cast<int>(step.position),
                          static_cast<int>(step.position + groups.size() - 1));
  ShownLists::insert(m_shown.groups, step.position, std::move(groups));
  m_shown.number(step.position);
  m_model.endInsertRows();
}

template <class T>
void StepwiseUpdate<T>::rename(std::size_t group, const std::string& name)
{
  m_shown.groups[group]->name = name;
  m_model.tellNames(static_cast<int>(group), static_cast<int>(group));
}

template <class T>
void StepwiseUpdate<T>::remove(std::size_t list,
                               std::size_t position,
                               const std::vector<T>& elements)
{
  m_model.beginRemoveRows(indexOf(list), rowOf(list, position),
                          rowOf(list, position + elements.size() - 1));
  ShownLists::remove(elementsOf(list), position, elements.size());
  m_model.endRemoveRows();
}

template <class T>
void StepwiseUpdate<T>::move(std::size_t list, std::size_t from, std::size_t count, std::size_t to)
{
  const auto parent = indexOf(list);
  m_model.beginMoveRows(parent, rowOf(list, from), rowOf(list, from + count - 1), parent,
                        rowOf(list, to > from ? to + count : to));
  ShownLists::move(elementsOf(list), from, count, to);
  m_model.endMoveRows();
}

template <class T>
void StepwiseUpdate<T>::reorder(std::size_t list, const std::vector<std::uint32_t>& order)
{
  LayoutUpdate<T> update(m_model, {QPersistentModelIndex(indexOf(list))},
                         QAbstractItemModel::VerticalSortHint);
  update.reorder(list, order);
  update.finish();
}

template <class T>
void StepwiseUpdate<T>::insert(std::size_t list,
                               std::size_t position,
                               const std::vector<T>& elements)
{
  makeRoom(elementsOf(list), elements.size());
  m_model.beginInsertRows(indexOf(list), rowOf(list, position),
                          rowOf(list, position + elements.size() - 1));
  elementsOf(list).insert(at(elementsOf(list), position), elements.begin(), elements.end());
  m_model.endInsertRows();
}

/// Elements go from one list to another.
template <class T>
void StepwiseUpdate<T>::pass(const Passage& passage)
{
  auto& from = elementsOf(passage.fromList);
  auto& to = elementsOf(passage.toList);
  makeRoom(to, passage.count);
  m_model.beginMoveRows(indexOf(passage.fromList), rowOf(passage.fromList, passage.from),
                        rowOf(passage.fromList, passage.from + passage.count - 1),
                        indexOf(passage.toList), rowOf(passage.toList, passage.to));
  to.insert(at(to, passage.to), at(from, passage.from), at(from, passage.from + passage.count));
  ShownLists::remove(from, passage.from, passage.count);
  m_model.endMoveRows();
}

}
