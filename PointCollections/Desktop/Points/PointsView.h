// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Desktop/Points/Camera.h"
#include "PointCollections/Desktop/Points/PointCloud.h"
#include "PointCollections/Desktop/Points/PointsPainter.h"

#include <QtCore/QMimeData>
#include <QtCore/QString>
#include <QtWidgets/QWidget>

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace Tarvik::PointCollections {

/// Shows points in space and lets the user select their elements.
///
/// Mouse: dragging turns the points, with Shift or in the mode Select it draws a rectangle that
/// selects, and from a selected point it drags the selection out. The other buttons move the
/// points, the wheel zooms. Keyboard: arrows turn, with Shift they move; plus and minus zoom; Home
/// shows everything; Ctrl+A selects all, Escape nothing.
class PointsView : public QWidget {
  Q_OBJECT

public:
  /// What dragging with the left button does.
  enum class Mode { Turn, Select };

  /// Elements by their positions in the list of collections, ascending, without duplicates.
  using Elements = PointsPainter::Elements;

  explicit PointsView(QWidget* parent = nullptr);
  ~PointsView() override;

  /// Shows other points. Nothing is selected then, and the camera is as at the start.
  void setCloud(PointCloud cloud);

  /// Shows the elements in these colours.
  /// @param colours  by element; elements beyond the end are not shown
  void setColours(std::vector<QRgb> colours);

  /// The name of an element, for tooltips.
  void setNames(std::function<QString(std::uint32_t)> nameOf);

  /// What is dragged out of the view for the selected elements. Without it, nothing is.
  void setMimeDataMaker(std::function<QMimeData*(const Elements&)> makeMimeData);

  Mode mode() const { return m_mode; }
  void setMode(Mode mode);

  const Elements& selection() const { return m_selection; }

  /// Selects these elements; unknown ones are ignored. Does not emit selectionChanged().
  void setSelection(Elements elements);

  const Camera& camera() const { return m_camera; }

  /// Shows everything, as at the start.
  void resetCamera();

  /// The element that is shown at a place of the widget or close to it.
  std::optional<std::uint32_t> elementAt(const QPointF& place) const;

  /// Draws the points into a picture of the size of the widget, times the factor, without what
  /// shows the selection.
  QImage picture(qreal factor) const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

Q_SIGNALS:
  /// The user has selected other elements.
  void selectionChanged();

protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

private:
  /// What the mouse does while a button is held.
  enum class Gesture { None, Undecided, Turn, Pan, Rectangle, DragOut };

  void changeCamera(const std::function<void(Camera&)>& change);
  void clickAt(const QPointF& place, Qt::KeyboardModifiers modifiers);
  void describe();
  void dragSelectionOut();
  void select(Elements elements);
  void selectWithin(const QRectF& area, Qt::KeyboardModifiers modifiers);

  PointsPainter m_painter;
  std::function<QString(std::uint32_t)> m_nameOf;
  std::function<QMimeData*(const Elements&)> m_makeMimeData;
  Camera m_camera; ///< in pixels of the widget
  Mode m_mode = Mode::Turn;
  Elements m_selection;

  Gesture m_gesture = Gesture::None;
  QPointF m_pressedAt;
  QPointF m_lastPlace;
};

}
