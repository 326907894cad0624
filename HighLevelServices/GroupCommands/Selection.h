// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/GroupCommands/Search.h"

#include <algorithm>
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
/// The members that stay are copied in pieces, and each piece is searched just before it is copied:
/// so the processor still writes the copy of one piece while it searches the next.
///
/// Call takeOutOf() for the members of every group of the list, in its order, or moveInto() for
/// those of the target.
template <class T, class ElementSearch = Search<T>>
class Selection {
public:
  /// @param elements  must outlive the selection and must not change
  explicit Selection(const std::vector<T>& elements);

  /// The members of the next group of the list without the elements that are taken out of it.
  std::vector<T> takeOutOf(const std::vector<T>& members);

  /// The same, with what `addGroupMembersAtIndex(elements, index)` then makes of them, given the
  /// index after the walk. The walk lowers it by one for each element that it finds before the
  /// index, even if it takes that element out of an earlier group instead.
  /// @param index  negative for the end of the group; becomes the index after the walk, but a
  ///               negative one is not changed
  std::vector<T> moveInto(const std::vector<T>& members, int& index);

private:
  /// A member that was taken out for an element.
  struct Match {
    std::size_t position; ///< among the members before anything was taken out
    std::size_t element;
  };
  /// By element: the first equal member, or nowhere.
  using Positions = std::vector<std::size_t>;

  int lowered(int index, const Positions& firsts, std::size_t numberOfMembers) const;
  std::vector<T>
  withElements(const std::vector<T>& members, const Positions& firsts, int index) const;

  const std::vector<T>& m_elements;
  ElementSearch m_search;
  std::vector<Match> m_matches;     ///< in the order of the list
  std::size_t m_earlierMatches = 0; ///< how many of them are in groups before the current one
};

template <class T, class ElementSearch>
Selection<T, ElementSearch>::Selection(const std::vector<T>& elements)
    : m_elements(elements), m_search(elements)
{
  m_matches.reserve(elements.size());
}

template <class T, class ElementSearch>
std::vector<T> Selection<T, ElementSearch>::takeOutOf(const std::vector<T>& members)
{
  m_earlierMatches = m_matches.size();
  if (!m_search.hasUnmatched())
    return members;

  std::vector<T> rest;
  rest.reserve(members.size());
  const T* next = members.data(); // to be copied
  const auto pieceSize = m_search.pieceSize();
  for (std::size_t begin = 0; begin < members.size(); begin += pieceSize) {
    const auto end = (std::min)(begin + pieceSize, members.size());
    m_search.matchPiece(members, begin, end, [&](std::size_t position, std::size_t element) {
      m_matches.push_back({position, element});
      rest.insert(rest.end(), next, members.data() + position);
      next = members.data() + position + 1;
    });
    rest.insert(rest.end(), next, members.data() + end);
    next = members.data() + end;
  }
  return rest;
}

template <class T, class ElementSearch>
std::vector<T> Selection<T, ElementSearch>::moveInto(const std::vector<T>& members, int& index)
{
  auto firsts = m_search.firstPositions(members);
  const auto rest = takeOutOf(members);
  index = lowered(index, firsts, members.size());
  if (rest.size() < members.size())
    firsts = m_search.firstPositions(rest);
  return withElements(rest, firsts, index);
}

/// @param firsts  in the group before anything was taken out of it
template <class T, class ElementSearch>
int Selection<T, ElementSearch>::lowered(int index,
                                         const Positions& firsts,
                                         std::size_t numberOfMembers) const
{
  if (index <= 0)
    return index; // no member is before it

  constexpr auto inEarlierGroup = nowhere - 1;
  Positions matches(m_elements.size(), nowhere); // by element
  for (std::size_t i = 0; i < m_matches.size(); ++i)
    matches[m_matches[i].element] = i < m_earlierMatches ? inEarlierGroup : m_matches[i].position;

  // The walk, without moving members: `index` of the members before `end` are still there. An index
  // past the last member counts members that are not there.
  std::vector<bool> isGone(numberOfMembers);
  auto end = static_cast<std::size_t>(index);
  for (std::size_t i = 0; i < matches.size(); ++i) {
    if (matches[i] == nowhere)
      continue; // the group has no such member left
    if (matches[i] != inEarlierGroup) {
      isGone[matches[i]] = true;
      if (matches[i] < end)
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

/// The members with those elements that have no first position among them, as one block.
template <class T, class ElementSearch>
std::vector<T> Selection<T, ElementSearch>::withElements(const std::vector<T>& members,
                                                         const Positions& firsts,
                                                         int index) const
{
  const bool isInside = index >= 0 && static_cast<std::size_t>(index) < members.size();
  const auto place = isInside ? members.begin() + index : members.end();

  std::vector<T> together;
  together.reserve(members.size() + m_elements.size());
  together.insert(together.end(), members.begin(), place);
  for (std::size_t i = 0; i < firsts.size(); ++i) {
    if (firsts[i] == nowhere)
      together.push_back(m_elements[i]);
  }
  together.insert(together.end(), place, members.end());
  return together;
}

}
