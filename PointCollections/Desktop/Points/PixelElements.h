// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Desktop/Points/Camera.h"
#include "PointCollections/Desktop/Points/PointCloud.h"

#include <QtCore/QPoint>
#include <QtCore/QRectF>
#include <QtCore/QSize>
#include <QtGui/QImage>

#include <cstdint>
#include <limits>
#include <vector>

namespace Tarvik::PointCollections {

/// Whether a globe hides the points on its far side.
enum class Globe { No, Yes };

/// The elements with a point in a part of a view, ascending. Points in front of it do not hide an
/// element, the globe does.
std::vector<std::uint32_t>
elementsWithin(const QRectF& area, const PointCloud& cloud, const Camera& camera, Globe globe);

/// Which element is in front at each pixel of a view. It is computed from the points, on the
/// processor alone; colours and answers to "what is here?" come from it without the points.
class PixelElements {
public:
  /// A pixel without an element.
  static constexpr std::uint32_t none = (std::numeric_limits<std::uint32_t>::max)();

  /// Draws each point as a disc around its place; small ones are squares. Takes time that grows
  /// with the points and with the pixels.
  /// @param camera     its viewport is the size, in pixels of the device
  /// @param pointSize  the width of a point in pixels, from 1 to 31
  void draw(const PointCloud& cloud, const Camera& camera, int pointSize, Globe globe);

  QSize size() const { return m_size; }

  /// The element at a pixel, or none; none outside of the view.
  std::uint32_t at(const QPoint& pixel) const;

  /// The element nearest to a pixel, not farther away than `reach` pixels in each direction.
  std::uint32_t nearest(const QPoint& pixel, int reach) const;

  /// The picture: a colour for each element, transparent where there is none.
  /// @param colours  by element; pixels of elements beyond the end stay transparent
  QImage coloured(const std::vector<QRgb>& colours) const;

private:
  void clear(const Camera& camera, Globe globe);
  void drawDisc(const std::vector<int>& insets, int left, int top, std::uint64_t pixel);
  std::size_t positionOf(int column, int row) const;

  QSize m_size;
  std::vector<std::uint64_t> m_pixels; ///< depth in the high half, element in the low one
};

}
