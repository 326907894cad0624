// SPDX-License-Identifier: MIT
#include "QtModels/Views/DropIndicator.h"

#include <QtCore/QPoint>
#include <QtGui/QPainter>
#include <QtGui/QPalette>

namespace Tarvik {
namespace {

constexpr qreal lineWidth = 2;
constexpr qreal cornerRadius = 3;
constexpr qreal knobRadius = 3;

void paintFrame(QPainter& painter, const QRect& rect, const QColor& color)
{
  constexpr float tint = 0.2F;
  auto fill = color;
  fill.setAlphaF(tint);
  painter.setBrush(fill);
  const auto inset = lineWidth / 2;
  painter.drawRoundedRect(QRectF(rect).adjusted(inset, inset, -inset, -inset), cornerRadius,
                          cornerRadius);
}

/// A line that begins with a small circle, so that it cannot be taken for the edge of a frame. It
/// begins where rows begin.
void paintLine(QPainter& painter, const QRect& rect)
{
  const auto isMirrored = painter.layoutDirection() == Qt::RightToLeft;
  const auto forward = isMirrored ? -1 : 1;
  const QPointF begin(isMirrored ? rect.right() : rect.left(), rect.top());
  const QPointF end(isMirrored ? rect.left() : rect.right(), rect.top());
  const auto knob = begin + QPointF(forward * (knobRadius + 1), 0);
  painter.drawEllipse(knob, knobRadius, knobRadius);
  painter.drawLine(knob + QPointF(forward * knobRadius, 0), end);
}

}

void DropIndicator::paint(QPainter& painter, const QPalette& palette) const
{
  const auto color = palette.color(QPalette::Highlight);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(color, lineWidth));
  if (shape == Shape::Frame)
    paintFrame(painter, rect, color);
  else if (shape == Shape::Line)
    paintLine(painter, rect);
  painter.restore();
}

}
