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

/// The elements of a selection, found by their hashes. `operator==` decides which ones are equal.
///
/// Most members of a list are not selected. A table of bytes rules them out without a look at the
/// elements, so that such a member costs its hash and one byte from the cache.
template <class T>
class HashedElements {
public:
  /// @param elements  must outlive this object and must not change
  explicit HashedElements(const std::vector<T>& elements);

  /// Whether there is an element that has not taken a member yet.
  bool isAnyWanting() const { return m_numberOfWanting > 0; }

  /// Lets every element that has no member yet take the first one that is equal to it and that no
  /// element before it takes. Call it for one group after another.
  /// @param taken  called as `taken(position, element)`, with ascending positions
  template <class Taken>
  void take(const std::vector<T>& members, Taken taken);

  /// For each element, the position of the first member that is equal to it, or nowhere.
  std::vector<std::size_t> firstPositions(const std::vector<T>& members) const;

private:
  template <class Found>
  void findWhile(const std::vector<T>& members, Found found) const;

  ElementTable<T> m_table;              ///< the first of equal elements
  std::vector<std::uint8_t> m_filter;   ///< by the lowest bits of a hash: 0 if no element has them
  std::vector<std::size_t> m_nextEqual; ///< by element
  std::vector<std::size_t> m_wanting;   ///< by the first of equal elements: which one takes next
  std::size_t m_numberOfWanting;
};

template <class T>
HashedElements<T>::HashedElements(const std::vector<T>& elements)
    : m_table(elements),
      m_nextEqual(elements.size()),
      m_wanting(elements.size()),
      m_numberOfWanting(elements.size())
{
  constexpr std::size_t bytesOfCache = 65536;
  const auto sparse = (std::min)(std::bit_ceil(64 * elements.size() + 512), bytesOfCache);
  m_filter.assign((std::max)(sparse, std::bit_ceil(4 * elements.size())), 0);

  for (std::size_t i = elements.size(); i-- > 0;) { // backwards, so that the first one remains
    const auto hash = ElementTable<T>::hashOf(elements[i]);
    auto& first = m_table.at(elements[i], hash);
    m_nextEqual[i] = first;
    first = i;
    m_filter[hash & (m_filter.size() - 1)] = 1;
  }
  std::iota(m_wanting.begin(), m_wanting.end(), std::size_t{0});
}

template <class T>
template <class Taken>
void HashedElements<T>::take(const std::vector<T>& members, Taken taken)
{
  findWhile(members, [this, &taken](std::size_t position, std::size_t first) {
    const auto element = m_wanting[first];
    if (element != nowhere) {
      m_wanting[first] = m_nextEqual[element];
      --m_numberOfWanting;
      taken(position, element);
    }
    return isAnyWanting();
  });
}

template <class T>
std::vector<std::size_t> HashedElements<T>::firstPositions(const std::vector<T>& members) const
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

/// Calls `found(position, first of equal elements)` for members that are elements, from the first
/// to the last, for as long as it returns true.
template <class T>
template <class Found>
void HashedElements<T>::findWhile(const std::vector<T>& members, Found found) const
{
  const auto* const filter = m_filter.data();
  const auto mask = m_filter.size() - 1;
  const auto mayBeElement = [filter, mask](const T& member) -> unsigned int {
    return filter[ElementTable<T>::hashOf(member) & mask];
  };
  const auto goesOn = [this, &members, &found](std::size_t position) {
    const auto& member = members[position];
    const auto first = m_table.at(member, ElementTable<T>::hashOf(member));
    return first == nowhere || found(position, first);
  };

  std::size_t i = 0;
  for (; i + 1 < members.size(); i += 2) { // the processor works on both hashes at once
    if ((mayBeElement(members[i]) | mayBeElement(members[i + 1])) == 0)
      continue;
    if (!goesOn(i) || !goesOn(i + 1))
      return;
  }
  if (i < members.size() && mayBeElement(members[i]) != 0)
    goesOn(i);
}

}
