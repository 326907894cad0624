// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/GroupCommands/MemberLists.h"
#include "HighLevelServices/GroupCommands/Search.h"
#include "HighLevelServices/Groups/TKGroup.h"

#include <cstddef>
#include <vector>

namespace Tarvik::GroupLists {

/// Takes the elements given to a command out of a list of groups in one pass. Not for hosts.
///
/// The result is defined by a walk: for one element after another, the first group of the list that
/// holds it loses the first member that is equal to it. The pass gives the same result. Only equal
/// elements compete for a member, so look at n equal ones. The walk takes out the first member of
/// the list that is equal to them, then the next one, and so on: the first n of them, in the order
/// of the elements. The pass meets the members in the order of the list, and gives each to the next
/// of the equal elements until all of them have one.
///
/// Call takeOutOf() for every group of the list, in its order. lowered() and insertInto() are for
/// the group that it was called for last.
template <class T, class ElementSearch = Search<T>>
class Selection {
public:
  /// @param elements  must outlive the selection and must not change
  explicit Selection(const std::vector<T>& elements);

  /// Takes the elements out of the next group of the list. When that throws, the group is as it
  /// was.
  void takeOutOf(TKGroup<T>& group);

  /// The insert index after the walk. The walk lowers it by one for each element that it finds
  /// before the index, even if it then takes that element out of an earlier group instead.
  /// @param index   negative for the end of the group, which is returned unchanged
  /// @param before  the group before takeOutOf()
  int lowered(int index, const TKGroup<T>& before) const;

  /// Does what `group.addGroupMembersAtIndex(elements, index)` does, in linear time with a hash.
  /// When that throws, the group is as it was.
  void insertInto(TKGroup<T>& group, int index) const;

private:
  /// A member that was taken out for an element.
  struct Match {
    std::size_t group;
    std::size_t position; ///< among the members before anything was taken out
    std::size_t element;
  };

  std::vector<T> membersWithout(const TKGroup<T>& group, std::size_t match) const;

  const std::vector<T>& m_elements;
  ElementSearch m_search;
  std::vector<Match> m_matches; ///< in the order of the list
  std::size_t m_numberOfGroups = 0;
};

template <class T, class ElementSearch>
Selection<T, ElementSearch>::Selection(const std::vector<T>& elements)
    : m_elements(elements), m_search(elements)
{
  m_matches.reserve(elements.size());
}

template <class T, class ElementSearch>
void Selection<T, ElementSearch>::takeOutOf(TKGroup<T>& group)
{
  const auto number = m_numberOfGroups++;
  if (!m_search.hasUnmatched())
    return;
  const auto earlier = m_matches.size();
  m_search.match(group.getGroupMembers(),
                 [this, number](std::size_t position, std::size_t element) {
                   m_matches.push_back({number, position, element});
                 });

  const auto count = m_matches.size() - earlier;
  if (count == 1) {
    group.removeGroupMember(m_elements[m_matches.back().element]);
  } else if (count > 1) {
    auto members = membersWithout(group, earlier);
    MemberLists<T>::swap(group, members);
  }
}

/// The members of a group without the matches from this one on.
template <class T, class ElementSearch>
std::vector<T> Selection<T, ElementSearch>::membersWithout(const TKGroup<T>& group,
                                                           std::size_t match) const
{
  const auto& members = group.getGroupMembers();
  std::vector<T> kept;
  kept.reserve(members.size());
  for (std::size_t i = 0; i < members.size(); ++i) {
    if (match < m_matches.size() && m_matches[match].position == i)
      ++match;
    else
      kept.push_back(members[i]);
  }
  return kept;
}

template <class T, class ElementSearch>
int Selection<T, ElementSearch>::lowered(int index, const TKGroup<T>& before) const
{
  if (index <= 0)
    return index; // no member is before it
  const auto& members = before.getGroupMembers();
  const auto firsts = m_search.firstPositions(members);
  std::vector<const Match*> matches(m_elements.size());
  for (const Match& match : m_matches)
    matches[match.element] = &match;

  // The walk, without moving members: `index` of the members before `end` are still there. An index
  // past the last member counts members that are not there.
  std::vector<bool> isGone(members.size());
  auto end = static_cast<std::size_t>(index);
  for (std::size_t i = 0; i < matches.size(); ++i) {
    if (matches[i] == nullptr)
      continue; // the group has no such member left
    if (matches[i]->group == m_numberOfGroups - 1) {
      isGone[matches[i]->position] = true;
      if (matches[i]->position < end)
        --index;
    } else if (firsts[i] < end) {
      --index;
      do
        --end;
      while (end < isGone.size() && isGone[end]);
    }
  }
  return index;
}

template <class T, class ElementSearch>
void Selection<T, ElementSearch>::insertInto(TKGroup<T>& group, int index) const
{
  if (m_elements.size() <= fewElements) {
    group.addGroupMembersAtIndex(m_elements, index);
    return;
  }
  const auto& members = group.getGroupMembers();
  const auto positions = m_search.firstPositions(members);
  const bool isInside = index >= 0 && static_cast<std::size_t>(index) < members.size();
  const auto place = isInside ? members.begin() + index : members.end();

  std::vector<T> together;
  together.reserve(members.size() + m_elements.size());
  together.insert(together.end(), members.begin(), place);
  for (std::size_t i = 0; i < positions.size(); ++i) {
    if (positions[i] == nowhere)
      together.push_back(m_elements[i]);
  }
  together.insert(together.end(), place, members.end());
  MemberLists<T>::swap(group, together);
}

/// Takes each element out of its first holder.
template <class T>
void removeFromFirstHolders(std::vector<TKGroup<T>>& groups, const std::vector<T>& elements)
{
  Selection<T> selection(elements);
  for (auto& group : groups)
    selection.takeOutOf(group);
}

}
