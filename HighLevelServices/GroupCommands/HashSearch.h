// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/GroupCommands/ElementFilter.h"
#include "HighLevelServices/GroupCommands/ElementTable.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <optional>
#include <vector>

namespace Tarvik::GroupLists {

/// Finds elements among members by their hashes. `operator==` decides which of those with equal
/// hashes are equal. Not for hosts.
///
/// Most members of a list are not searched for: a filter shows that. Often the elements are a part
/// of the list, in the same order: so a member after one that was found is compared with the next
/// element. The table is made when neither helps.
template <class T>
class HashSearch {
public:
  /// @param elements  at most `mostElements`; must outlive the search and must not change
  explicit HashSearch(const std::vector<T>& elements);

  /// Whether an element has no member yet.
  bool hasUnmatched() const { return m_numberOfUnmatched > 0; }

  /// Gives each element that has no member yet the first equal one that no element before it gets.
  /// Call it for one group after another.
  /// @param matched  called as `matched(position, element)`, with ascending positions of members
  template <class Matched>
  void match(const std::vector<T>& members, Matched matched)
  {
    matchPiece(members, 0, members.size(), matched);
  }

  /// How many members a piece should have if it is copied as soon as it has been searched: so few
  /// that the processor still writes their copies while it searches the next piece.
  static constexpr std::size_t pieceSize() { return 128; } // 2 KB of the bundled identifiers

  /// Like match(), for the members from one position to before another. Call it for one piece of a
  /// group after another.
  template <class Matched>
  void
  matchPiece(const std::vector<T>& members, std::size_t begin, std::size_t end, Matched matched);

  /// For every element the position of the first equal member, or nowhere.
  std::vector<std::size_t> firstPositions(const std::vector<T>& members);

private:
  static constexpr std::uint32_t none = 0xffffffff;

  void makeTable();
  template <class Found>
  void findWhile(const std::vector<T>& members,
                 std::size_t begin,
                 std::size_t end,
                 std::size_t& guess,
                 Found found);
  std::size_t firstEqual(const T& member, std::size_t guess);

  const std::vector<T>* m_elements;
  ElementFilter<T> m_filter;
  std::optional<ElementTable<T>> m_table;
  std::vector<std::uint32_t> m_firstEqual; ///< by element
  std::vector<std::uint32_t> m_nextEqual;  ///< by element
  std::vector<std::uint32_t> m_unmatched;  ///< by the first of equal elements: the next to match
  std::size_t m_numberOfUnmatched;
  std::size_t m_guess = 0; ///< an element that may be equal to the next match
};

template <class T>
HashSearch<T>::HashSearch(const std::vector<T>& elements)
    : m_elements(&elements),
      m_filter(elements.size()),
      m_firstEqual(elements.size()),
      m_nextEqual(elements.size(), none),
      m_unmatched(elements.size()),
      m_numberOfUnmatched(elements.size())
{
  std::iota(m_firstEqual.begin(), m_firstEqual.end(), std::uint32_t{0});
  std::iota(m_unmatched.begin(), m_unmatched.end(), std::uint32_t{0});
  bool areDifferent = true;
  for (const T& element : elements)
    areDifferent = m_filter.add(element) && areDifferent;
  if (!areDifferent)
    makeTable(); // it finds the equal ones
}

template <class T>
void HashSearch<T>::makeTable()
{
  m_table.emplace(*m_elements, [this](std::size_t element, std::size_t next) {
    m_nextEqual[element] = static_cast<std::uint32_t>(next);
  });
  for (std::size_t i = 0; i < m_nextEqual.size(); ++i) {
    if (m_nextEqual[i] != none)
      m_firstEqual[m_nextEqual[i]] = m_firstEqual[i];
  }
}

template <class T>
template <class Matched>
void HashSearch<T>::matchPiece(const std::vector<T>& members,
                               std::size_t begin,
                               std::size_t end,
                               Matched matched)
{
  findWhile(members, begin, end, m_guess,
            [this, &matched](std::size_t position, std::size_t first) {
              const auto element = m_unmatched[first];
              if (element != none) {
                m_unmatched[first] = m_nextEqual[element];
                --m_numberOfUnmatched;
                matched(position, std::size_t{element});
              }
              return hasUnmatched();
            });
}

template <class T>
std::vector<std::size_t> HashSearch<T>::firstPositions(const std::vector<T>& members)
{
  std::vector<std::size_t> positions(m_elements->size(), nowhere);
  std::size_t guess = 0;
  findWhile(members, 0, members.size(), guess,
            [&positions](std::size_t position, std::size_t first) {
              positions[first] = (std::min)(positions[first], position);
              return true;
            });
  for (std::size_t i = 0; i < positions.size(); ++i)
    positions[i] = positions[m_firstEqual[i]];
  return positions;
}

/// Calls `found(position, first of equal elements)` for the members that are elements, in order,
/// until it returns false.
/// @param guess  the position of an element that may be equal to the next one found; any number.
///               Becomes the position after the last one found
template <class T>
template <class Found>
void HashSearch<T>::findWhile(const std::vector<T>& members,
                              std::size_t begin,
                              std::size_t end,
                              std::size_t& guess,
                              Found found)
{
  for (auto i = m_filter.next(members, begin, end); i < end;
       i = m_filter.next(members, i + 1, end)) {
    const auto first = firstEqual(members[i], guess);
    if (first == nowhere)
      continue;
    if (!found(i, first))
      return;
    guess = first + 1;
  }
}

/// The position of the first element that is equal to the member, or nowhere.
/// @param guess  the position of an element that may be equal; any number
template <class T>
std::size_t HashSearch<T>::firstEqual(const T& member, std::size_t guess)
{
  if (guess < m_elements->size() && member == (*m_elements)[guess])
    return m_firstEqual[guess];
  if (!m_table)
    makeTable();
  return m_table->find(member);
}

}
