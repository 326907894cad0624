// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Points/Camera.h"

#include <algorithm>
#include <cmath>

namespace Tarvik::PointCollections {
namespace {

constexpr double degreesPerRadian = 57.29578;

double shorterSideOf(const QSizeF& size)
{
  return (std::min)(size.width(), size.height());
}

}

QQuaternion Camera::sideView()
{
  return QQuaternion::fromAxes({0, 0, 1}, {1, 0, 0}, {0, 1, 0});
}

void Camera::turn(const QPointF& movement)
{
  const QVector3D axis(static_cast<float>(movement.y()), static_cast<float>(movement.x()), 0);
  if (axis.isNull())
    return;
  // A drag over the radius of the ball turns it by one radian, however large it is shown.
  const auto radius = (std::max)((std::min)(scale(), shorterSideOf(m_viewport) / 2), 1.0);
  const auto angle = std::hypot(movement.x(), movement.y()) / radius * degreesPerRadian;
  const auto rotation = QQuaternion::fromAxisAndAngle(axis.normalized(), static_cast<float>(angle));
  m_orientation = (rotation * m_orientation).normalized();
}

void Camera::pan(const QPointF& movement)
{
  m_offset += movement / scale();
  limitOffset();
}

void Camera::zoomBy(double factor, const QPointF& place)
{
  const auto before = (place - origin()) / scale();
  m_zoom = std::clamp(m_zoom * factor, leastZoom, greatestZoom);
  const auto after = (place - origin()) / scale();
  m_offset += after - before;
  limitOffset();
}

void Camera::centreOn(const QVector3D& point)
{
  const auto seen = m_orientation.rotatedVector(point);
  m_offset = QPointF(-static_cast<double>(seen.x()), static_cast<double>(seen.y()));
  limitOffset();
}

void Camera::reset()
{
  m_orientation = sideView();
  m_offset = {};
  m_zoom = 1;
}

double Camera::scale() const
{
  return (std::max)(shorterSideOf(m_viewport) / 2 * fill * m_zoom, 1e-3);
}

QPointF Camera::origin() const
{
  return QPointF(m_viewport.width() / 2, m_viewport.height() / 2) + m_offset * scale();
}

QVector3D Camera::project(const QVector3D& point) const
{
  const auto seen = m_orientation.rotatedVector(point);
  const auto middle = origin();
  const auto pixels = static_cast<float>(scale());
  return {static_cast<float>(middle.x()) + seen.x() * pixels,
          static_cast<float>(middle.y()) - seen.y() * pixels, seen.z()};
}

/// Keeps the middle of the viewport within the ball.
void Camera::limitOffset()
{
  m_offset = {std::clamp(m_offset.x(), -1.0, 1.0), std::clamp(m_offset.y(), -1.0, 1.0)};
}

}
