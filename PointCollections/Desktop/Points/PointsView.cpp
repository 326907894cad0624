// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Points/PointsView.h"

#include "PointCollections/Desktop/Points/Graticule.h"

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

/// A camera for a picture that is `factor` times as large.
Camera magnified(Camera camera, qreal factor)
{
  camera.setViewport(camera.viewport() * factor);
  return camera;
}

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
  setAccessibleName(tr("Points in space"));
  setAccessibleDescription(tr("Arrow keys turn the points, with Shift they move them; plus and "
                              "minus zoom, Home shows all."));
}

PointsView::~PointsView() = default;

void PointsView::setCloud(PointCloud cloud)
{
  m_cloud = std::move(cloud);
  m_selection.clear();
  resetCamera();
}

void PointsView::setColours(std::vector<QRgb> colours)
{
  m_colours = std::move(colours);
  m_isImageValid = false;
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
  elements.erase(std::lower_bound(elements.begin(), elements.end(), m_cloud.elementCount()),
                 elements.end());
  if (elements == m_selection)
    return;
  m_selection = std::move(elements);
  m_isImageValid = false;
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
  m_arePixelsValid = false;
  update();
}

std::optional<std::uint32_t> PointsView::elementAt(const QPointF& place) const
{
  const auto factor = devicePixelRatioF();
  const auto reach = static_cast<int>(std::ceil(reachOfPointer * factor));
  const auto element = m_pixels.nearest((place * factor).toPoint(), reach);
  return element != PixelElements::none ? std::optional(element) : std::nullopt;
}

QSize PointsView::sizeHint() const
{
  return {640, 480};
}

QSize PointsView::minimumSizeHint() const
{
  return {120, 90};
}

Globe PointsView::globe() const
{
  return m_cloud.isOnSphere() ? Globe::Yes : Globe::No;
}

/// Few points are large, many are small: together they cover a twentieth of the view.
int PointsView::pointSize(const QSizeF& viewport) const
{
  const auto area = viewport.width() * viewport.height() / 20;
  const auto count = static_cast<double>((std::max)(m_cloud.entries().size(), std::size_t{1}));
  const auto largest =
      7 * std::sqrt(viewport.width() / (std::max)(width(), 1)); // more on a fine display
  return static_cast<int>(std::clamp(std::sqrt(area / count), 1.0, largest));
}

/// The elements in their colours. While some are selected, these have the colour of selections and
/// all others are pale.
std::vector<QRgb> PointsView::coloursOfPixels(bool showsSelection) const
{
  auto colours = m_colours;
  if (!showsSelection || m_selection.empty())
    return colours;
  std::transform(colours.begin(), colours.end(), colours.begin(), [](QRgb colour) {
    return qPremultiply(qRgba(qRed(colour), qGreen(colour), qBlue(colour), 110));
  });
  const auto selected = palette().color(QPalette::Highlight).rgb();
  for (const auto element : m_selection) {
    if (element < colours.size())
      colours[element] = selected;
  }
  return colours;
}

void PointsView::drawPoints()
{
  const auto factor = devicePixelRatioF();
  if (!m_arePixelsValid) {
    const auto camera = magnified(m_camera, factor);
    m_pixels.draw(m_cloud, camera, pointSize(camera.viewport()), globe());
    m_arePixelsValid = true;
    m_isImageValid = false;
  }
  if (!m_isImageValid) {
    m_image = m_pixels.coloured(coloursOfPixels(true));
    m_image.setDevicePixelRatio(factor);
    m_isImageValid = true;
  }
}

void PointsView::paintGlobe(QPainter& painter, const Camera& camera) const
{
  if (globe() == Globe::No)
    return;
  auto line = palette().color(QPalette::Text);
  line.setAlphaF(0.18F);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(line, camera.viewport().width() / (std::max)(width(), 1)));
  painter.setBrush(palette().alternateBase());
  painter.drawPath(globeOutline(camera));
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(graticule(camera));
}

void PointsView::paintEvent(QPaintEvent*)
{
  drawPoints();
  QPainter painter(this);
  painter.fillRect(rect(), palette().base());
  paintGlobe(painter, m_camera);
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.drawImage(QPointF(0, 0), m_image);
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
  const auto camera = magnified(m_camera, factor);
  QImage image(camera.viewport().toSize(), QImage::Format_ARGB32_Premultiplied);
  image.fill(palette().color(QPalette::Base));
  PixelElements pixels;
  pixels.draw(m_cloud, camera, pointSize(camera.viewport()), globe());
  QPainter painter(&image);
  paintGlobe(painter, camera);
  painter.drawImage(QPointF(0, 0), pixels.coloured(coloursOfPixels(false)));
  return image;
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
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange)
    m_isImageValid = false;
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
  auto elements = elementsWithin(area, m_cloud, m_camera, globe());
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
    Elements all(m_cloud.elementCount());
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
