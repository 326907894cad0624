// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/GroupCommands/ElementTable.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <numeric>
#include <vector>

namespace Tarvik::GroupLists {

/// Finds elements among members by their hashes. `operator==` decides which of those with equal
/// hashes are equal. Not for hosts.
///
/// Most members of a list are not searched for. A table of bytes shows that without a look at the
/// elements: such a member costs its quick hash (or its hash, if it has no quick one) and one byte
/// from the cache. Often the elements are a part of the list, in the same order: a member after one
/// that was found is compared with the next element before it is looked up.
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
  void match(const std::vector<T>& members, Matched matched);

  /// For every element the position of the first equal member, or nowhere.
  std::vector<std::size_t> firstPositions(const std::vector<T>& members) const;

private:
  static constexpr std::uint32_t none = 0xffffffff;

  void fillFilter();
  std::size_t nextFiltered(const std::vector<T>& members, std::size_t position) const;
  static std::size_t filteredHash(const T& identifier);

  template <class Found>
  void findWhile(const std::vector<T>& members, Found found) const;
  std::size_t firstEqual(const T& member, std::size_t guess) const;

  const std::vector<T>* m_elements;
  std::vector<std::uint32_t> m_nextEqual; ///< by element
  ElementTable<T> m_table;
  std::vector<std::uint32_t> m_firstEqual; ///< by element
  std::vector<std::uint32_t> m_unmatched;  ///< by the first of equal elements: the next to match
  std::size_t m_numberOfUnmatched;
  std::vector<std::uint8_t> m_filter; ///< by the lowest bits of a hash: 0 if no element has them
};

template <class T>
HashSearch<T>::HashSearch(const std::vector<T>& elements)
    : m_elements(&elements),
      m_nextEqual(elements.size(), none),
      m_table(elements,
              [this](std::size_t element, std::size_t next) {
                m_nextEqual[element] = static_cast<std::uint32_t>(next);
              }),
      m_firstEqual(elements.size()),
      m_numberOfUnmatched(elements.size())
{
  std::iota(m_firstEqual.begin(), m_firstEqual.end(), std::uint32_t{0});
  m_unmatched = m_firstEqual;
  for (std::size_t i = 0; i < elements.size(); ++i) {
    if (m_nextEqual[i] != none)
      m_firstEqual[m_nextEqual[i]] = m_firstEqual[i];
  }
  fillFilter();
}

template <class T>
void HashSearch<T>::fillFilter()
{
  // 128 bytes for each element, so that few members seem to be elements; fewer where they would not
  // fit into the cache.
  constexpr std::size_t most = 512;
  const auto count = m_elements->size();
  const auto sparse = std::bit_ceil(128 * (std::min)(count, most));
  m_filter.assign((std::max)(sparse, std::bit_ceil(8 * count)), 0);
  for (const T& element : *m_elements)
    m_filter[filteredHash(element) & (m_filter.size() - 1)] = 1;
}

/// The hash that chooses a byte of the filter.
template <class T>
std::size_t HashSearch<T>::filteredHash(const T& identifier)
{
  if constexpr (QuicklyHashable<T>)
    return std::hash<T>::quick(identifier);
  else
    return static_cast<std::size_t>(ElementTable<T>::hashOf(identifier));
}

template <class T>
template <class Matched>
void HashSearch<T>::match(const std::vector<T>& members, Matched matched)
{
  findWhile(members, [this, &matched](std::size_t position, std::size_t first) {
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
std::vector<std::size_t> HashSearch<T>::firstPositions(const std::vector<T>& members) const
{
  std::vector<std::size_t> positions(m_elements->size(), nowhere);
  findWhile(members, [&positions](std::size_t position, std::size_t first) {
    positions[first] = (std::min)(positions[first], position);
    return true;
  });
  for (std::size_t i = 0; i < positions.size(); ++i)
    positions[i] = positions[m_firstEqual[i]];
  return positions;
}

/// Calls `found(position, first of equal elements)` for the members that are elements, in order,
/// until it returns false.
template <class T>
template <class Found>
void HashSearch<T>::findWhile(const std::vector<T>& members, Found found) const
{
  std::size_t guess = 0;
  for (auto i = nextFiltered(members, 0); i < members.size(); i = nextFiltered(members, i + 1)) {
    const auto first = firstEqual(members[i], guess);
    if (first == nowhere)
      continue;
    if (!found(i, first))
      return;
    guess = first + 1;
  }
}

/// The position of the next member, from this one on, that may be an element; else the number of
/// members.
template <class T>
std::size_t HashSearch<T>::nextFiltered(const std::vector<T>& members, std::size_t position) const
{
  const auto mask = m_filter.size() - 1;
  const auto filtered = [filter = m_filter.data(), mask, member = members.data()](std::size_t i) {
    return filter[filteredHash(member[i]) & mask];
  };
  const auto count = members.size();
  while (position < count && filtered(position) == 0) {
    ++position;
    // the processor works on several members at once
    while (position + 4 <= count && (filtered(position) | filtered(position + 1) |
                                     filtered(position + 2) | filtered(position + 3)) == 0)
      position += 4;
  }
  return position;
}

/// The position of the first element that is equal to the member, or nowhere.
/// @param guess  the position of an element that may be equal; any number
template <class T>
std::size_t HashSearch<T>::firstEqual(const T& member, std::size_t guess) const
{
  if (guess < m_elements->size() && member == (*m_elements)[guess])
    return m_firstEqual[guess];
  return m_table.find(member);
}

}
