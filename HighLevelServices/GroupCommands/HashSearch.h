// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/GroupCommands/ElementTable.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <vector>

namespace Tarvik::GroupLists {

/// Finds elements among members by their hashes. `operator==` decides which of those with equal
/// hashes are equal. Not for hosts.
///
/// Most members of a list are not searched for. A table of bytes shows that without a look at the
/// elements: such a member costs its hash and one byte from the cache.
template <class T>
class HashSearch {
public:
  /// @param elements  must outlive the search and must not change
  explicit HashSearch(const std::vector<T>& elements);

  /// Whether an element has no member yet.
  bool hasUnmatched() const { return m_numberOfUnmatched > 0; }

  /// Gives each element that has no member yet the first equal one that no element before it gets.
  /// Call it for one group after another.
  /// @param matched  called as `matched(position, element)`, with ascending positions of members
  template <class Matched>
  void match(const std::vector<T>& members, Matched matched);

  /// For every element the position of the first equal member, or nowhere.
  std::vector<std::size_t> firstPositions(const std::vector<T>& members) const;

private:
  template <class Found>
  void findWhile(const std::vector<T>& members, Found found) const;

  ElementTable<T> m_table;              ///< the first of equal elements
  std::vector<std::uint8_t> m_filter;   ///< by the lowest bits of a hash: 0 if no element has them
  std::vector<std::size_t> m_nextEqual; ///< by element
  std::vector<std::size_t> m_unmatched; ///< by the first of equal elements: the next to match
  std::size_t m_numberOfUnmatched;
};

template <class T>
HashSearch<T>::HashSearch(const std::vector<T>& elements)
    : m_table(elements),
      m_nextEqual(elements.size()),
      m_unmatched(elements.size()),
      m_numberOfUnmatched(elements.size())
{
  // 64 bytes for each element, so that few members seem to be elements; fewer where they would not
  // fit into the cache.
  constexpr std::size_t most = 1024;
  const auto sparse = std::bit_ceil(64 * (std::min)(elements.size(), most));
  m_filter.assign((std::max)(sparse, std::bit_ceil(4 * elements.size())), 0);

  for (std::size_t i = elements.size(); i-- > 0;) { // backwards, so that the first one remains
    const auto hash = ElementTable<T>::hashOf(elements[i]);
    auto& first = m_table.at(elements[i], hash);
    m_nextEqual[i] = first;
    first = i;
    m_filter[static_cast<std::size_t>(hash) & (m_filter.size() - 1)] = 1;
  }
  std::iota(m_unmatched.begin(), m_unmatched.end(), std::size_t{0});
}

template <class T>
template <class Matched>
void HashSearch<T>::match(const std::vector<T>& members, Matched matched)
{
  findWhile(members, [this, &matched](std::size_t position, std::size_t first) {
    const auto element = m_unmatched[first];
    if (element != nowhere) {
      m_unmatched[first] = m_nextEqual[element];
      --m_numberOfUnmatched;
      matched(position, element);
    }
    return hasUnmatched();
  });
}

template <class T>
std::vector<std::size_t> HashSearch<T>::firstPositions(const std::vector<T>& members) const
{
  std::vector<std::size_t> positions(m_nextEqual.size(), nowhere);
  findWhile(members, [&positions](std::size_t position, std::size_t first) {
    positions[first] = (std::min)(positions[first], position);
    return true;
  });
  for (std::size_t i = 0; i < positions.size(); ++i) {
    if (m_nextEqual[i] != nowhere)
      positions[m_nextEqual[i]] = positions[i];
  }
  return positions;
}

/// Calls `found(position, first of equal elements)` for the members that are elements, in order,
/// until it returns false.
template <class T>
template <class Found>
void HashSearch<T>::findWhile(const std::vector<T>& members, Found found) const
{
  const auto* const filter = m_filter.data();
  const auto mask = m_filter.size() - 1;
  const auto goesOn = [this, &members, &found](std::size_t position, std::uint64_t hash) {
    const auto first = m_table.at(members[position], hash);
    if (first == nowhere)
      return true;
    return found(position, first);
  };

  std::size_t i = 0;
  for (; i + 1 < members.size(); i += 2) { // the processor works on both hashes at once
    const auto hash = ElementTable<T>::hashOf(members[i]);
    const auto nextHash = ElementTable<T>::hashOf(members[i + 1]);
    if ((filter[hash & mask] | filter[nextHash & mask]) == 0)
      continue;
    if (!goesOn(i, hash) || !goesOn(i + 1, nextHash))
      return;
  }
  if (i < members.size())
    goesOn(i, ElementTable<T>::hashOf(members[i]));
}

}
