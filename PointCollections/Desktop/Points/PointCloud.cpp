// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Points/PointCloud.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Tarvik::PointCollections {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

/// The least box around points, and their distances from the origin.
struct Extent {
  Point low = {infinity, infinity, infinity};
  Point high = {-infinity, -infinity, -infinity};
  double nearest = infinity;
  double farthest = 0;
  std::size_t count = 0;

  void include(const Point& point)
  {
    low = {(std::min)(low.x, point.x), (std::min)(low.y, point.y), (std::min)(low.z, point.z)};
    high = {(std::max)(high.x, point.x), (std::max)(high.y, point.y), (std::max)(high.z, point.z)};
    const auto distance = std::hypot(point.x, point.y, point.z);
    nearest = (std::min)(nearest, distance);
    farthest = (std::max)(farthest, distance);
    ++count;
  }

  bool isSphere() const { return count >= 4 && farthest > 0 && nearest >= 0.98 * farthest; }

  /// Halves are added, since the sum may be infinite.
  Point centre() const
  {
    if (count == 0 || isSphere())
      return {};
    return {low.x / 2 + high.x / 2, low.y / 2 + high.y / 2, low.z / 2 + high.z / 2};
  }
};

Extent extentOf(const std::vector<PointCollection>& collections)
{
  Extent extent;
  for (const auto& collection : collections) {
    for (const auto& point : collection.points)
      extent.include(point);
  }
  return extent;
}

double distanceBetween(const Point& a, const Point& b)
{
  return std::hypot(a.x - b.x, a.y - b.y, a.z - b.z);
}

/// The distance from the centre to the farthest point; 1 if there is none away from the centre.
double radiusAround(const Point& centre, const std::vector<PointCollection>& collections)
{
  double radius = 0;
  for (const auto& collection : collections) {
    for (const auto& point : collection.points)
      radius = (std::max)(radius, distanceBetween(point, centre));
  }
  return radius > 0 ? (std::min)(radius, std::numeric_limits<double>::max()) : 1;
}

}

PointCloud::PointCloud(const std::vector<PointCollection>& collections)
    : m_elementCount(collections.size())
{
  const auto extent = extentOf(collections);
  const auto centre = extent.centre();
  const auto radius = radiusAround(centre, collections);
  m_isOnSphere = extent.isSphere();
  m_entries.reserve(extent.count);
  std::uint32_t element = 0;
  for (const auto& collection : collections) {
    for (const auto& point : collection.points) {
      m_entries.push_back({static_cast<float>((point.x - centre.x) / radius),
                           static_cast<float>((point.y - centre.y) / radius),
                           static_cast<float>((point.z - centre.z) / radius), element});
    }
    ++element;
  }
}

}
