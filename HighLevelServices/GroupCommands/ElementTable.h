// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <type_traits>
#include <vector>

namespace Tarvik::GroupLists {

// clang-format off
/// Whether `std::hash` takes such identifiers. Equal identifiers must have equal hashes.
template <class T>
concept Hashable = requires(const T& identifier) {
  { std::hash<T>{}(identifier) } -> std::convertible_to<std::size_t>;
};

/// Whether all bits of a hash depend on all bits of the identifier. A hash says so with the member
/// type that other hash tables look for as well, such as ankerl::unordered_dense and
/// Boost.Unordered.
template <class Hash>
concept Avalanching =
  sizeof(std::size_t) == sizeof(std::uint64_t) && requires { typename Hash::is_avalanching; } &&
  !std::is_same_v<typename Hash::is_avalanching, std::false_type>;

/// Whether `std::hash` also has a quick hash of an identifier: a static member `quick()` that takes
/// a few shifts and exclusive ors. Equal identifiers must have equal quick hashes, and of those in
/// one list, most should differ in the lowest bits. Nothing goes wrong when they do not, nor when
/// somebody makes them equal on purpose: it only takes longer.
template <class T>
concept QuicklyHashable = Hashable<T> && requires(const T& identifier) {
  { std::hash<T>::quick(identifier) } -> std::convertible_to<std::size_t>;
};
// clang-format on

/// No element, or no position.
constexpr auto nowhere = static_cast<std::size_t>(-1);

/// Up to this many elements, comparing is faster than hashing.
constexpr std::size_t fewElements = 3;

/// A table of hashes can have no more elements than this.
constexpr std::size_t mostElements = 0x7fffffff;

/// Whether so many elements are looked up by their hashes.
constexpr bool areHashed(std::size_t count)
{
  return std::clamp(count, fewElements + 1, mostElements) == count;
}

/// Starts to load what is at an address into the cache, where the compiler has a word for it.
inline void prefetch(const void* address)
{
#if defined(__GNUC__)
  __builtin_prefetch(address);
#else
  static_cast<void>(address);
#endif
}

/// A hash table of the elements of a vector: the first of those that are equal. Not for hosts.
///
/// A slot has four bytes, so that the table of a hundred thousand elements fits into the cache: the
/// number of an element, and above it as many bits of the hash as there is room for. They tell most
/// identifiers that are not in the table without a look at an element.
template <class T>
class ElementTable {
public:
  /// @param elements  at most `mostElements`; must outlive the table and must not change
  /// @param repeated  called as `repeated(position, later)` for each element that has an equal one
  ///                  later, with the position of the next such one
  template <class Repeated>
  ElementTable(const std::vector<T>& elements, Repeated repeated);

  /// The position of the first element that is equal to the identifier, or nowhere.
  std::size_t find(const T& identifier) const
  {
    const auto hash = hashOf(identifier);
    return positionIn(m_slots[slotOf(identifier, hash)]);
  }

  /// A hash whose lowest bits depend on all bits of the identifier.
  static std::uint64_t hashOf(const T& identifier);

private:
  static constexpr std::uint32_t empty = 0;

  static std::size_t numberOfSlots(std::size_t numberOfElements);
  std::size_t slotOf(const T& identifier, std::uint64_t hash) const;
  std::size_t firstSlotOf(std::uint64_t hash) const
  {
    return static_cast<std::size_t>(hash) & (m_slots.size() - 1);
  }
  std::uint32_t tagOf(std::uint64_t hash) const
  {
    return static_cast<std::uint32_t>(hash >> 32U) & ~m_numberMask;
  }
  /// Nowhere for an empty slot.
  std::size_t positionIn(std::uint32_t slot) const { return std::size_t{slot & m_numberMask} - 1; }

  const std::vector<T>* m_elements;
  std::uint32_t m_numberMask;         ///< the bits of a slot with the position of an element plus 1
  std::vector<std::uint32_t> m_slots; ///< at most half of them are taken
};

/// Two for each element; more for few elements, so that most other identifiers meet an empty slot
/// at once.
template <class T>
std::size_t ElementTable<T>::numberOfSlots(std::size_t numberOfElements)
{
  constexpr std::size_t most = 128;
  const auto sparse = std::bit_ceil(64 * (std::min)(numberOfElements, most));
  return (std::max)(sparse, std::bit_ceil(2 * numberOfElements + 2));
}

template <class T>
template <class Repeated>
ElementTable<T>::ElementTable(const std::vector<T>& elements, Repeated repeated)
    : m_elements(&elements),
      m_numberMask(static_cast<std::uint32_t>(std::bit_ceil(elements.size() + 1) - 1)),
      m_slots(numberOfSlots(elements.size()), empty)
{
  std::array<std::uint64_t, 32> hashes{};      // of some elements, whose slots are loaded meanwhile
  for (auto end = elements.size(); end > 0;) { // backwards, so that the first of equal ones remains
    const auto begin = end - (std::min)(end, hashes.size());
    for (auto i = begin; i < end; ++i) {
      hashes[i - begin] = hashOf(elements[i]);
      prefetch(&m_slots[firstSlotOf(hashes[i - begin])]);
    }
    for (auto i = end; i-- > begin;) {
      auto& slot = m_slots[slotOf(elements[i], hashes[i - begin])];
      if (slot != empty)
        repeated(i, positionIn(slot));
      slot = tagOf(hashes[i - begin]) | (static_cast<std::uint32_t>(i) + 1);
    }
    end = begin;
  }
}

/// The slot of the equal element, or the empty one where it belongs.
template <class T>
std::size_t ElementTable<T>::slotOf(const T& identifier, std::uint64_t hash) const
{
  const auto tag = tagOf(hash);
  auto slot = firstSlotOf(hash);
  while (m_slots[slot] != empty) {
    const bool hasTag = (m_slots[slot] & ~m_numberMask) == tag;
    if (hasTag && identifier == (*m_elements)[positionIn(m_slots[slot])])
      break;
    slot = (slot + 1) & (m_slots.size() - 1);
  }
  return slot;
}

template <class T>
std::uint64_t ElementTable<T>::hashOf(const T& identifier)
{
  std::uint64_t hash = std::hash<T>{}(identifier);
  if constexpr (!Avalanching<std::hash<T>>) {
    constexpr std::uint64_t goldenRatio = 0x9e3779b97f4a7c15; // 2^64 divided by it, and odd
    hash = (hash ^ hash >> 32U) * goldenRatio;
    hash ^= hash >> 32U;
  }
  return hash;
}

}
