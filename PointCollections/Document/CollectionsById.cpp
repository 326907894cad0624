// SPDX-License-Identifier: MIT
#include "PointCollections/Document/CollectionsById.h"

#include <bit>
#include <functional>
#include <limits>
#include <new>

namespace Tarvik::PointCollections {

void CollectionsById::reserve(std::size_t collections)
{
  if (collections >= std::numeric_limits<std::uint32_t>::max())
    throw std::bad_alloc();                           // they would take hundreds of gigabytes
  m_slots.resize(std::bit_ceil(2 * collections + 1)); // never full, so that each search ends
}

void CollectionsById::addLast()
{
  m_slots[slotOf(m_collections.back().id)] = static_cast<std::uint32_t>(m_collections.size());
}

const PointCollection* CollectionsById::find(const GUIdentifier& id) const
{
  if (m_slots.empty())
    return nullptr;
  const auto place = m_slots[slotOf(id)];
  return place != 0 ? &m_collections[place - 1] : nullptr;
}

/// The slot of the id, or the free one where it would be.
std::size_t CollectionsById::slotOf(const GUIdentifier& id) const
{
  const auto mask = m_slots.size() - 1;
  auto slot = std::hash<GUIdentifier>()(id) & mask;
  while (m_slots[slot] != 0 && m_collections[m_slots[slot] - 1].id != id)
    slot = (slot + 1) & mask;
  return slot;
}

}
