// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Pictures/Stage.h"

#include "PointCollections/Desktop/Pictures/Continents.h"
#include "PointCollections/Desktop/Window/FakeQuestions.h"
#include "PointCollections/Desktop/Window/FileNames.h"
#include "PointCollections/Desktop/Window/Languages.h"

#include <QtCore/QMimeData>
#include <QtCore/QSettings>
#include <QtGui/QDragMoveEvent>
#include <QtGui/QPainter>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

namespace Tarvik::PointCollections {
namespace {

constexpr QSize sizeOfWindow(1020, 660);

/// The usual arrow, since pictures of windows are without the pointer.
void drawPointer(QPainter& painter, const QPointF& tip)
{
  const QPolygonF arrow({{0, 0}, {0, 17}, {4, 13}, {7, 20}, {10, 19}, {7, 12}, {12, 12}});
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::white);
  painter.setBrush(Qt::black);
  painter.drawPolygon(arrow.translated(tip));
}

}

Stage::Stage(FixedLook::Colours colours, const QString& language) : m_look(colours, language)
{
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings.path());
  qputenv("XDG_STATE_HOME", m_settings.path().toUtf8());
  Languages::instance().choose(language);
  if (const auto fault = Languages::instance().takeFault(); !fault.isEmpty())
    throw std::runtime_error(fault.toStdString());
  m_window = std::make_unique<MainWindow>(diskFiles(), std::make_unique<FakeQuestions>());
  const auto sample = QStringLiteral(POINT_COLLECTIONS_SAMPLES "/time-zone-cities.csv");
  if (!m_window->fileCommands().openFile(pathFrom(sample)))
    throw std::runtime_error("The sample cannot be opened: " + sample.toStdString());
  m_window->resize(sizeOfWindow);
  m_window->show();
}

Stage::~Stage()
{
  m_window.reset();
  Languages::instance().choose(QStringLiteral("en"));
}

std::uint32_t Stage::numberOf(const QString& element) const
{
  const auto& all = m_window->workspace().editor().document()->collections();
  const auto found =
      std::find_if(all.begin(), all.end(),
                   [name = element.toStdString()](const auto& each) { return each.name == name; });
  if (found == all.end())
    throw std::runtime_error("The sample has no city " + element.toStdString());
  return static_cast<std::uint32_t>(found - all.begin());
}

std::vector<GUIdentifier> Stage::elements(const QString& names) const
{
  std::vector<GUIdentifier> ids;
  for (const auto& name : names.split(u','))
    ids.push_back(m_window->workspace().editor().document()->collections()[numberOf(name)].id);
  return ids;
}

void Stage::select(const QString& names)
{
  PointsView::Elements numbers;
  for (const auto& name : names.split(u','))
    numbers.push_back(numberOf(name));
  m_window->points().setSelection(numbers);
  m_window->groups().selectElements(elements(names));
}

void Stage::createContinents()
{
  for (const auto& [name, cities] : continents)
    m_window->groups().editor().operations().createGroup(elements(QString::fromUtf8(cities)), name);
}

QModelIndex Stage::rowOf(const std::string& group)
{
  const auto& model = *m_window->groups().tree().model();
  const auto rows = model.match(model.index(0, 0), Qt::DisplayRole, QString::fromStdString(group),
                                1, Qt::MatchExactly);
  if (rows.isEmpty())
    throw std::runtime_error("There is no group " + group);
  return rows.constFirst();
}

void Stage::expand(const std::string& group)
{
  auto& tree = m_window->groups().tree();
  const auto row = rowOf(group);
  tree.expand(row);
  tree.scrollTo(row, QAbstractItemView::PositionAtTop);
}

void Stage::turn(int toTheRight, int downwards)
{
  const auto press = [this](Qt::Key key, int times) {
    for (int i = 0; i < times; ++i)
      QTest::keyClick(&m_window->points(), key);
  };
  press(toTheRight < 0 ? Qt::Key_Left : Qt::Key_Right, std::abs(toTheRight));
  press(downwards < 0 ? Qt::Key_Up : Qt::Key_Down, std::abs(downwards));
}

QImage Stage::drawDragOnto(const std::string& group)
{
  auto& tree = m_window->groups().tree();
  auto& viewport = *tree.viewport();
  const std::unique_ptr<QMimeData> data(
      m_window->groups().editor().dragData(tree.selectedGroupRows()));
  const auto row = tree.visualRect(rowOf(group));
  const QPoint place(row.left() + 90, row.center().y());
  QDragEnterEvent enter(place, Qt::MoveAction, data.get(), Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&viewport, &enter);
  QDragMoveEvent move(place, Qt::MoveAction, data.get(), Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&viewport, &move);

  auto image = draw();
  QPainter painter(&image);
  drawPointer(painter, viewport.mapTo(m_window.get(), place));
  painter.end();

  QDragLeaveEvent leave;
  QApplication::sendEvent(&viewport, &leave);
  return image;
}

QImage Stage::draw()
{
  m_window->groups().tree().setFocus();
  QCoreApplication::processEvents(); // lays the window out anew
  return m_window->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

}
