// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Differences/ListComparison.h"
#include "GroupHosting/Differences/ListEdit.h"
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

/// What leaves when the edit is done in that direction: of a list, a group, or a list of groups.
template <class Edit>
const auto& leaving(const Edit& edit, Direction direction)
{
  return direction == Direction::Forward ? edit.removed : edit.inserted;
}

/// What comes when the edit is done in that direction.
template <class Edit>
const auto& coming(const Edit& edit, Direction direction)
{
  return direction == Direction::Forward ? edit.inserted : edit.removed;
}

/// The edit that does the same in that direction.
inline ListEdit directed(const ListEdit& edit, Direction direction)
{
  return direction == Direction::Forward ? edit : reversed(edit);
}

/// Where the group is before an edit in that direction.
template <class T>
std::size_t positionBefore(const GroupEdit<T>& edit, Direction direction)
{
  return direction == Direction::Forward ? edit.positionBefore : edit.positionAfter;
}

/// Where the group is after an edit in that direction.
template <class T>
std::size_t positionAfter(const GroupEdit<T>& edit, Direction direction)
{
  return direction == Direction::Forward ? edit.positionAfter : edit.positionBefore;
}

template <class T>
bool isRenamed(const GroupEdit<T>& edit)
{
  return edit.nameBefore != edit.nameAfter;
}

/// The name before an edit in that direction, if the group is renamed.
template <class T>
const std::string& nameBefore(const GroupEdit<T>& edit, Direction direction)
{
  return direction == Direction::Forward ? edit.nameBefore : edit.nameAfter;
}

/// The name after an edit in that direction, if the group is renamed.
template <class T>
const std::string& nameAfter(const GroupEdit<T>& edit, Direction direction)
{
  return direction == Direction::Forward ? edit.nameAfter : edit.nameBefore;
}

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
