// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace Tarvik::GroupLists {

// clang-format off
/// Whether the identifiers have a `std::hash`. Equal identifiers must have equal hashes.
template <class T>
concept Hashable = requires(const T& identifier) {
  { std::hash<T>{}(identifier) } -> std::convertible_to<std::size_t>;
};

/// Whether all bits of a hash depend on all bits of the identifier. A hash says so with the member
/// type `is_avalanching`, which ankerl::unordered_dense and Boost.Unordered look for as well.
template <class Hash>
concept Avalanching =
  sizeof(std::size_t) == sizeof(std::uint64_t) && requires { typename Hash::is_avalanching; };
// clang-format on

/// No element, or no position.
constexpr auto nowhere = static_cast<std::size_t>(-1);

/// A hash table of elements of a vector. It keeps their positions, one for all elements that are
/// equal. The vector must outlive the table and must not change.
template <class T>
class ElementTable {
public:
  /// An empty table with room for all the elements.
  explicit ElementTable(const std::vector<T>& elements);

  /// The position of the element in the table that is equal to the identifier; nowhere when there
  /// is none. Assign a position to add an element.
  std::size_t& at(const T& identifier, std::uint64_t hash)
  {
    return m_slots[slot(identifier, hash)];
  }
  std::size_t at(const T& identifier, std::uint64_t hash) const
  {
    return m_slots[slot(identifier, hash)];
  }

  /// A hash whose lowest bits depend on all bits of the identifier.
  static std::uint64_t hashOf(const T& identifier)
  {
    const std::uint64_t hash = std::hash<T>{}(identifier);
    if constexpr (Avalanching<std::hash<T>>)
      return hash;
    constexpr std::uint64_t goldenRatio = 0x9e3779b97f4a7c15; // 2^64 divided by it, made odd
    return std::rotl(hash * goldenRatio, 32);
  }

private:
  std::size_t slot(const T& identifier, std::uint64_t hash) const;

  const std::vector<T>* m_elements;
  std::vector<std::size_t> m_slots; ///< at most half of them are taken
};

template <class T>
ElementTable<T>::ElementTable(const std::vector<T>& elements)
    : m_elements(&elements), m_slots(std::bit_ceil(2 * elements.size() + 2), nowhere)
{}

template <class T>
std::size_t ElementTable<T>::slot(const T& identifier, std::uint64_t hash) const
{
  const auto mask = m_slots.size() - 1;
  auto slot = static_cast<std::size_t>(hash) & mask;
  while (m_slots[slot] != nowhere && !(identifier == (*m_elements)[m_slots[slot]]))
    slot = (slot + 1) & mask;
  return slot;
}

/// The elements without duplicates, in the order of their first occurrence.
template <class T>
std::vector<T> distinct(const std::vector<T>& elements)
{
  std::vector<T> result;
  result.reserve(elements.size());
  if constexpr (Hashable<T>) {
    ElementTable<T> table(elements);
    for (std::size_t i = 0; i < elements.size(); ++i) {
      auto& known = table.at(elements[i], ElementTable<T>::hashOf(elements[i]));
      if (known != nowhere)
        continue;
      known = i;
      result.push_back(elements[i]);
    }
  } else {
    for (const T& element : elements) {
      if (std::find(result.begin(), result.end(), element) == result.end())
        result.push_back(element);
    }
  }
  return result;
}

}
