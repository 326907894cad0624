// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Points/PointsView.h"
#include "PointCollections/Desktop/Support/PointAt.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace Tarvik::PointCollections {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Three elements in a view of 201 pixels: 0 on the left, 1 on the right, 2 in the middle.
class PointsViewTest : public ::testing::Test {
protected:
  PointsViewTest()
  {
    view.resize(201, 201);
    view.setCloud(PointCloud({pointAt(0, -10, 0), pointAt(0, 10, 0), pointAt(0, 0, 0)}));
    view.setColours({qRgb(255, 0, 0), qRgb(0, 255, 0), qRgb(0, 0, 255)});
    view.show();
    view.grab();
  }

  void drag(const QPoint& from,
            const QPoint& to,
            Qt::MouseButton button,
            Qt::KeyboardModifiers modifiers = {})
  {
    QTest::mousePress(&view, button, modifiers, from);
    move(from + (to - from) / 2, button, modifiers);
    move(to, button, modifiers);
    QTest::mouseRelease(&view, button, modifiers, to);
    view.grab();
  }

  PointsView view;
  QSignalSpy changes{&view, &PointsView::selectionChanged};

  static constexpr QPoint left{10, 100};
  static constexpr QPoint right{190, 100};
  static constexpr QPoint middle{100, 100};
  static constexpr QPoint nothing{50, 50};

private:
  /// QTest::mouseMove() does not tell which button is held.
  void move(const QPoint& to, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
  {
    QMouseEvent event(QEvent::MouseMove, to, view.mapToGlobal(to), Qt::NoButton, button, modifiers);
    QApplication::sendEvent(&view, &event);
  }
};

TEST_F(PointsViewTest, SelectsTheElementThatIsClicked)
{
  QTest::mouseClick(&view, Qt::LeftButton, {}, middle);

  EXPECT_THAT(view.selection(), ElementsAre(2U));
  EXPECT_EQ(changes.count(), 1);
}

TEST_F(PointsViewTest, SelectsNothingWhereNothingIs)
{
  view.setSelection({1});

  QTest::mouseClick(&view, Qt::LeftButton, {}, nothing);

  EXPECT_THAT(view.selection(), IsEmpty());
}

TEST_F(PointsViewTest, AddsAndTakesAwayWithControl)
{
  QTest::mouseClick(&view, Qt::LeftButton, {}, left);
  QTest::mouseClick(&view, Qt::LeftButton, Qt::ControlModifier, right);
  EXPECT_THAT(view.selection(), ElementsAre(0U, 1U));

  QTest::mouseClick(&view, Qt::LeftButton, Qt::ControlModifier, left);
  EXPECT_THAT(view.selection(), ElementsAre(1U));
}

TEST_F(PointsViewTest, TurnsWhenItIsDragged)
{
  drag(nothing, nothing + QPoint(30, 0), Qt::LeftButton);

  EXPECT_THAT(view.selection(), IsEmpty());
  EXPECT_LT(view.camera().project({0, 1, 0}).x(), 190.0F);
}

TEST_F(PointsViewTest, MovesWithTheOtherButtons)
{
  drag(nothing, nothing + QPoint(30, 10), Qt::RightButton);

  EXPECT_FLOAT_EQ(view.camera().project({0, 0, 0}).x(), 130.5F);
  EXPECT_FLOAT_EQ(view.camera().project({0, 0, 0}).y(), 110.5F);
}

TEST_F(PointsViewTest, SelectsInARectangleWithShift)
{
  drag({80, 80}, {200, 120}, Qt::LeftButton, Qt::ShiftModifier);

  EXPECT_THAT(view.selection(), ElementsAre(1U, 2U));
  EXPECT_EQ(changes.count(), 1);
}

TEST_F(PointsViewTest, SelectsInARectangleInItsMode)
{
  view.setMode(PointsView::Mode::Select);
  view.setSelection({0});

  drag({120, 120}, {80, 80}, Qt::LeftButton);
  EXPECT_THAT(view.selection(), ElementsAre(2U));

  drag({180, 80}, {199, 120}, Qt::LeftButton, Qt::ControlModifier);
  EXPECT_THAT(view.selection(), ElementsAre(1U, 2U)) << "Control adds";
}

TEST_F(PointsViewTest, DoesNotTellOfASelectionThatTheProgramMakes)
{
  view.setSelection({2, 0, 2, 17});

  EXPECT_THAT(view.selection(), ElementsAre(0U, 2U));
  EXPECT_EQ(changes.count(), 0);
}

TEST_F(PointsViewTest, ZoomsAtThePointer)
{
  QWheelEvent wheel(left, view.mapToGlobal(left), {}, {0, 480}, Qt::NoButton, {}, Qt::NoScrollPhase,
                    false);
  QApplication::sendEvent(&view, &wheel);

  EXPECT_DOUBLE_EQ(view.camera().zoom(), 2);
  EXPECT_NEAR(view.camera().project({0, 0, 0}).x(), 10 + 2 * 90.5, 0.1);
}

TEST_F(PointsViewTest, IsOperatedByKeyboard)
{
  QTest::keyClick(&view, Qt::Key_Right);
  EXPECT_LT(view.camera().project({0, 1, 0}).x(), 190.0F) << "turned";

  QTest::keyClick(&view, Qt::Key_Home);
  QTest::keyClick(&view, Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_FLOAT_EQ(view.camera().project({0, 0, 0}).y(), 120.5F) << "moved";

  QTest::keyClick(&view, Qt::Key_Plus);
  EXPECT_GT(view.camera().zoom(), 1);
  QTest::keyClick(&view, Qt::Key_Minus);
  EXPECT_DOUBLE_EQ(view.camera().zoom(), 1);

  QTest::keyClick(&view, Qt::Key_A, Qt::ControlModifier);
  EXPECT_THAT(view.selection(), ElementsAre(0U, 1U, 2U));
  QTest::keyClick(&view, Qt::Key_Escape);
  EXPECT_THAT(view.selection(), IsEmpty());
}

TEST_F(PointsViewTest, DrawsElementsInTheirColoursAndTheSelectionInItsOwn)
{
  const auto colourAt = [this](const QPoint& place) {
    return view.grab().toImage().pixelColor(place);
  };
  EXPECT_EQ(colourAt(middle), QColor(0, 0, 255));

  view.setSelection({2});

  EXPECT_EQ(colourAt(middle), view.palette().color(QPalette::Text));
  EXPECT_NE(colourAt(left), QColor(255, 0, 0)) << "others are pale";
}

TEST_F(PointsViewTest, IsDrawnAgainInTheColoursOfADarkDesktop)
{
  view.setSelection({2});
  view.grab();
  auto dark = view.palette();
  dark.setColor(QPalette::Base, QColor(20, 20, 30));
  dark.setColor(QPalette::Text, QColor(250, 180, 20));

  view.setPalette(dark);

  const auto picture = view.grab().toImage();
  EXPECT_EQ(picture.pixelColor(nothing), QColor(20, 20, 30));
  EXPECT_EQ(picture.pixelColor(middle), QColor(250, 180, 20));
}

TEST_F(PointsViewTest, ForgetsTheSelectionWithTheOldPoints)
{
  view.setSelection({2});

  view.setCloud(PointCloud({pointAt(0, 0, 0)}));

  EXPECT_THAT(view.selection(), IsEmpty());
}

TEST_F(PointsViewTest, MakesAPictureWithoutTheSelection)
{
  view.setSelection({2});

  const auto picture = view.picture(2);

  EXPECT_EQ(picture.size(), QSize(402, 402));
  EXPECT_EQ(picture.pixelColor(200, 200), QColor(0, 0, 255));
}

TEST_F(PointsViewTest, HasANameForScreenReaders)
{
  EXPECT_FALSE(view.accessibleName().isEmpty());
  EXPECT_FALSE(view.accessibleDescription().isEmpty());
}

}
}
