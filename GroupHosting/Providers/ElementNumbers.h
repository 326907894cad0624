// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/GroupCommands/ElementTable.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <vector>

namespace Tarvik::GroupLists {

/// Gives each element a small number, so that what is known about elements can be kept in vectors.
/// The numbers of removed elements are given out again. Not for hosts.
///
/// With a hash, each operation takes constant time. Without one, it compares the element with all
/// others. A hash must not throw.
template <class T>
class ElementNumbers {
public:
  using Number = std::uint32_t;

  /// No element has this number.
  static constexpr auto none = (std::numeric_limits<Number>::max)();

  /// The element's number, or none.
  Number find(const T& element) const;

  /// The element's number; a new one when it has none. When that throws, nothing has changed.
  /// @throws std::length_error for more elements than there are numbers
  Number add(const T& element);

  /// Makes room for so many elements in all.
  void reserve(std::size_t size);

  /// Forgets the element with that number, which must be in use.
  void remove(Number number) noexcept;

  /// The element with that number, which must be in use.
  const T& operator[](Number number) const { return m_elements[number]; }

  /// Whether a number below limit() is in use.
  bool has(Number number) const { return m_isFree[number] == inUse; }

  /// All numbers are below this one.
  std::size_t limit() const { return m_elements.size(); }

  /// The number of elements.
  std::size_t size() const { return m_size; }

private:
  struct Slot {
    Number number = none;
    std::uint32_t hash = 0; ///< its lowest bits, so that the table grows without the elements
  };

  static constexpr Number inUse = none - 1;

  static std::uint32_t hashOf(const T& element);
  std::size_t slotOf(const T& element, std::uint32_t hash) const;
  std::size_t freeSlot(std::uint32_t hash) const;
  void makeRoom();
  void resizeTable(std::size_t size);

  std::vector<T> m_elements;    ///< by number
  std::vector<Number> m_isFree; ///< by number: in use, or the next free number
  Number m_firstFree = none;
  std::size_t m_size = 0;
  std::vector<Slot> m_slots; ///< a hash table, at most half full; unused without a hash
};

template <class T>
typename ElementNumbers<T>::Number ElementNumbers<T>::find(const T& element) const
{
  if constexpr (Hashable<T>) {
    return m_slots.empty() ? none : m_slots[slotOf(element, hashOf(element))].number;
  } else {
    for (Number number = 0; number < m_elements.size(); ++number) {
      if (m_elements[number] == element && m_isFree[number] == inUse)
        return number;
    }
    return none;
  }
}

template <class T>
typename ElementNumbers<T>::Number ElementNumbers<T>::add(const T& element)
{
  const auto known = find(element);
  if (known != none)
    return known;
  makeRoom();
  auto number = m_firstFree;
  if (number == none) {
    number = static_cast<Number>(m_elements.size());
    m_elements.push_back(element);
    m_isFree.push_back(inUse); // there is room
  } else {
    m_elements[number] = element;
    m_firstFree = m_isFree[number];
    m_isFree[number] = inUse;
  }
  ++m_size;
  if constexpr (Hashable<T>) {
    const auto hash = hashOf(element);
    m_slots[freeSlot(hash)] = {number, hash};
  }
  return number;
}

template <class T>
void ElementNumbers<T>::remove(Number number) noexcept
{
  if constexpr (Hashable<T>) {
    const auto mask = m_slots.size() - 1;
    auto gap = slotOf(m_elements[number], hashOf(m_elements[number]));
    for (auto slot = (gap + 1) & mask; m_slots[slot].number != none; slot = (slot + 1) & mask) {
      // The gap may take over what a search, from its own place on, would meet the gap before.
      const auto distance = (slot - m_slots[slot].hash) & mask;
      if (distance >= ((slot - gap) & mask)) {
        m_slots[gap] = m_slots[slot];
        gap = slot;
      }
    }
    m_slots[gap] = {};
  }
  m_isFree[number] = m_firstFree;
  m_firstFree = number;
  --m_size;
}

template <class T>
std::uint32_t ElementNumbers<T>::hashOf(const T& element)
{
  return static_cast<std::uint32_t>(ElementTable<T>::hashOf(element));
}

/// Where the element is in the table, or where it would go.
template <class T>
std::size_t ElementNumbers<T>::slotOf(const T& element, std::uint32_t hash) const
{
  const auto mask = m_slots.size() - 1;
  auto slot = hash & mask;
  while (m_slots[slot].number != none &&
         !(m_slots[slot].hash == hash && m_elements[m_slots[slot].number] == element))
    slot = (slot + 1) & mask;
  return slot;
}

template <class T>
std::size_t ElementNumbers<T>::freeSlot(std::uint32_t hash) const
{
  const auto mask = m_slots.size() - 1;
  auto slot = hash & mask;
  while (m_slots[slot].number != none)
    slot = (slot + 1) & mask;
  return slot;
}

/// Makes room for another element, so that only its copy can still fail.
template <class T>
void ElementNumbers<T>::makeRoom()
{
  if (m_firstFree == none) {
    if (m_elements.size() >= inUse)
      throw std::length_error("there are more elements than a provider can number");
    if (m_isFree.size() == m_isFree.capacity())
      m_isFree.reserve(2 * m_isFree.size() + 16);
  }
  if constexpr (Hashable<T>) {
    if (2 * (m_size + 1) > m_slots.size())
      resizeTable((std::max)(std::size_t{16}, 2 * m_slots.size()));
  }
}

template <class T>
void ElementNumbers<T>::reserve(std::size_t size)
{
  m_elements.reserve(size);
  m_isFree.reserve(size);
  if constexpr (Hashable<T>) {
    if (2 * size > m_slots.size())
      resizeTable(std::bit_ceil(2 * size));
  }
}

/// @param size  a power of two
template <class T>
void ElementNumbers<T>::resizeTable(std::size_t size)
{
  std::vector<Slot> before(size);
  m_slots.swap(before);
  for (const Slot& slot : before) {
    if (slot.number != none)
      m_slots[freeSlot(slot.hash)] = slot;
  }
}

}
