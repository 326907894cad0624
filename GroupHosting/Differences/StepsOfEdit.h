// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Differences/GroupListEdit.h"
#include "GroupHosting/Differences/GroupListStep.h"
#include "GroupHosting/Differences/MoveSequence.h"

#include <algorithm>
#include <cstddef>
#include <vector>

/// Tells an edit as steps.
namespace Tarvik::GroupLists {

/// The entries from one position on.
template <class Entry>
std::vector<Entry> slice(const std::vector<Entry>& entries, std::size_t position, std::size_t count)
{
  const auto first = entries.begin() + static_cast<std::ptrdiff_t>(position);
  return std::vector<Entry>(first, first + static_cast<std::ptrdiff_t>(count));
}

/// Appends what happens to the groups themselves.
template <class T>
void appendStepsOfGroups(const GroupListEdit<T>& edit,
                         Direction direction,
                         std::vector<GroupListStep<T>>& steps)
{
  const auto groups = directed(edit.groups, direction);
  const auto& removed = leaving(edit, direction);
  auto end = removed.size();
  for (auto run = groups.removed.rbegin(); run != groups.removed.rend(); ++run) {
    end -= run->count;
    steps.push_back(GroupsRemoved<T>{run->position, slice(removed, end, run->count)});
  }
  for (const auto& run : oneByOne(groups.moved))
    steps.push_back(GroupsMoved{run.from, run.count, run.to});
  if (!groups.order.empty())
    steps.push_back(GroupsReordered{groups.order});
  std::size_t begin = 0;
  for (const auto& run : groups.inserted) {
    steps.push_back(
        GroupsInserted<T>{run.position, slice(coming(edit, direction), begin, run.count)});
    begin += run.count;
  }
}

/// Appends what happens to one group.
template <class T>
void appendStepsOfGroup(const GroupEdit<T>& edit,
                        Direction direction,
                        std::vector<GroupListStep<T>>& steps)
{
  const auto group = positionAfter(edit, direction);
  if (isRenamed(edit))
    steps.push_back(GroupRenamed{group, nameBefore(edit, direction), nameAfter(edit, direction)});
  const auto members = directed(edit.members, direction);
  const auto& removed = leaving(edit, direction);
  auto end = removed.size();
  for (auto run = members.removed.rbegin(); run != members.removed.rend(); ++run) {
    end -= run->count;
    steps.push_back(MembersRemoved<T>{group, run->position, slice(removed, end, run->count)});
  }
  for (const auto& run : oneByOne(members.moved))
    steps.push_back(MembersMoved{group, run.from, run.count, run.to});
  if (!members.order.empty())
    steps.push_back(MembersReordered{group, members.order});
  std::size_t begin = 0;
  for (const auto& run : members.inserted) {
    steps.push_back(
        MembersInserted<T>{group, run.position, slice(coming(edit, direction), begin, run.count)});
    begin += run.count;
  }
}

/// The steps of an edit in that direction. GroupListDifference::steps() describes their order.
template <class T>
std::vector<GroupListStep<T>> stepsOf(const GroupListEdit<T>& edit, Direction direction)
{
  std::vector<const GroupEdit<T>*> changed;
  changed.reserve(edit.changed.size());
  for (const auto& each : edit.changed)
    changed.push_back(&each);
  std::sort(changed.begin(), changed.end(), [direction](const auto* a, const auto* b) {
    return positionAfter(*a, direction) < positionAfter(*b, direction);
  });

  std::vector<GroupListStep<T>> steps;
  appendStepsOfGroups(edit, direction, steps);
  for (const auto* each : changed)
    appendStepsOfGroup(*each, direction, steps);
  return steps;
}

}
