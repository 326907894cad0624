// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Points/PixelElements.h"

#include "PointCollections/Desktop/Points/Projection.h"

#include <QtCore/QRect>

#include <algorithm>
#include <cmath>

namespace Tarvik::PointCollections {
namespace {

/// Nearest first: the smaller number is in front. Depths are those of points in the unit ball.
std::uint32_t depthOf(float towardsViewer)
{
  return static_cast<std::uint32_t>((1.5F - std::clamp(towardsViewer, -1.4F, 1.4F)) * 1e9F);
}

std::uint64_t pixelOf(float towardsViewer, std::uint32_t element)
{
  return (std::uint64_t{depthOf(towardsViewer)} << 32U) | element;
}

std::uint32_t elementOf(std::uint64_t pixel)
{
  return static_cast<std::uint32_t>(pixel);
}

/// Points of the surface must be in front of the globe.
constexpr float globeRadius = 0.975F;

/// Whether the globe hides a point that is projected to this place.
bool isOnFarSide(float x, float y, float z, const Camera& camera)
{
  const auto radius = globeRadius * static_cast<float>(camera.scale());
  const auto dx = x - static_cast<float>(camera.origin().x());
  const auto dy = y - static_cast<float>(camera.origin().y());
  return z < 0 && dx * dx + dy * dy < radius * radius;
}

/// The rows of a point that is drawn as a disc: how many pixels to leave out on both sides.
std::vector<int> insetsOf(int pointSize)
{
  std::vector<int> insets(static_cast<std::size_t>(pointSize), 0);
  if (pointSize < 4)
    return insets;
  const auto radius = static_cast<float>(pointSize) / 2;
  for (int row = 0; row < pointSize; ++row) {
    const auto y = static_cast<float>(row) + 0.5F - radius;
    insets[static_cast<std::size_t>(row)] =
        static_cast<int>(std::lround(radius - std::sqrt(radius * radius - y * y)));
  }
  return insets;
}

}

std::vector<std::uint32_t>
elementsWithin(const QRectF& area, const PointCloud& cloud, const Camera& camera, Globe globe)
{
  const auto rectangle = area.normalized();
  const Projection projection(camera);
  std::vector<bool> isWithin(cloud.elementCount(), false);
  for (const auto& point : cloud.entries()) {
    const auto x = projection.x(point);
    const auto y = projection.y(point);
    if (rectangle.contains(static_cast<double>(x), static_cast<double>(y)) &&
        (globe == Globe::No || !isOnFarSide(x, y, projection.z(point), camera)))
      isWithin[point.element] = true;
  }
  std::vector<std::uint32_t> elements;
  for (std::size_t i = 0; i < isWithin.size(); ++i) {
    if (isWithin[i])
      elements.push_back(static_cast<std::uint32_t>(i));
  }
  return elements;
}

/// Empties all pixels. A globe is a depth that hides what is farther away.
void PixelElements::clear(const Camera& camera, Globe globe)
{
  m_size = camera.viewport().toSize().expandedTo({0, 0});
  m_pixels.assign(positionOf(0, m_size.height()), (std::numeric_limits<std::uint64_t>::max)());
  if (globe == Globe::No)
    return;
  const auto scale = static_cast<float>(camera.scale());
  const auto radius = globeRadius * scale;
  const auto middle = camera.origin();
  for (int row = 0; row < m_size.height(); ++row) {
    const auto y = static_cast<float>(row - middle.y());
    const auto halfWidth = std::sqrt((std::max)(radius * radius - y * y, 0.0F));
    const auto first =
        std::clamp(static_cast<int>(std::ceil(middle.x() - static_cast<double>(halfWidth))), 0,
                   m_size.width());
    const auto last = std::clamp(static_cast<int>(middle.x() + static_cast<double>(halfWidth)), -1,
                                 m_size.width() - 1);
    auto* const line = m_pixels.data() + positionOf(0, row);
    for (int column = first; column <= last; ++column) {
      const auto x = static_cast<float>(column - middle.x());
      const auto squared = radius * radius - x * x - y * y;
      line[column] = pixelOf(std::sqrt((std::max)(squared, 0.0F)) / scale, none);
    }
  }
}

void PixelElements::draw(const PointCloud& cloud, const Camera& camera, int pointSize, Globe globe)
{
  clear(camera, globe);
  const auto insets = insetsOf(std::clamp(pointSize, 1, 31));
  const auto size = static_cast<float>(insets.size());
  const Projection projection(camera);
  for (const auto& point : cloud.entries()) {
    const auto left = projection.x(point) - (size - 1) / 2;
    const auto top = projection.y(point) - (size - 1) / 2;
    // As floats, since a place far outside does not fit into an int.
    const auto isSeen = left > -size && left < static_cast<float>(m_size.width()) && top > -size &&
                        top < static_cast<float>(m_size.height());
    if (isSeen) {
      drawDisc(insets, static_cast<int>(std::floor(left)), static_cast<int>(std::floor(top)),
               pixelOf(projection.z(point), point.element));
    }
  }
}

void PixelElements::drawDisc(const std::vector<int>& insets, int left, int top, std::uint64_t pixel)
{
  const auto size = static_cast<int>(insets.size());
  const auto endRow = (std::min)(top + size, m_size.height());
  for (auto row = (std::max)(top, 0); row < endRow; ++row) {
    const auto inset = insets[static_cast<std::size_t>(row - top)];
    const auto first = (std::max)(left + inset, 0);
    const auto end = (std::min)(left + size - inset, m_size.width());
    auto* const line = m_pixels.data() + positionOf(0, row);
    for (auto column = first; column < end; ++column)
      line[column] = (std::min)(line[column], pixel);
  }
}

std::size_t PixelElements::positionOf(int column, int row) const
{
  return static_cast<std::size_t>(row) * static_cast<std::size_t>(m_size.width()) +
         static_cast<std::size_t>(column);
}

std::uint32_t PixelElements::at(const QPoint& pixel) const
{
  if (!QRect(QPoint(0, 0), m_size).contains(pixel))
    return none;
  return elementOf(m_pixels[positionOf(pixel.x(), pixel.y())]);
}

std::uint32_t PixelElements::nearest(const QPoint& pixel, int reach) const
{
  auto result = at(pixel);
  auto best = (std::numeric_limits<int>::max)();
  for (int y = -reach; y <= reach && best > 0; ++y) {
    for (int x = -reach; x <= reach; ++x) {
      const auto found = at(pixel + QPoint(x, y));
      if (found != none && x * x + y * y < best) {
        best = x * x + y * y;
        result = found;
      }
    }
  }
  return result;
}

QImage PixelElements::coloured(const std::vector<QRgb>& colours) const
{
  QImage image(m_size, QImage::Format_ARGB32_Premultiplied);
  for (int y = 0; y < m_size.height(); ++y) {
    auto* const line = reinterpret_cast<QRgb*>(image.scanLine(y));
    const auto* const pixels = m_pixels.data() + positionOf(0, y);
    std::transform(pixels, pixels + m_size.width(), line, [&](std::uint64_t pixel) {
      const auto element = elementOf(pixel);
      return element < colours.size() ? colours[element] : qRgba(0, 0, 0, 0);
    });
  }
  return image;
}

}
