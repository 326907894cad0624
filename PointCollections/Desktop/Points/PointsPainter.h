// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Desktop/Points/Camera.h"
#include "PointCollections/Desktop/Points/PixelElements.h"
#include "PointCollections/Desktop/Points/PointCloud.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPalette>

#include <cstdint>
#include <optional>
#include <vector>

namespace Tarvik::PointCollections {

/// Draws points, and the globe if they lie on one, in the pixels of the device: sharp on a fine
/// display, too. Keeps what it has drawn until something changes.
class PointsPainter {
public:
  /// Elements by their positions in the list of collections.
  using Elements = std::vector<std::uint32_t>;

  const PointCloud& cloud() const { return m_cloud; }
  void setCloud(PointCloud cloud);

  /// @param colours  by element; elements beyond the end are not shown
  void setColours(std::vector<QRgb> colours);

  /// While some are selected, these have the colour of texts, and all others are pale.
  void setSelection(Elements elements);

  Globe globe() const { return m_cloud.isOnSphere() ? Globe::Yes : Globe::No; }

  /// The camera has been changed.
  void forgetPixels() { m_arePixelsValid = false; }

  /// Draws everything, on a background of the palette.
  /// @param camera  in units of the painter
  void paint(QPainter& painter, const Camera& camera, const QPalette& palette);

  /// The element that paint() has drawn at a place or not farther away than `reach`.
  std::optional<std::uint32_t> elementAt(const QPointF& place, int reach) const;

  /// A picture that is `factor` times as large as what paint() draws, without what shows the
  /// selection.
  QImage picture(const Camera& camera, const QPalette& palette, qreal factor) const;

private:
  int pointSize(const QSizeF& viewport, qreal factor) const;
  std::vector<QRgb> coloursOfPixels(QRgb selected) const;
  void draw(const Camera& camera, QRgb selected, qreal factor);
  void paintGlobe(QPainter& painter,
                  const Camera& camera,
                  const QPalette& palette,
                  qreal lineWidth) const;

  PointCloud m_cloud;
  std::vector<QRgb> m_colours;
  Elements m_selection;

  PixelElements m_pixels; ///< in pixels of the device
  QImage m_image;
  QRgb m_selected = 0; ///< the colour of the selection in the image
  bool m_arePixelsValid = false;
  bool m_isImageValid = false;
};

}
