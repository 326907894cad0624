// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Document/PointCollection.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Tarvik::PointCollections {

/// The points of all elements, as a view draws them: in single precision, around their centre and
/// in units of their radius. So coordinates of any size, and far from the origin, keep their
/// digits.
class PointCloud {
public:
  /// A point, not farther from the centre than 1, and the element that it belongs to.
  struct Entry {
    float x;
    float y;
    float z;
    std::uint32_t element; ///< its position in the list of collections
  };

  /// A cloud without points.
  PointCloud() = default;

  /// @param collections  the elements; fewer than 2^32 - 1
  explicit PointCloud(const std::vector<PointCollection>& collections);

  const std::vector<Entry>& entries() const { return m_entries; }

  /// How many elements there are, with points or without.
  std::size_t elementCount() const { return m_elementCount; }

  /// Whether all points, four at least, lie on a sphere around the origin, within two per cent. The
  /// centre is then the origin.
  bool isOnSphere() const { return m_isOnSphere; }

private:
  std::vector<Entry> m_entries;
  std::size_t m_elementCount = 0;
  bool m_isOnSphere = false;
};

}
