// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Differences/ListComparison.h"
#include "GroupHosting/Differences/ListEdit.h"
#include "HighLevelServices/GroupCommands/MemberLists.h"
#include "HighLevelServices/Groups/TKGroup.h"
#include "Identifier/Identifier.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik::GroupLists {

/// How a group that is in both lists changes.
template <class T>
struct GroupEdit {
  std::size_t positionBefore = 0;
  std::size_t positionAfter = 0;
  std::string nameBefore; ///< empty, like nameAfter, when the name stays
  std::string nameAfter;
  ListEdit members;
  std::vector<T> removed;
  std::vector<T> inserted;
};

/// How one list of groups becomes another. Groups with the same id are the same. Not for hosts.
template <class T>
struct GroupListEdit {
  ListEdit groups;
  std::vector<TKGroup<T>> removed;
  std::vector<TKGroup<T>> inserted;
  std::vector<GroupEdit<T>> changed; ///< ascending by positionAfter
};

/// Whether nothing changes.
template <class T>
bool isEmpty(const GroupListEdit<T>& edit)
{
  return isEmpty(edit.groups) && edit.changed.empty();
}

enum class Direction { Forward, Backward };

/// The entries of a list at these positions.
template <class Entry>
std::vector<Entry> entriesAt(const std::vector<Run>& runs, const std::vector<Entry>& list)
{
  std::vector<Entry> entries;
  entries.reserve(totalOf(runs));
  for (const auto& run : runs) {
    const auto first = list.begin() + static_cast<std::ptrdiff_t>(run.position);
    entries.insert(entries.end(), first, first + static_cast<std::ptrdiff_t>(run.count));
  }
  return entries;
}

/// Whether the entries of a list at these positions are equal to those in order.
template <class Entry, class Equal>
bool areAt(const std::vector<Run>& runs,
           const std::vector<Entry>& entries,
           const std::vector<Entry>& list,
           Equal equal)
{
  auto entry = entries.begin();
  return std::all_of(runs.begin(), runs.end(), [&](const Run& run) {
    const auto first = list.begin() + static_cast<std::ptrdiff_t>(run.position);
    const auto begin = std::exchange(entry, entry + static_cast<std::ptrdiff_t>(run.count));
    return std::equal(begin, entry, first, equal);
  });
}

/// Whether two groups have the same id, name and members.
template <class T>
bool areSame(const TKGroup<T>& a, const TKGroup<T>& b)
{
  return a.getId() == b.getId() && a.getName() == b.getName() &&
         a.getGroupMembers() == b.getGroupMembers();
}

template <class T>
std::vector<Identifier> idsOf(const std::vector<TKGroup<T>>& groups)
{
  std::vector<Identifier> ids;
  ids.reserve(groups.size());
  for (const auto& group : groups)
    ids.push_back(group.getId());
  return ids;
}

/// The edit of a group that is in both lists; nothing when it does not change.
template <class T>
std::optional<GroupEdit<T>> editBetween(const TKGroup<T>& before, const TKGroup<T>& after)
{
  const auto& membersBefore = before.getGroupMembers();
  const auto& membersAfter = after.getGroupMembers();
  const bool isRenamed = before.getName() != after.getName();
  if (!isRenamed && membersBefore == membersAfter)
    return {};
  GroupEdit<T> edit{};
  if (isRenamed) {
    edit.nameBefore = before.getName();
    edit.nameAfter = after.getName();
  }
  edit.members = editBetween(membersBefore, membersAfter);
  edit.removed = entriesAt(edit.members.removed, membersBefore);
  edit.inserted = entriesAt(edit.members.inserted, membersAfter);
  return edit;
}

/// The edit from one list of groups to another.
/// @param compared  called as `compared(position before, position after, whether the group
/// changes)`
///                  for each group that is in both lists, just after its members have been read
template <class T, class Compared>
GroupListEdit<T> editBetween(const std::vector<TKGroup<T>>& before,
                             const std::vector<TKGroup<T>>& after,
                             Compared compared)
{
  GroupListEdit<T> edit;
  edit.groups = editBetween(idsOf(before), idsOf(after));
  edit.removed = entriesAt(edit.groups.removed, before);
  edit.inserted = entriesAt(edit.groups.inserted, after);
  std::size_t to = 0;
  const auto pieces = piecesOf(edit.groups);
  for (const auto& run : pieces.runs()) {
    const auto end = to + run.count;
    if (run.position == nowhere)
      to = end;
    for (auto from = run.position; to < end; ++from, ++to) {
      auto groupEdit = editBetween(before[from], after[to]);
      compared(from, to, groupEdit.has_value());
      if (!groupEdit)
        continue;
      groupEdit->positionBefore = from;
      groupEdit->positionAfter = to;
      edit.changed.push_back(std::move(*groupEdit));
    }
  }
  edit.changed.shrink_to_fit();
  return edit;
}

