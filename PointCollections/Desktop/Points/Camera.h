// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QPointF>
#include <QtCore/QSizeF>
#include <QtGui/QQuaternion>
#include <QtGui/QVector3D>

namespace Tarvik::PointCollections {

/// From where points are seen: parallel projection onto a rectangle, with y downwards.
///
/// The points lie in the unit ball around the origin. With zoom 1 the ball fits into the
/// rectangle, with a small margin. All values are limited, so that no gesture can lose the points
/// for good.
class Camera {
public:
  /// How much of the rectangle the ball takes up with zoom 1.
  static constexpr double fill = 0.9;

  static constexpr double leastZoom = 0.1;
  static constexpr double greatestZoom = 10000;

  /// Sees the whole ball, from the side of the x axis, with the z axis upwards.
  Camera() = default;

  /// @param viewport  in pixels
  void setViewport(const QSizeF& viewport) { m_viewport = viewport; }
  const QSizeF& viewport() const { return m_viewport; }

  double zoom() const { return m_zoom; }

  /// Turns the points as if the ball was dragged by its front.
  /// @param movement  of the pointer, in pixels
  void turn(const QPointF& movement);

  /// Moves the points with the pointer.
  /// @param movement  in pixels
  void pan(const QPointF& movement);

  /// Enlarges the points around a place that stays where it is.
  /// @param factor  positive; below 1 makes the points smaller
  void zoomBy(double factor, const QPointF& place);

  /// Shows a point of the ball in the middle.
  void centreOn(const QVector3D& point);

  /// Shows the ball as at the start; the viewport stays.
  void reset();

  /// Pixels per unit.
  double scale() const;

  /// The place of the middle of the ball.
  QPointF origin() const;

  /// From the axes of the ball to those of the view: x to the right, y upwards, z to the viewer.
  const QQuaternion& orientation() const { return m_orientation; }

  /// The place of a point; z is its distance from the middle of the ball towards the viewer.
  QVector3D project(const QVector3D& point) const;

private:
  void limitOffset();

  static QQuaternion sideView();

  QSizeF m_viewport = {1, 1};
  QQuaternion m_orientation = sideView();
  QPointF m_offset; ///< of the middle of the ball from the middle of the viewport, in units
  double m_zoom = 1;
};

}
