// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Differences/EditedGroups.h"
#include "GroupHosting/Differences/GroupListEdit.h"
#include "HighLevelServices/GroupCommands/Search.h"
#include "HighLevelServices/Groups/TKGroup.h"
#include "Identifier/Identifier.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik::GroupLists {

/// How one list of groups becomes another, for a GroupListReplacement. Not for hosts.
///
/// A group is the same in both lists if it has the same id: of groups with equal ids, the first is
/// the first of the other list, and so on. Points to groups and names of what it was made of.
template <class T>
struct GroupListPlan {
  /// A group that stays but has other members.
  struct ChangedMembers {
    std::size_t before; ///< its position
    std::size_t after;  ///< its position in the new list
    std::size_t source; ///< where its new members are: in the new list, or in what an edit changes
  };

  /// A group that stays but has another name.
  struct Renamed {
    std::size_t after; ///< its position in the new list
    const std::string* name;
  };

  /// By position in the new list: the position before, or `nowhere` for a group that is new.
  std::vector<std::size_t> origins;
  std::vector<const TKGroup<T>*> newGroups; ///< in their order
  std::vector<Renamed> renamed;             ///< ascending
  std::vector<ChangedMembers> changed;
  std::size_t sizeBefore = 0;

  /// Whether so many groups at the front stay where they are.
  bool keepsInPlace(std::size_t count) const
  {
    for (std::size_t i = 0; i < count; ++i) {
      if (origins[i] != i)
        return false;
    }
    return true;
  }

  /// Whether all that happens to the groups themselves is that new ones follow at the end.
  bool onlyAppends() const
  {
    return renamed.empty() && origins.size() >= sizeBefore && keepsInPlace(sizeBefore);
  }

  /// Whether the list of groups stays as it is, apart from their members.
  bool keepsGroups() const { return onlyAppends() && newGroups.empty(); }
};

/// By position in a list of groups: the position in an earlier list, or nowhere.
template <class T>
std::vector<std::size_t> originsOf(const std::vector<TKGroup<T>>& after,
                                   const std::vector<TKGroup<T>>& before)
{
  std::vector<std::size_t> origins(after.size(), nowhere);
  const auto hasSameId = [](const auto& a, const auto& b) { return a.getId() == b.getId(); };
  const auto differing =
      std::mismatch(before.begin(), before.end(), after.begin(), after.end(), hasSameId);
  const auto front = differing.first - before.begin();
  std::iota(origins.begin(), origins.begin() + front, std::size_t{0});
  if (differing.first == before.end() || differing.second == after.end())
    return origins;

  const auto idsFrom = [](auto first, auto last) {
    std::vector<Identifier> ids;
    ids.reserve(static_cast<std::size_t>(last - first));
    std::transform(first, last, std::back_inserter(ids),
                   [](const auto& group) { return group.getId(); });
    return ids;
  };
  const auto ids = idsFrom(differing.first, before.end());
  Search<Identifier>(ids).match(idsFrom(differing.second, after.end()), [&](std::size_t position,
                                                                            std::size_t element) {
    origins[static_cast<std::size_t>(front) + position] = static_cast<std::size_t>(front) + element;
  });
  return origins;
}

/// The plan for a new list, found by comparing it with the old one.
template <class T>
GroupListPlan<T> planFor(const std::vector<TKGroup<T>>& before,
                         const std::vector<TKGroup<T>>& after)
{
  GroupListPlan<T> plan;
  plan.sizeBefore = before.size();
  plan.origins = originsOf(after, before);
  for (std::size_t i = 0; i < after.size(); ++i) {
    const auto origin = plan.origins[i];
    if (origin == nowhere) {
      plan.newGroups.push_back(&after[i]);
      continue;
    }
    if (before[origin].getName() != after[i].getName())
      plan.renamed.push_back({i, &after[i].getName()});
    if (before[origin].getGroupMembers() != after[i].getGroupMembers())
      plan.changed.push_back({origin, i, i});
  }
  return plan;
}

/// The plan for an edit of a list that it fits.
template <class T>
GroupListPlan<T> planFor(const GroupListEdit<T>& edit, Direction direction)
{
  GroupListPlan<T> plan;
  const auto groups = directed(edit.groups, direction);
  plan.sizeBefore = groups.sizeBefore;
  plan.origins.resize(groups.sizeAfter, nowhere);
  auto origin = plan.origins.begin();
  const auto pieces = piecesOf(groups);
  for (const auto& run : pieces.runs()) {
    const auto end = origin + static_cast<std::ptrdiff_t>(run.count);
    if (run.position != nowhere)
      std::iota(origin, end, run.position);
    origin = end;
  }
  for (const auto& group : coming(edit, direction))
    plan.newGroups.push_back(&group);
  for (std::size_t i = 0; i < edit.changed.size(); ++i) {
    const auto& each = edit.changed[i];
    const auto after = positionAfter(each, direction);
    if (isRenamed(each))
      plan.renamed.push_back({after, &nameAfter(each, direction)});
    if (!isEmpty(each.members))
      plan.changed.push_back({positionBefore(each, direction), after, i});
  }
  std::sort(plan.renamed.begin(), plan.renamed.end(),
            [](const auto& a, const auto& b) { return a.after < b.after; });
  return plan;
}

}
