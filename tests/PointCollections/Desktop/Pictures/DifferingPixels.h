// SPDX-License-Identifier: MIT
#pragma once

#include <QtGui/QImage>

#include <algorithm>
#include <cstdlib>

namespace Tarvik::PointCollections {

/// By how much red, green or blue may differ in pixels that look alike: edges of letters are
/// smoothed a little differently by other versions of the libraries for fonts.
inline constexpr int tolerancePerColour = 32;

/// The greatest difference of red, green and blue.
inline int distanceOf(QRgb a, QRgb b)
{
  return (std::max)({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                     std::abs(qBlue(a) - qBlue(b))});
}

/// How many pixels of two pictures of the same size look different.
inline int differingPixels(const QImage& a, const QImage& b)
{
  int count = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      if (distanceOf(a.pixel(x, y), b.pixel(x, y)) > tolerancePerColour)
        ++count;
    }
  }
  return count;
}

}
