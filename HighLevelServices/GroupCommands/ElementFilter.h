// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/GroupCommands/ElementTable.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace Tarvik::GroupLists {

/// Shows of most identifiers that they are not among the elements, without a look at those. Such an
/// identifier costs its quick hash (or its hash, if it has no quick one) and one byte from the
/// cache. Not for hosts.
template <class T>
class ElementFilter {
public:
  /// @param numberOfElements  how many elements will be added
  explicit ElementFilter(std::size_t numberOfElements);

  /// Adds an element.
  /// @return whether it is certainly different from all that were added before
  bool add(const T& element);

  /// The position of the next member, from this one on, that may be equal to an element; `end` if
  /// there is none before it.
  std::size_t next(const std::vector<T>& members, std::size_t position, std::size_t end) const;

private:
  static std::size_t hashOf(const T& identifier);

  std::vector<std::uint8_t> m_bytes; ///< by the lowest bits of a hash: 0 if no element has them
};

template <class T>
ElementFilter<T>::ElementFilter(std::size_t numberOfElements)
{
  // 128 bytes for each element, so that few members seem to be elements; more if there are few
  // elements, and fewer where the bytes would not fit into the cache.
  constexpr std::size_t few = 16;
  constexpr std::size_t most = 512;
  const auto sparse = std::bit_ceil((std::max)(512 * (std::min)(numberOfElements, few),
                                               128 * (std::min)(numberOfElements, most)));
  m_bytes.resize((std::max)(sparse, std::bit_ceil(8 * numberOfElements)));
}

template <class T>
bool ElementFilter<T>::add(const T& element)
{
  auto& byte = m_bytes[hashOf(element) & (m_bytes.size() - 1)];
  const bool isFirst = byte == 0;
  byte = 1;
  return isFirst;
}

template <class T>
std::size_t
ElementFilter<T>::next(const std::vector<T>& members, std::size_t position, std::size_t end) const
{
  const auto mask = m_bytes.size() - 1;
  const auto byte = [bytes = m_bytes.data(), mask, member = members.data()](std::size_t i) {
    return bytes[hashOf(member[i]) & mask];
  };
  const auto areAllZero = [&byte](std::size_t i) {
    return (byte(i) | byte(i + 1) | byte(i + 2) | byte(i + 3)) == 0;
  };
  if (position < end && byte(position) != 0)
    return position; // elements often follow one another
  // the processor works on several members at once
  while (position + 4 <= end && areAllZero(position))
    position += 4;
  while (position < end && byte(position) == 0)
    ++position;
  return position;
}

template <class T>
std::size_t ElementFilter<T>::hashOf(const T& identifier)
{
  if constexpr (QuicklyHashable<T>)
    return std::hash<T>::quick(identifier);
  else
    return static_cast<std::size_t>(ElementTable<T>::hashOf(identifier));
}

}
