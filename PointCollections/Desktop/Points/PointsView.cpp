// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Points/PointsView.h"

#include <QtGui/QDrag>
#include <QtGui/QHelpEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QToolTip>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numeric>
#include <utility>

namespace Tarvik::PointCollections {
namespace {

constexpr int reachOfPointer = 4;     ///< pixels between the pointer and a point that it hits
constexpr double keyboardStep = 20.0; ///< pixels that one key press turns or moves the points
constexpr double keyboardZoom = 1.25;

PointsView::Elements symmetricDifference(const PointsView::Elements& a,
                                         const PointsView::Elements& b)
{
  PointsView::Elements result;
  std::set_symmetric_difference(a.begin(), a.end(), b.begin(), b.end(), std::back_inserter(result));
  return result;
}

PointsView::Elements unionOf(const PointsView::Elements& a, const PointsView::Elements& b)
{
  PointsView::Elements result;
  std::set_union(a.begin(), a.end(), b.begin(), b.end(), std::back_inserter(result));
  return result;
}

}

PointsView::PointsView(QWidget* parent) : QWidget(parent)
{
  setFocusPolicy(Qt::StrongFocus);
  describe();
}

PointsView::~PointsView() = default;

/// For screen readers.
void PointsView::describe()
{
  setAccessibleName(tr("Points in space"));
  setAccessibleDescription(
      tr("Arrow keys turn the points, with Shift they move them; plus and minus zoom, Home shows "
         "all. Ctrl+A selects all, Escape nothing."));
}

void PointsView::setCloud(PointCloud cloud)
{
  m_painter.setCloud(std::move(cloud));
  m_selection.clear();
  resetCamera();
}

void PointsView::setColours(std::vector<QRgb> colours)
{
  m_painter.setColours(std::move(colours));
  update();
}

void PointsView::setNames(std::function<QString(std::uint32_t)> nameOf)
{
  m_nameOf = std::move(nameOf);
}

void PointsView::setMimeDataMaker(std::function<QMimeData*(const Elements&)> makeMimeData)
{
  m_makeMimeData = std::move(makeMimeData);
}

void PointsView::setMode(Mode mode)
{
  m_mode = mode;
  setCursor(mode == Mode::Select ? Qt::CrossCursor : Qt::ArrowCursor);
}

void PointsView::setSelection(Elements elements)
{
  std::sort(elements.begin(), elements.end());
  elements.erase(std::unique(elements.begin(), elements.end()), elements.end());
  const auto count = m_painter.cloud().elementCount();
  elements.erase(std::lower_bound(elements.begin(), elements.end(), count), elements.end());
  if (elements == m_selection)
    return;
  m_selection = std::move(elements);
  m_painter.setSelection(m_selection);
  update();
}

/// Selects as the user asks for.
void PointsView::select(Elements elements)
{
  const auto before = m_selection;
  setSelection(std::move(elements));
  if (m_selection != before)
    Q_EMIT selectionChanged();
}

void PointsView::resetCamera()
{
  changeCamera([](Camera& camera) { camera.reset(); });
}

void PointsView::changeCamera(const std::function<void(Camera&)>& change)
{
  change(m_camera);
  m_painter.forgetPixels();
  update();
}

std::optional<std::uint32_t> PointsView::elementAt(const QPointF& place) const
{
  return m_painter.elementAt(place, reachOfPointer);
}

QSize PointsView::sizeHint() const
{
  return {640, 480};
}

QSize PointsView::minimumSizeHint() const
{
  return {120, 90};
}

void PointsView::paintEvent(QPaintEvent*)
{
  QPainter painter(this);
  m_painter.paint(painter, m_camera, palette());
  if (m_gesture == Gesture::Rectangle) {
    auto fill = palette().color(QPalette::Highlight);
    painter.setPen(fill);
    fill.setAlphaF(0.2F);
    painter.setBrush(fill);
    painter.drawRect(QRectF(m_pressedAt, m_lastPlace).normalized());
  }
  if (hasFocus()) {
    painter.setPen(palette().color(QPalette::Highlight));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }
}

QImage PointsView::picture(qreal factor) const
{
  return m_painter.picture(m_camera, palette(), factor);
}

void PointsView::resizeEvent(QResizeEvent*)
{
  changeCamera([this](Camera& camera) { camera.setViewport(size()); });
}

bool PointsView::event(QEvent* event)
{
  if (event->type() == QEvent::ToolTip && m_nameOf) {
    const auto* const help = static_cast<QHelpEvent*>(event);
    const auto element = elementAt(help->pos());
    QToolTip::showText(help->globalPos(), element ? m_nameOf(*element) : QString(), this);
    return true;
  }
  if (event->type() == QEvent::LanguageChange)
    describe();
  return QWidget::event(event);
}

void PointsView::mousePressEvent(QMouseEvent* event)
{
  m_pressedAt = m_lastPlace = event->position();
  m_gesture = event->button() == Qt::LeftButton ? Gesture::Undecided : Gesture::Pan;
}

void PointsView::mouseMoveEvent(QMouseEvent* event)
{
  const auto movement = event->position() - m_lastPlace;
  if (m_gesture == Gesture::Undecided) {
    const auto distance = (event->position() - m_pressedAt).manhattanLength();
    if (distance < QApplication::startDragDistance())
      return;
    const auto pressed = elementAt(m_pressedAt);
    const auto isSelected =
        pressed && std::binary_search(m_selection.begin(), m_selection.end(), *pressed);
    if (event->modifiers().testFlag(Qt::ShiftModifier) || (m_mode == Mode::Select && !isSelected))
      m_gesture = Gesture::Rectangle;
    else
      m_gesture = isSelected && m_makeMimeData ? Gesture::DragOut : Gesture::Turn;
  }
  m_lastPlace = event->position();
  switch (m_gesture) {
  case Gesture::Turn:
    changeCamera([&](Camera& camera) { camera.turn(movement); });
    break;
  case Gesture::Pan:
    changeCamera([&](Camera& camera) { camera.pan(movement); });
    break;
  case Gesture::DragOut:
    dragSelectionOut();
    break;
  default:
    update();
  }
}

void PointsView::mouseReleaseEvent(QMouseEvent* event)
{
  const auto gesture = std::exchange(m_gesture, Gesture::None);
  if (gesture == Gesture::Undecided)
    clickAt(event->position(), event->modifiers());
  else if (gesture == Gesture::Rectangle)
    selectWithin(QRectF(m_pressedAt, event->position()).normalized(), event->modifiers());
  update();
}

void PointsView::dragSelectionOut()
{
  m_gesture = Gesture::None; // the release of the button does not reach the view
  auto* const dragged = m_makeMimeData(m_selection);
  if (!dragged)
    return;
  auto* const drag = new QDrag(this); // Qt deletes it
  drag->setMimeData(dragged);
  drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::MoveAction);
}

