// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Document/PointCollection.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Tarvik::PointCollections {

/// Finds collections by their ids. It keeps the places of the collections in one array, without a
/// node for each: verbs look up every element of a document several times.
class CollectionsById {
public:
  /// @param collections  must outlive this; grows at its end only
  explicit CollectionsById(const std::vector<PointCollection>& collections)
      : m_collections(collections)
  {}

  /// Makes room for so many collections. Call it once, before add().
  void reserve(std::size_t collections);

  /// Adds the last collection, whose id must be new.
  void addLast();

  /// The collection with that id, or null.
  const PointCollection* find(const GUIdentifier& id) const;

private:
  std::size_t slotOf(const GUIdentifier& id) const;

  const std::vector<PointCollection>& m_collections;
  std::vector<std::uint32_t> m_slots; ///< a power of two of them; 0 if free, otherwise a place + 1
};

}
