// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Desktop/Points/Camera.h"
#include "PointCollections/Desktop/Points/PointCloud.h"

#include <array>
#include <cstddef>

namespace Tarvik::PointCollections {

/// What a camera does to points, as plain numbers: a million points are projected in milliseconds.
class Projection {
public:
  explicit Projection(const Camera& camera)
      : m_shiftX(static_cast<float>(camera.origin().x())),
        m_shiftY(static_cast<float>(camera.origin().y()))
  {
    const auto rotation = camera.orientation().toRotationMatrix();
    const auto scale = static_cast<float>(camera.scale());
    for (int axis = 0; axis < 3; ++axis) {
      const auto i = static_cast<std::size_t>(axis);
      m_x[i] = rotation(0, axis) * scale;
      m_y[i] = -rotation(1, axis) * scale;
      m_z[i] = rotation(2, axis);
    }
  }

  /// In pixels from the left.
  float x(const PointCloud::Entry& point) const { return product(m_x, point) + m_shiftX; }

  /// In pixels from the top.
  float y(const PointCloud::Entry& point) const { return product(m_y, point) + m_shiftY; }

  /// The distance from the middle of the cloud towards the viewer, in units.
  float z(const PointCloud::Entry& point) const { return product(m_z, point); }

private:
  using Row = std::array<float, 3>;

  static float product(const Row& row, const PointCloud::Entry& point)
  {
    return row[0] * point.x + row[1] * point.y + row[2] * point.z;
  }

  Row m_x{};
  Row m_y{};
  Row m_z{};
  float m_shiftX;
  float m_shiftY;
};

}