void PointsView::clickAt(const QPointF& place, Qt::KeyboardModifiers modifiers)
{
  const auto element = elementAt(place);
  const auto clicked = element ? Elements{*element} : Elements();
  const auto toggles = modifiers & (Qt::ControlModifier | Qt::ShiftModifier);
  select(toggles ? symmetricDifference(m_selection, clicked) : clicked);
}

void PointsView::selectWithin(const QRectF& area, Qt::KeyboardModifiers modifiers)
{
  auto elements = elementsWithin(area, m_painter.cloud(), m_camera, m_painter.globe());
  select(modifiers.testFlag(Qt::ControlModifier) ? unionOf(m_selection, elements)
                                                 : std::move(elements));
}

void PointsView::wheelEvent(QWheelEvent* event)
{
  const auto factor = std::exp2(event->angleDelta().y() / 480.0);
  changeCamera([&](Camera& camera) { camera.zoomBy(factor, event->position()); });
}

void PointsView::keyPressEvent(QKeyEvent* event)
{
  const auto isMoving = event->modifiers().testFlag(Qt::ShiftModifier);
  const auto move = [&](double x, double y) {
    const auto movement = QPointF(x, y) * keyboardStep;
    changeCamera([&](Camera& camera) { isMoving ? camera.pan(movement) : camera.turn(movement); });
  };
  const auto zoom = [this](double factor) {
    changeCamera([&](Camera& camera) { camera.zoomBy(factor, rect().toRectF().center()); });
  };
  if (event->matches(QKeySequence::SelectAll)) {
    Elements all(m_painter.cloud().elementCount());
    std::iota(all.begin(), all.end(), 0U);
    select(std::move(all));
    return;
  }
  switch (event->key()) {
  case Qt::Key_Left:
    move(-1, 0);
    break;
  case Qt::Key_Right:
    move(1, 0);
    break;
  case Qt::Key_Up:
    move(0, -1);
    break;
  case Qt::Key_Down:
    move(0, 1);
    break;
  case Qt::Key_Plus:
  case Qt::Key_Equal:
    zoom(keyboardZoom);
    break;
  case Qt::Key_Minus:
    zoom(1 / keyboardZoom);
    break;
  case Qt::Key_Home:
    resetCamera();
    break;
  case Qt::Key_Escape:
    select({});
    break;
  default:
    QWidget::keyPressEvent(event);
  }
}

}
