// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Differences/GroupListStep.h"
#include "HighLevelServices/Groups/TKGroup.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <variant>
#include <vector>

/// Does steps to a list of groups, one by one and as plainly as possible: what a view would do.
namespace Tarvik {

template <class... Functions>
struct Overloaded : Functions... {
  using Functions::operator()...;
};
template <class... Functions>
Overloaded(Functions...) -> Overloaded<Functions...>;

/// A list of entries that can be edited in place, without copies of groups in a vector.
template <class Entry>
class EditedList {
public:
  explicit EditedList(const std::vector<Entry>& entries) : m_entries(entries) {}

  void insert(std::size_t position, const std::vector<Entry>& entries)
  {
    std::vector<Entry> result(m_entries.cbegin(), at(position));
    result.insert(result.end(), entries.begin(), entries.end());
    result.insert(result.end(), at(position), m_entries.cend());
    m_entries.swap(result);
  }

  std::vector<Entry> remove(std::size_t position, std::size_t count)
  {
    std::vector<Entry> removed(at(position), at(position + count));
    std::vector<Entry> result(m_entries.cbegin(), at(position));
    result.insert(result.end(), at(position + count), m_entries.cend());
    m_entries.swap(result);
    return removed;
  }

  void move(std::size_t from, std::size_t count, std::size_t to)
  {
    insert(to, remove(from, count));
  }

  template <class Order>
  void reorder(const Order& order)
  {
    std::vector<Entry> result;
    for (const auto position : order)
      result.push_back(m_entries.at(position));
    m_entries.swap(result);
  }

  const std::vector<Entry>& entries() const { return m_entries; }

private:
  auto at(std::size_t position) const
  {
    return m_entries.cbegin() + static_cast<std::ptrdiff_t>(position);
  }

  std::vector<Entry> m_entries;
};

/// Edits the members of a group.
template <class T, class Edit>
void editMembers(std::vector<TKGroup<T>>& groups, std::size_t group, Edit edit)
{
  EditedList<T> members(groups.at(group).getGroupMembers());
  edit(members);
  groups[group].clear();
  groups[group].addGroupMembersAtIndex(members.entries(), -1);
}

/// Edits the list of groups.
template <class T, class Edit>
void editGroups(std::vector<TKGroup<T>>& groups, Edit edit)
{
  EditedList<TKGroup<T>> list(groups);
  edit(list);
  groups = list.entries();
}

template <class T>
void doStep(std::vector<TKGroup<T>>& groups, const GroupListStep<T>& step)
{
  std::visit(
      Overloaded{
          [&](const GroupsRemoved<T>& each) {
            editGroups(groups, [&](auto& list) { list.remove(each.position, each.groups.size()); });
          },
          [&](const GroupsMoved& each) {
            editGroups(groups, [&](auto& list) { list.move(each.from, each.count, each.to); });
          },
          [&](const GroupsReordered& each) {
            editGroups(groups, [&](auto& list) { list.reorder(each.order); });
          },
          [&](const GroupsInserted<T>& each) {
            editGroups(groups, [&](auto& list) { list.insert(each.position, each.groups); });
          },
          [&](const GroupRenamed& each) { groups.at(each.group).setName(each.after, true); },
          [&](const MembersRemoved<T>& each) {
            editMembers(groups, each.group,
                        [&](auto& list) { list.remove(each.position, each.members.size()); });
          },
          [&](const MembersMoved& each) {
            editMembers(groups, each.group,
                        [&](auto& list) { list.move(each.from, each.count, each.to); });
          },
          [&](const MembersReordered& each) {
            editMembers(groups, each.group, [&](auto& list) { list.reorder(each.order); });
          },
          [&](const MembersInserted<T>& each) {
            editMembers(groups, each.group,
                        [&](auto& list) { list.insert(each.position, each.members); });
          }},
      step);
}

}
