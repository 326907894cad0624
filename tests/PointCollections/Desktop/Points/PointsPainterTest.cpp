// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Points/PointsPainter.h"

#include "PointCollections/Desktop/Support/PointAt.h"

#include <gtest/gtest.h>

namespace Tarvik::PointCollections {
namespace {

/// Three points from left to right; the last one is in the middle.
class PointsPainterTest : public ::testing::Test {
protected:
  PointsPainterTest()
  {
    camera.setViewport({101, 101});
    painter.setCloud(PointCloud({pointAt(0, -10, 0), pointAt(0, 10, 0), pointAt(0, 0, 0)}));
    painter.setColours({qRgb(255, 0, 0), qRgb(0, 255, 0), qRgb(0, 0, 255)});
  }

  QImage paintedOn(qreal devicePixelRatio)
  {
    QImage image((camera.viewport() * devicePixelRatio).toSize(), QImage::Format_ARGB32);
    image.setDevicePixelRatio(devicePixelRatio);
    QPainter device(&image);
    painter.paint(device, camera, palette);
    return image;
  }

  /// How many blocks of two by two pixels have more than one colour.
  static int mixedBlocks(const QImage& image)
  {
    int count = 0;
    for (int y = 0; y + 1 < image.height(); y += 2) {
      for (int x = 0; x + 1 < image.width(); x += 2)
        count += image.pixel(x, y) != image.pixel(x + 1, y) ||
                 image.pixel(x, y) != image.pixel(x, y + 1) ||
                 image.pixel(x, y) != image.pixel(x + 1, y + 1);
    }
    return count;
  }

  Camera camera;
  PointsPainter painter;
  QPalette palette;
};

TEST_F(PointsPainterTest, IsSharpOnAFineDisplay)
{
  EXPECT_GT(mixedBlocks(paintedOn(2)), 0) << "otherwise it is only magnified";
}

TEST_F(PointsPainterTest, FollowsTheWindowToAnotherDisplay)
{
  const auto coarse = paintedOn(1);
  const auto fine = paintedOn(2);
  const auto coarseAgain = paintedOn(1);

  painter.forgetPixels();
  EXPECT_EQ(fine, paintedOn(2)) << "as drawn anew";
  EXPECT_EQ(coarse, coarseAgain);
}

TEST_F(PointsPainterTest, FindsElementsOnEveryDisplay)
{
  for (const auto ratio : {1.0, 1.5, 2.0}) {
    paintedOn(ratio);
    EXPECT_EQ(painter.elementAt({50.5, 50.5}, 3), 2U) << ratio;
    EXPECT_EQ(painter.elementAt({30, 80}, 3), std::nullopt) << ratio;
  }
}

TEST_F(PointsPainterTest, UsesTheColoursOfAnotherPalette)
{
  painter.setSelection({2});
  paintedOn(1);

  palette.setColor(QPalette::Base, QColor(20, 20, 30));
  palette.setColor(QPalette::Text, QColor(250, 180, 20));
  const auto dark = paintedOn(1);

  EXPECT_EQ(dark.pixelColor(2, 2), QColor(20, 20, 30));
  EXPECT_EQ(dark.pixelColor(50, 50), QColor(250, 180, 20));
}

}
}
