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

/// A step in words: "A B leave 2", "0: 1 members move from 1 to 5".
template <class T>
std::string textOf(const GroupListStep<T>& step)
{
  const auto text = [](std::size_t number) { return std::to_string(number); };
  const auto names = [](const auto& groups) {
    std::string result;
    for (const auto& group : groups)
      result += group.getName() + ' ';
    return result;
  };
  const auto numbers = [](const auto& order) {
    std::string result = "order";
    for (const auto position : order)
      result += ' ' + std::to_string(position);
    return result;
  };
  return std::visit(Overloaded{[&](const GroupsRemoved<T>& each) {
                                 return names(each.groups) + "leave " + text(each.position);
                               },
                               [&](const GroupsMoved& each) {
                                 return text(each.count) + " groups move from " + text(each.from) +
                                        " to " + text(each.to);
                               },
                               [&](const GroupsReordered& each) { return numbers(each.order); },
                               [&](const GroupsInserted<T>& each) {
                                 return names(each.groups) + "come to " + text(each.position);
                               },
                               [&](const GroupRenamed& each) {
                                 return text(each.group) + ": " + each.before + " is " + each.after;
                               },
                               [&](const MembersRemoved<T>& each) {
                                 return text(each.group) + ": " + text(each.members.size()) +
                                        " members leave " + text(each.position);
                               },
                               [&](const MembersMoved& each) {
                                 return text(each.group) + ": " + text(each.count) +
                                        " members move from " + text(each.from) + " to " +
                                        text(each.to);
                               },
                               [&](const MembersReordered& each) {
                                 return text(each.group) + ": " + numbers(each.order);
                               },
                               [&](const MembersInserted<T>& each) {
                                 return text(each.group) + ": " + text(each.members.size()) +
                                        " members come to " + text(each.position);
                               }},
                    step);
}

/// How many members some steps remove, move and insert.
struct MemberCounts {
  std::size_t removed = 0;
  std::size_t moved = 0;
  std::size_t inserted = 0;
  bool isReordered = false; ///< `moved` does not tell how many
};

template <class T>
MemberCounts membersOf(const std::vector<GroupListStep<T>>& steps)
{
  MemberCounts counts;
  for (const auto& step : steps) {
    if (const auto* const removed = std::get_if<MembersRemoved<T>>(&step))
      counts.removed += removed->members.size();
    if (const auto* const moved = std::get_if<MembersMoved>(&step))
      counts.moved += moved->count;
    if (const auto* const inserted = std::get_if<MembersInserted<T>>(&step))
      counts.inserted += inserted->members.size();
    counts.isReordered = counts.isReordered || std::holds_alternative<MembersReordered>(step);
  }
  return counts;
}

}
