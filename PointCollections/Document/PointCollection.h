// SPDX-License-Identifier: MIT
#pragma once

#include "Identifier/GUIdentifier.h"

#include <string>
#include <vector>

namespace Tarvik::PointCollections {

/// A place in space. The unit is that of the file the point comes from; the program only carries
/// it along. Coordinates are finite.
struct Point {
  double x = 0;
  double y = 0;
  double z = 0;

  friend bool operator==(const Point& a, const Point& b) = default;
};

/// Points under one name: what the user puts into groups, where it is called an element.
struct PointCollection {
  GUIdentifier id; ///< a new one unless given
  std::string name;
  std::vector<Point> points;
};

}
