// SPDX-License-Identifier: MIT
#pragma once

#include "Identifier/GUIdentifier.h"

#include <string>
#include <vector>

namespace Tarvik::PointCollections {

/// A place in space. Coordinates are finite; the program does not care about their unit.
struct Point {
  double x = 0;
  double y = 0;
  double z = 0;

  friend bool operator==(const Point& a, const Point& b) = default;
};

/// Points under one name. These are the elements that the user puts into groups.
struct PointCollection {
  GUIdentifier id; ///< a new one by default
  std::string name;
  std::vector<Point> points;
};

}
