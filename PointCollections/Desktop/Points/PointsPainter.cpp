// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Points/PointsPainter.h"

#include "PointCollections/Desktop/Points/Graticule.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Tarvik::PointCollections {
namespace {

/// A camera for a picture that is `factor` times as large.
Camera magnified(Camera camera, qreal factor)
{
  camera.setViewport(camera.viewport() * factor);
  return camera;
}

}

void PointsPainter::setCloud(PointCloud cloud)
{
  m_cloud = std::move(cloud);
  m_selection.clear();
  m_arePixelsValid = false;
}

void PointsPainter::setColours(std::vector<QRgb> colours)
{
  m_colours = std::move(colours);
  m_isImageValid = false;
}

void PointsPainter::setSelection(Elements elements)
{
  m_selection = std::move(elements);
  m_isImageValid = false;
}

std::optional<std::uint32_t> PointsPainter::elementAt(const QPointF& place, int reach) const
{
  const auto factor = m_image.devicePixelRatio();
  const auto element =
      m_pixels.nearest((place * factor).toPoint(), static_cast<int>(std::ceil(reach * factor)));
  return element != PixelElements::none ? std::optional(element) : std::nullopt;
}

/// Few points are large, many are small: together they cover a twentieth of the view.
int PointsPainter::pointSize(const QSizeF& viewport, qreal factor) const
{
  const auto area = viewport.width() * viewport.height() / 20;
  const auto count = static_cast<double>((std::max)(m_cloud.entries().size(), std::size_t{1}));
  const auto largest = 7 * std::sqrt(factor); // more on a fine display
  return static_cast<int>(std::clamp(std::sqrt(area / count), 1.0, largest));
}

std::vector<QRgb> PointsPainter::coloursOfPixels(QRgb selected) const
{
  auto colours = m_colours;
  if (m_selection.empty())
    return colours;
  std::transform(colours.begin(), colours.end(), colours.begin(), [](QRgb colour) {
    return qPremultiply(qRgba(qRed(colour), qGreen(colour), qBlue(colour), 110));
  });
  for (const auto element : m_selection) {
    if (element < colours.size())
      colours[element] = selected;
  }
  return colours;
}

void PointsPainter::draw(const Camera& camera, QRgb selected, qreal factor)
{
  // The window may have come to another display, or the user may have chosen other colours.
  const auto isOtherDisplay = !qFuzzyCompare(m_image.devicePixelRatio(), factor);
  if (!m_arePixelsValid || isOtherDisplay) {
    const auto magnifiedCamera = magnified(camera, factor);
    m_pixels.draw(m_cloud, magnifiedCamera, pointSize(magnifiedCamera.viewport(), factor), globe());
    m_arePixelsValid = true;
    m_isImageValid = false;
  }
  if (!m_isImageValid || selected != m_selected) {
    m_image = m_pixels.coloured(coloursOfPixels(selected));
    m_image.setDevicePixelRatio(factor);
    m_selected = selected;
    m_isImageValid = true;
  }
}

void PointsPainter::paintGlobe(QPainter& painter,
                               const Camera& camera,
                               const QPalette& palette,
                               qreal lineWidth) const
{
  if (globe() == Globe::No)
    return;
  auto line = palette.color(QPalette::Text);
  line.setAlphaF(0.18F);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(line, lineWidth));
  painter.setBrush(palette.alternateBase());
  painter.drawPath(globeOutline(camera));
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(graticule(camera));
}

void PointsPainter::paint(QPainter& painter, const Camera& camera, const QPalette& palette)
{
  // No group has the colour of texts; many have one like that of selected rows.
  draw(camera, palette.color(QPalette::Text).rgb(), painter.device()->devicePixelRatioF());
  painter.fillRect(QRectF(QPointF(0, 0), camera.viewport()), palette.base());
  paintGlobe(painter, camera, palette, 1);
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.drawImage(QPointF(0, 0), m_image);
}

QImage PointsPainter::picture(const Camera& camera, const QPalette& palette, qreal factor) const
{
  const auto magnifiedCamera = magnified(camera, factor);
  QImage image(magnifiedCamera.viewport().toSize(), QImage::Format_ARGB32_Premultiplied);
  image.fill(palette.color(QPalette::Base));
  PixelElements pixels;
  pixels.draw(m_cloud, magnifiedCamera, pointSize(magnifiedCamera.viewport(), factor), globe());
  QPainter painter(&image);
  paintGlobe(painter, magnifiedCamera, palette, factor);
  painter.drawImage(QPointF(0, 0), pixels.coloured(m_colours));
  return image;
}

}
