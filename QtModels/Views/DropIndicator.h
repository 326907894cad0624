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
  enum class Shape { None, Frame, Line };

  Shape shape = Shape::None;
  QRect rect = {}; ///< of the frame, or of the line with no height

  void paint(QPainter& painter, const QPalette& palette) const;

  bool operator==(const DropIndicator&) const = default;
};

}