/// Does the edit to one group, which must be the one before (or after, when going backward).
/// @return false when it is another one; it is then unchanged
template <class T>
bool apply(const GroupEdit<T>& edit, Direction direction, TKGroup<T>& group)
{
  const bool isForward = direction == Direction::Forward;
  const auto& oldName = isForward ? edit.nameBefore : edit.nameAfter;
  const auto& newName = isForward ? edit.nameAfter : edit.nameBefore;
  const auto& leaving = isForward ? edit.removed : edit.inserted;
  const auto& coming = isForward ? edit.inserted : edit.removed;
  const auto members = isForward ? edit.members : reversed(edit.members);
  const auto& old = group.getGroupMembers();
  const bool isRenamed = oldName != newName;
  if ((isRenamed && group.getName() != oldName) || old.size() != members.sizeBefore ||
      !areAt(members.removed, leaving, old, [](const T& a, const T& b) { return a == b; }))
    return false;

  std::vector<T> edited;
  edited.reserve(members.sizeAfter);
  auto next = coming.begin();
  const auto pieces = piecesOf(members);
  for (const auto& run : pieces.runs()) {
    const auto count = static_cast<std::ptrdiff_t>(run.count);
    const auto first = run.position == nowhere
                           ? std::exchange(next, next + count)
                           : old.begin() + static_cast<std::ptrdiff_t>(run.position);
    edited.insert(edited.end(), first, first + count);
  }
  if (isRenamed)
    group.setName(newName, true);
  MemberLists<T>::swap(group, edited);
  return true;
}

/// A copy of the list with the edit done.
/// @param list    the list before (or after, when going backward)
/// @param copied  called as `copied(position, group)` for each group of the list, just after its
///                members have been read
/// @return nothing when the list is another one, as far as the edit can tell
template <class T, class Copied>
std::optional<std::vector<TKGroup<T>>> applied(const GroupListEdit<T>& edit,
                                               Direction direction,
                                               const std::vector<TKGroup<T>>& list,
                                               Copied copied)
{
  const bool isForward = direction == Direction::Forward;
  const auto& leaving = isForward ? edit.removed : edit.inserted;
  const auto& coming = isForward ? edit.inserted : edit.removed;
  const auto groups = isForward ? edit.groups : reversed(edit.groups);
  if (list.size() != groups.sizeBefore || !areAt(groups.removed, leaving, list, areSame<T>))
    return {};
  for (const auto& run : groups.removed) {
    for (auto i = run.position; i < run.position + run.count; ++i)
      copied(i, list[i]);
  }

  std::vector<const GroupEdit<T>*> editOf(list.size());
  for (const auto& each : edit.changed)
    editOf[isForward ? each.positionBefore : each.positionAfter] = &each;
  std::vector<TKGroup<T>> result;
  result.reserve(groups.sizeAfter);
  auto next = coming.begin();
  const auto pieces = piecesOf(groups);
  for (const auto& run : pieces.runs()) {
    if (run.position == nowhere) {
      const auto first = std::exchange(next, next + static_cast<std::ptrdiff_t>(run.count));
      result.insert(result.end(), first, next);
      continue;
    }
    for (auto i = run.position; i < run.position + run.count; ++i) {
      result.push_back(list[i]);
      copied(i, list[i]);
      if (editOf[i] != nullptr && !apply(*editOf[i], direction, result.back()))
        return {};
    }
  }
  return result;
}

/// The memory that a text keeps outside of itself.
inline std::size_t bytesOf(const std::string& text)
{
  return text.capacity() > std::string().capacity() ? text.capacity() + 1 : 0;
}

template <class T>
std::size_t bytesOf(const std::vector<TKGroup<T>>& groups)
{
  std::size_t bytes = groups.capacity() * sizeof(TKGroup<T>);
  for (const auto& group : groups)
    bytes += bytesOf(group.getName()) + bytesOf(group.getGroupMembers());
  return bytes;
}

/// The memory of an edit, without the object itself.
template <class T>
std::size_t bytesOf(const GroupListEdit<T>& edit)
{
  std::size_t bytes = bytesOf(edit.groups) + bytesOf(edit.removed) + bytesOf(edit.inserted) +
                      edit.changed.capacity() * sizeof(GroupEdit<T>);
  for (const auto& each : edit.changed)
    bytes += bytesOf(each.nameBefore) + bytesOf(each.nameAfter) + bytesOf(each.members) +
             bytesOf(each.removed) + bytesOf(each.inserted);
  return bytes;
}

}
