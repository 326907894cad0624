// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Points/Graticule.h"

#include <cmath>
#include <numbers>

namespace Tarvik::PointCollections {
namespace {

constexpr int degreesBetweenLines = 15;
constexpr int degreesPerPiece = 3; ///< lines are drawn as short straight pieces

QVector3D placeOnGlobe(int longitude, int latitude)
{
  constexpr auto radiansPerDegree = std::numbers::pi_v<float> / 180;
  const auto lambda = static_cast<float>(longitude) * radiansPerDegree;
  const auto phi = static_cast<float>(latitude) * radiansPerDegree;
  return {std::cos(phi) * std::cos(lambda), std::cos(phi) * std::sin(lambda), std::sin(phi)};
}

/// Appends places to a path, and leaves out those on the far side.
class FrontLine {
public:
  FrontLine(QPainterPath& path, const Camera& camera) : m_path(path), m_camera(camera) {}

  void appendPlace(int longitude, int latitude)
  {
    const auto seen = m_camera.project(placeOnGlobe(longitude, latitude));
    const auto isInFront = seen.z() >= 0;
    if (isInFront && m_wasInFront)
      m_path.lineTo(seen.toPointF());
    else if (isInFront)
      m_path.moveTo(seen.toPointF());
    m_wasInFront = isInFront;
  }

private:
  QPainterPath& m_path;
  const Camera& m_camera;
  bool m_wasInFront = false;
};

}

QPainterPath globeOutline(const Camera& camera)
{
  QPainterPath path;
  const auto radius = camera.scale();
  path.addEllipse(camera.origin(), radius, radius);
  return path;
}

QPainterPath graticule(const Camera& camera)
{
  QPainterPath path;
  for (int longitude = 0; longitude < 360; longitude += degreesBetweenLines) {
    FrontLine meridian(path, camera);
    for (int latitude = -90; latitude <= 90; latitude += degreesPerPiece)
      meridian.appendPlace(longitude, latitude);
  }
  for (int latitude = -90 + degreesBetweenLines; latitude < 90; latitude += degreesBetweenLines) {
    FrontLine parallel(path, camera);
    for (int longitude = 0; longitude <= 360; longitude += degreesPerPiece)
      parallel.appendPlace(longitude, latitude);
  }
  return path;
}

}
