// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/GroupCommands/MemberLists.h"
#include "HighLevelServices/GroupCommands/Search.h"
#include "HighLevelServices/Groups/TKGroup.h"
#include "Identifier/Identifier.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <vector>

namespace Tarvik::GroupLists {

/// Turns one list of groups into another, and keeps the groups that are equal in both. Not for
/// hosts.
///
/// A group is the same in both lists if it has the same id: of groups with equal ids, the first is
/// the first of the other list, and so on. Call prepare(), which copies what is new, and commit(),
/// which cannot fail. Until commit(), the list is as it was.
template <class T>
class GroupListReplacement {
public:
  /// A group that stays but has other members.
  struct ChangedMembers {
    std::size_t before; ///< its position
    std::size_t after;  ///< its position in the new list
  };

  /// @param groups  the list to be changed; must not change until commit()
  /// @param after   the new list
  GroupListReplacement(std::vector<TKGroup<T>>& groups, const std::vector<TKGroup<T>>& after);

  /// Whether the lists are equal.
  bool isEmpty() const { return !m_isArranged && m_changed.empty(); }

  /// Whether groups are inserted, removed or moved, or have another name.
  bool isArranged() const { return m_isArranged; }

  const std::vector<ChangedMembers>& changed() const { return m_changed; }

  /// By position in the new list: the position before, or `nowhere` for a group that is new.
  const std::vector<std::size_t>& origins() const { return m_origins; }

  void prepare();
  void commit() noexcept;

private:
  void findOrigins();
  void compareMembers(std::size_t position);
  void arrange();

  std::vector<TKGroup<T>>& m_groups;
  const std::vector<TKGroup<T>>& m_after;
  std::vector<std::size_t> m_origins;
  std::vector<ChangedMembers> m_changed;
  bool m_isArranged = false;
  std::vector<TKGroup<T>> m_arranged; ///< the new list, without the members of those that stay
  std::vector<std::vector<T>> m_newMembers; ///< of the changed groups
};

template <class T>
GroupListReplacement<T>::GroupListReplacement(std::vector<TKGroup<T>>& groups,
                                              const std::vector<TKGroup<T>>& after)
    : m_groups(groups), m_after(after), m_origins(after.size(), nowhere)
{
  findOrigins();
  m_isArranged = groups.size() != after.size();
  for (std::size_t i = 0; i < after.size(); ++i) {
    const auto origin = m_origins[i];
    m_isArranged = m_isArranged || origin != i || groups[i].getName() != after[i].getName();
    if (origin != nowhere)
      compareMembers(i);
  }
}

template <class T>
void GroupListReplacement<T>::findOrigins()
{
  const auto hasSameId = [](const auto& a, const auto& b) { return a.getId() == b.getId(); };
  const auto front = static_cast<std::size_t>(
      std::mismatch(m_groups.begin(), m_groups.end(), m_after.begin(), m_after.end(), hasSameId)
          .first -
      m_groups.begin());
  std::iota(m_origins.begin(), m_origins.begin() + static_cast<std::ptrdiff_t>(front),
            std::size_t{0});
  if (front == m_groups.size() || front == m_after.size())
    return;

  const auto idsFrom = [front](const auto& groups) {
    std::vector<Identifier> ids;
    ids.reserve(groups.size() - front);
    for (auto i = front; i < groups.size(); ++i)
      ids.push_back(groups[i].getId());
    return ids;
  };
  const auto ids = idsFrom(m_groups);
  Search<Identifier>(ids).match(idsFrom(m_after), [&](std::size_t position, std::size_t element) {
    m_origins[front + position] = front + element;
  });
}

template <class T>
void GroupListReplacement<T>::compareMembers(std::size_t position)
{
  const auto origin = m_origins[position];
  const auto& before = m_groups[origin].getGroupMembers();
  const auto& after = m_after[position].getGroupMembers();
  if (before != after)
    m_changed.push_back({origin, position});
}

/// Copies all that the new list has and the old one has not.
template <class T>
void GroupListReplacement<T>::prepare()
{
  m_newMembers.reserve(m_changed.size());
  for (const ChangedMembers& each : m_changed)
    m_newMembers.push_back(m_after[each.after].getGroupMembers());
  if (m_isArranged)
    arrange();
}

/// Makes the new list. Groups that stay have no members in it.
template <class T>
void GroupListReplacement<T>::arrange()
{
  m_arranged.reserve(m_after.size());
  for (std::size_t i = 0; i < m_after.size(); ++i) {
    if (m_origins[i] == nowhere) {
      m_arranged.push_back(m_after[i]);
      continue;
    }
    auto& group = m_groups[m_origins[i]];
    const MembersAside<T> aside(group);
    m_arranged.push_back(group);
    if (group.getName() != m_after[i].getName())
      m_arranged.back().setName(m_after[i].getName(), true);
  }
}

template <class T>
void GroupListReplacement<T>::commit() noexcept
{
  for (std::size_t i = 0; i < m_changed.size(); ++i)
    MemberLists<T>::swap(m_groups[m_changed[i].before], m_newMembers[i]);
  if (!m_isArranged)
    return;
  for (std::size_t i = 0; i < m_origins.size(); ++i) {
    if (m_origins[i] != nowhere)
      MemberLists<T>::swap(m_arranged[i], m_groups[m_origins[i]]);
  }
  m_groups.swap(m_arranged);
}

}
