// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Document/PointCollection.h"

namespace Tarvik::PointCollections {

/// An element with one point.
inline PointCollection pointAt(double x, double y, double z)
{
  PointCollection result;
  result.points = {{x, y, z}};
  return result;
}

}
