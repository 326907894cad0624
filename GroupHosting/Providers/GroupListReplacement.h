// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Providers/GroupListPlan.h"
#include "HighLevelServices/GroupCommands/MemberLists.h"
#include "HighLevelServices/Groups/TKGroup.h"

#include <cstddef>
#include <vector>

namespace Tarvik::GroupLists {

/// Turns one list of groups into another, and keeps the groups that are equal in both. Not for
/// hosts.
///
/// Call prepare(), which copies what is new, and commit(), which cannot fail. Until commit(), the
/// list is as it was.
template <class T>
class GroupListReplacement {
public:
  /// @param groups  the list to be changed
  /// @param plan    of a change of that list; must outlive this object, as must what it points to
  GroupListReplacement(std::vector<TKGroup<T>>& groups, const GroupListPlan<T>& plan)
      : m_groups(groups), m_plan(plan), m_sizeToKeep(groups.size())
  {}
  GroupListReplacement(const GroupListReplacement&) = delete;
  GroupListReplacement& operator=(const GroupListReplacement&) = delete;
  ~GroupListReplacement();

  /// Copies all that the new list has and the old one has not. When that throws, nothing has
  /// changed. New groups at the end of the list are in it already after this, until the destructor
  /// or commit().
  /// @param membersOf  called as `membersOf(changed)` for each group that stays and has other
  ///                   members, which it returns
  template <class MembersOf>
  void prepare(MembersOf membersOf);

  void commit() noexcept;

private:
  void append();
  void arrange();

  std::vector<TKGroup<T>>& m_groups;
  const GroupListPlan<T>& m_plan;
  bool m_isArranged = false;
  std::size_t m_sizeToKeep;           ///< of the list, if commit() is not reached
  std::vector<TKGroup<T>> m_arranged; ///< the new list, without the members of those that stay
  std::vector<std::vector<T>> m_newMembers; ///< of the changed groups
};

template <class T>
GroupListReplacement<T>::~GroupListReplacement()
{
  while (m_groups.size() > m_sizeToKeep)
    m_groups.pop_back();
}

template <class T>
template <class MembersOf>
void GroupListReplacement<T>::prepare(MembersOf membersOf)
{
  m_newMembers.reserve(m_plan.changed.size());
  for (const auto& each : m_plan.changed)
    m_newMembers.push_back(membersOf(each));
  m_isArranged = !m_plan.onlyAppends() || m_plan.origins.size() > m_groups.capacity();
  if (m_isArranged)
    arrange();
  else
    append();
}

/// Appends the new groups, for which there is room.
template <class T>
void GroupListReplacement<T>::append()
{
  for (const auto* group : m_plan.newGroups)
    m_groups.push_back(*group);
}

/// Makes the new list. Groups that stay have no members in it.
template <class T>
void GroupListReplacement<T>::arrange()
{
  const auto& origins = m_plan.origins;
  const bool grows = origins.size() > m_groups.capacity();
  m_arranged.reserve(grows ? 2 * origins.size() : origins.size()); // to append without this
  auto newGroup = m_plan.newGroups.begin();
  for (const auto origin : origins) {
    if (origin == nowhere) {
      m_arranged.push_back(**newGroup++);
    } else {
      const MembersAside<T> aside(m_groups[origin]);
      m_arranged.push_back(m_groups[origin]);
    }
  }
  for (const auto& each : m_plan.renamed)
    m_arranged[each.after].setName(*each.name, true);
}

template <class T>
void GroupListReplacement<T>::commit() noexcept
{
  for (std::size_t i = 0; i < m_newMembers.size(); ++i)
    MemberLists<T>::swap(m_groups[m_plan.changed[i].before], m_newMembers[i]);
  m_sizeToKeep = nowhere;
  if (!m_isArranged)
    return;
  const auto& origins = m_plan.origins;
  for (std::size_t i = 0; i < origins.size(); ++i) {
    if (origins[i] != nowhere)
      MemberLists<T>::swap(m_arranged[i], m_groups[origins[i]]);
  }
  m_groups.swap(m_arranged);
}

}
