// SPDX-License-Identifier: MIT
#include "QtModels/Views/DropPoint.h"

#include <QtCore/QAbstractItemModel>
#include <QtGui/QDropEvent>
#include <QtWidgets/QTreeView>

#include <algorithm>
#include <cmath>

namespace Tarvik {
namespace {

enum class Part { Above, Onto, Below };

/// The parts as QAbstractItemView has them.
Part partAt(int y, const QRect& row)
{
  constexpr double rowPerMargin = 5.5;
  const int margin = std::clamp(static_cast<int>(std::lround(row.height() / rowPerMargin)), 2, 12);
  if (y - row.top() < margin)
    return Part::Above;
  return row.bottom() - y < margin ? Part::Below : Part::Onto;
}

bool canDrop(const QDropEvent& event, const QModelIndex& index, Part part)
{
  const auto action = event.dropAction();
  const auto* model = index.model();
  if (part == Part::Onto)
    return model->canDropMimeData(event.mimeData(), action, -1, -1, index);
  const int row = part == Part::Above ? index.row() : index.row() + 1;
  return model->canDropMimeData(event.mimeData(), action, row, index.column(), index.parent());
}

}

QPoint dropPoint(const QTreeView& view, const QDropEvent& event)
{
  const auto point = event.position().toPoint();
  const auto index = view.indexAt(point);
  if (!index.isValid() || !(index.flags() & Qt::ItemIsDropEnabled))
    return point;
  const auto row = view.visualRect(index);
  const auto center = row.center().y();
  const auto nearerSide = point.y() < center ? Part::Above : Part::Below;
  if (canDrop(event, index, partAt(point.y(), row)))
    return point;
  if (canDrop(event, index, Part::Onto))
    return {point.x(), center};
  if (canDrop(event, index, nearerSide))
    return {point.x(), nearerSide == Part::Above ? row.top() : row.bottom()};
  return point;
}

}
