// SPDX-License-Identifier: MIT
#pragma once

#include "QtModels/QtModelsExport.h"

#include <QtCore/QRect>

class QPainter;
class QPalette;

namespace Tarvik {

/// Shows where a drop would go: a frame around the row that it would go into, or a line between two
/// rows.
struct TKM_QTMODELS_API DropIndicator {
  /// What is shown.
  enum class Shape { None, Frame, Line };

  Shape shape = Shape::None; ///< what is shown at present
  QRect rect = {};           ///< of the frame, or of the line with no height

  /// Draws the shape; nothing for Shape::None.
  /// @param painter  of the view, with its layout direction: rows begin on the right in a view from
  ///                 right to left
  /// @param palette  gives the colour
  void paint(QPainter& painter, const QPalette& palette) const;

  /// Whether both look alike.
  bool operator==(const DropIndicator&) const = default;
};

}
