// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Differences/GroupListEdit.h"
#include "HighLevelServices/GroupCommands/MemberLists.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

/// Does edits to groups and to lists of groups.
namespace Tarvik::GroupLists {

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

/// Whether the edit may be done to the group, as far as the edit can tell: its old name, its number
/// of members, and those that leave.
template <class T>
bool fits(const GroupEdit<T>& edit, Direction direction, const TKGroup<T>& group)
{
  const auto& members = group.getGroupMembers();
  const auto size =
      direction == Direction::Forward ? edit.members.sizeBefore : edit.members.sizeAfter;
  return (!isRenamed(edit) || group.getName() == nameBefore(edit, direction)) &&
         members.size() == size &&
         areAt(leaving(edit.members, direction), leaving(edit, direction), members,
               [](const T& a, const T& b) { return a == b; });
}

/// A copy of a list of which entries leave, and into which others come, while none moves.
/// @param left  runs of the list, ascending
/// @param came  runs of the copy, ascending
/// @param more  the entries that come
/// @param size  of the copy
template <class T>
std::vector<T> copyWithoutMoves(const std::vector<T>& list,
                                const std::vector<Run>& left,
                                const std::vector<Run>& came,
                                const std::vector<T>& more,
                                std::size_t size)
{
  std::vector<T> copy;
  copy.reserve(size);
  const auto append = [&copy](const std::vector<T>& entries, std::size_t& next, std::size_t count) {
    const auto first = entries.begin() + static_cast<std::ptrdiff_t>(next);
    copy.insert(copy.end(), first, first + static_cast<std::ptrdiff_t>(count));
    next += count;
  };
  std::size_t next = 0; // of the list
  auto gap = left.begin();
  const auto appendUntil = [&](std::size_t end) { // of the copy
    for (; gap != left.end() && gap->position - next <= end - copy.size(); ++gap) {
      append(list, next, gap->position - next);
      next += gap->count;
    }
    append(list, next, end - copy.size());
  };
  std::size_t nextOfMore = 0;
  for (const auto& run : came) {
    appendUntil(run.position);
    append(more, nextOfMore, run.count);
  }
  appendUntil(size);
  return copy;
}

/// The members of the group after an edit that fits it.
template <class T>
std::vector<T> editedMembers(const GroupEdit<T>& edit, Direction direction, const TKGroup<T>& group)
{
  const auto& old = group.getGroupMembers();
  const auto& more = coming(edit, direction);
  const auto size = old.size() + more.size() - leaving(edit, direction).size();
  if (edit.members.moved.empty() && edit.members.order.empty())
    return copyWithoutMoves(old, leaving(edit.members, direction), coming(edit.members, direction),
                            more, size);
  std::vector<T> edited;
  edited.reserve(size);
  auto next = more.begin();
  const auto pieces = piecesOf(directed(edit.members, direction));
  for (const auto& run : pieces.runs()) {
    const auto count = static_cast<std::ptrdiff_t>(run.count);
    const auto first = run.position == nowhere
                           ? std::exchange(next, next + count)
                           : old.begin() + static_cast<std::ptrdiff_t>(run.position);
    edited.insert(edited.end(), first, first + count);
  }
  return edited;
}

/// Whether the groups that leave are in the list, and it has as many groups as the list before.
template <class T>
bool groupsFit(const GroupListEdit<T>& edit,
               Direction direction,
               const std::vector<TKGroup<T>>& list)
{
  const auto size =
      direction == Direction::Forward ? edit.groups.sizeBefore : edit.groups.sizeAfter;
  return list.size() == size &&
         areAt(leaving(edit.groups, direction), leaving(edit, direction), list, areSame<T>);
}

/// Whether the edit may be done to the list, as far as the edit can tell.
template <class T>
bool fits(const GroupListEdit<T>& edit, Direction direction, const std::vector<TKGroup<T>>& list)
{
  return groupsFit(edit, direction, list) &&
         std::all_of(edit.changed.begin(), edit.changed.end(), [&](const auto& each) {
           return fits(each, direction, list[positionBefore(each, direction)]);
         });
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
  if (!groupsFit(edit, direction, list))
    return {};
  for (const auto& run : leaving(edit.groups, direction)) {
    for (auto i = run.position; i < run.position + run.count; ++i)
      copied(i, list[i]);
  }

  std::vector<const GroupEdit<T>*> editOf(list.size());
  for (const auto& each : edit.changed)
    editOf[positionBefore(each, direction)] = &each;
  std::vector<TKGroup<T>> result;
  result.reserve(list.size() + coming(edit, direction).size() - leaving(edit, direction).size());
  auto next = coming(edit, direction).begin();
  const auto pieces = piecesOf(directed(edit.groups, direction));
  for (const auto& run : pieces.runs()) {
    if (run.position == nowhere) {
      const auto first = std::exchange(next, next + static_cast<std::ptrdiff_t>(run.count));
      result.insert(result.end(), first, next);
      continue;
    }
    for (auto i = run.position; i < run.position + run.count; ++i) {
      result.push_back(list[i]);
      copied(i, list[i]);
      if (editOf[i] == nullptr)
        continue;
      if (!fits(*editOf[i], direction, list[i]))
        return {};
      if (isRenamed(*editOf[i]))
        result.back().setName(nameAfter(*editOf[i], direction), true);
      if (!isEmpty(editOf[i]->members)) {
        auto members = editedMembers(*editOf[i], direction, list[i]);
        MemberLists<T>::swap(result.back(), members);
      }
    }
  }
  return result;
}

}
