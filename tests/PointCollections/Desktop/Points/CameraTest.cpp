// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Points/Camera.h"

#include <gtest/gtest.h>

namespace Tarvik::PointCollections {
namespace {

class CameraTest : public ::testing::Test {
protected:
  CameraTest() { camera.setViewport({200, 100}); }

  void expectAt(const QVector3D& point, double x, double y) const
  {
    const auto seen = camera.project(point);
    EXPECT_NEAR(static_cast<double>(seen.x()), x, 0.01) << "from the left";
    EXPECT_NEAR(static_cast<double>(seen.y()), y, 0.01) << "from the top";
  }

  Camera camera;
};

TEST_F(CameraTest, LooksAlongTheXAxisWithZUpwards)
{
  expectAt({0, 0, 0}, 100, 50);
  expectAt({0, 1, 0}, 145, 50);
  expectAt({0, 0, 1}, 100, 5);
  EXPECT_FLOAT_EQ(camera.project({1, 0, 0}).z(), 1.0F);
}

TEST_F(CameraTest, TurnsTheFrontWithThePointer)
{
  camera.turn({4.5, 0}); // a tenth of the radius
  EXPECT_NEAR(static_cast<double>(camera.project({1, 0, 0}).x()), 104.5, 0.1);

  camera.reset();
  camera.turn({0, 4.5});
  EXPECT_NEAR(static_cast<double>(camera.project({1, 0, 0}).y()), 54.5, 0.1);
}

TEST_F(CameraTest, KeepsDistancesHoweverOftenItIsTurned)
{
  for (int i = 0; i < 10000; ++i)
    camera.turn({3, 7});

  const auto seen = camera.orientation().rotatedVector({1, 0, 0});
  EXPECT_NEAR(static_cast<double>(seen.length()), 1, 1e-4);
}

TEST_F(CameraTest, PansByPixels)
{
  camera.pan({10, -20});

  expectAt({0, 0, 0}, 110, 30);
}

TEST_F(CameraTest, ZoomsAroundThePlaceOfThePointer)
{
  const QPointF place(130, 60);

  camera.zoomBy(2, place);
  expectAt({0, 0, 0}, 70, 40); // twice as far from the place

  camera.zoomBy(0.5, place);
  expectAt({0, 0, 0}, 100, 50);
}

TEST_F(CameraTest, LimitsTheZoom)
{
  camera.zoomBy(1e30, {0, 0});
  EXPECT_DOUBLE_EQ(camera.zoom(), Camera::greatestZoom);

  camera.zoomBy(1e-30, {0, 0});
  EXPECT_DOUBLE_EQ(camera.zoom(), Camera::leastZoom);
}

TEST_F(CameraTest, CannotLoseThePoints)
{
  camera.pan({1e9, -1e9});

  expectAt({0, 0, 0}, 145, 5);
}

TEST_F(CameraTest, CentresOnAPoint)
{
  camera.turn({30, 40});
  camera.centreOn({0.5F, 0.25F, -0.25F});

  expectAt({0.5F, 0.25F, -0.25F}, 100, 50);
}

TEST_F(CameraTest, ShowsAllAgain)
{
  camera.turn({3, 4});
  camera.pan({5, 6});
  camera.zoomBy(3, {0, 0});

  camera.reset();

  expectAt({0, 1, 0}, 145, 50);
}

TEST_F(CameraTest, StandsAnEmptyViewport)
{
  camera.setViewport({0, 0});

  camera.turn({1, 1});
  camera.pan({1, 1});
  camera.zoomBy(2, {0, 0});

  EXPECT_GT(camera.scale(), 0);
}

}
}
