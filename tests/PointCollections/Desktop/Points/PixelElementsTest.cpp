// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Points/PixelElements.h"
#include "PointCollections/Desktop/Support/PointAt.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <utility>
#include <vector>

namespace Tarvik::PointCollections {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Seen along the x axis: y is to the right, z upwards. The view is 101 pixels wide and high, and
/// its middle is pixel (50, 50).
class PixelElementsTest : public ::testing::Test {
protected:
  PixelElementsTest() { camera.setViewport({101, 101}); }

  void
  draw(const std::vector<PointCollection>& collections, int pointSize = 1, Globe globe = Globe::No)
  {
    cloud = PointCloud(collections);
    pixels.draw(cloud, camera, pointSize, globe);
  }

  int pixelsOf(std::uint32_t element) const
  {
    int count = 0;
    for (int y = 0; y < pixels.size().height(); ++y) {
      for (int x = 0; x < pixels.size().width(); ++x)
        count += pixels.at({x, y}) == element ? 1 : 0;
    }
    return count;
  }

  Camera camera;
  PointCloud cloud;
  PixelElements pixels;
};

constexpr auto none = PixelElements::none;

TEST_F(PixelElementsTest, ShowsEachPointAtItsPlace)
{
  draw({pointAt(0, -10, 0), pointAt(0, 10, 0), pointAt(0, -5, 5), pointAt(0, 5, -5)});

  EXPECT_EQ(pixels.at({5, 50}), 0U);
  EXPECT_EQ(pixels.at({27, 27}), 2U);
  EXPECT_EQ(pixels.at({50, 50}), none);
  EXPECT_EQ(pixelsOf(2), 1);
}

TEST_F(PixelElementsTest, ShowsTheNearerPointWhateverTheOrderIs)
{
  draw({pointAt(-5, 0, 0), pointAt(5, 0, 0), pointAt(1, 0, 0)});

  EXPECT_EQ(pixels.at({50, 50}), 1U);
  EXPECT_EQ(pixelsOf(0) + pixelsOf(2), 0);
}

TEST_F(PixelElementsTest, DrawsSmallPointsAsSquaresAndLargeOnesAsDiscs)
{
  draw({pointAt(0, 0, 0)}, 3);
  EXPECT_EQ(pixelsOf(0), 9);

  draw({pointAt(0, 0, 0)}, 31);
  EXPECT_NEAR(pixelsOf(0), 3.1416 * 15.5 * 15.5, 30);
}

TEST_F(PixelElementsTest, CutsPointsAtTheEdges)
{
  camera.zoomBy(1 / Camera::fill, {50.5, 50.5});

  draw({pointAt(0, -10, 0), pointAt(0, 10, 0), pointAt(0, 0, -10), pointAt(0, 0, 10)}, 31);

  EXPECT_EQ(pixels.at({0, 50}), 0U);
  EXPECT_EQ(pixels.at({100, 50}), 1U);
  EXPECT_EQ(pixels.at({50, 100}), 2U);
  EXPECT_EQ(pixels.at({50, 0}), 3U);
}

TEST_F(PixelElementsTest, LeavesOutWhatIsFarOutsideOfTheView)
{
  camera.zoomBy(Camera::greatestZoom, {50.5, 50.5});

  draw({pointAt(0, 0, 0), pointAt(0, 10, 0), pointAt(0, -10, 0)}, 7);

  EXPECT_GT(pixelsOf(0), 0);
  EXPECT_EQ(pixelsOf(1) + pixelsOf(2), 0);
}

TEST_F(PixelElementsTest, HidesTheFarSideOfAGlobe)
{
  draw({pointAt(10, 0, 0), pointAt(-10, 0, 1), pointAt(0, 10, 0), pointAt(0, 0, 10)}, 1,
       Globe::Yes);

  EXPECT_EQ(pixels.at({50, 50}), 0U);
  EXPECT_EQ(pixelsOf(1), 0);
}

TEST_F(PixelElementsTest, FindsTheNearestPointWithinReach)
{
  draw({pointAt(0, -10, 0), pointAt(0, 10, 0), pointAt(0, 0, 0)});

  EXPECT_EQ(pixels.nearest({53, 48}, 4), 2U);
  EXPECT_EQ(pixels.nearest({56, 50}, 4), none);
  EXPECT_EQ(pixels.nearest({2, 49}, 4), 0U);
}

TEST_F(PixelElementsTest, AnswersNoneOutsideOfTheView)
{
  draw({pointAt(0, 0, 0)}, 31);

  EXPECT_EQ(pixels.at({-1, 50}), none);
  EXPECT_EQ(pixels.at({50, 101}), none);
}

TEST_F(PixelElementsTest, IsTransparentWhereNothingIsOrNoColourIsGiven)
{
  draw({pointAt(0, -10, 0), pointAt(0, 10, 0), pointAt(0, -5, 5), pointAt(0, 5, -5)});

  const auto picture = pixels.coloured({qRgb(255, 0, 0), qRgb(0, 255, 0)});

  EXPECT_EQ(picture.size(), QSize(101, 101));
  EXPECT_EQ(picture.pixel(5, 50), qRgb(255, 0, 0));
  EXPECT_EQ(qAlpha(picture.pixel(27, 27)), 0) << "an element without a colour";
  EXPECT_EQ(qAlpha(picture.pixel(50, 50)), 0) << "no element";
}

TEST_F(PixelElementsTest, StandsAnEmptyView)
{
  camera.setViewport({0, 0});

  draw({pointAt(0, 0, 0)});

  EXPECT_EQ(pixels.size(), QSize(0, 0));
  EXPECT_TRUE(pixels.coloured({}).isNull());
}

TEST_F(PixelElementsTest, SelectsThePointsInARectangleEvenIfOthersHideThem)
{
  draw({pointAt(-5, 0, 0), pointAt(5, 0, 0), pointAt(0, 10, 0), pointAt(0, -10, 0)});

  EXPECT_THAT(elementsWithin({45, 45, 10, 10}, cloud, camera, Globe::No), ElementsAre(0U, 1U));
  EXPECT_THAT(elementsWithin({55, 55, -10, -10}, cloud, camera, Globe::No), ElementsAre(0U, 1U));
  EXPECT_THAT(elementsWithin({0, 0, 10, 10}, cloud, camera, Globe::No), IsEmpty());
}

TEST_F(PixelElementsTest, SelectsNothingOnTheFarSideOfAGlobe)
{
  draw({pointAt(10, 0, 0), pointAt(-10, 0, 1), pointAt(0, 10, 0), pointAt(0, 0, 10)}, 1,
       Globe::Yes);

  EXPECT_THAT(elementsWithin({30, 30, 40, 40}, cloud, camera, Globe::Yes), ElementsAre(0U));
}

TEST_F(PixelElementsTest, SelectsWhatItShows)
{
  std::mt19937 random(7);
  std::uniform_real_distribution<double> coordinate(-1, 1);
  std::vector<PointCollection> collections;
  for (int i = 0; i < 500; ++i)
    collections.push_back(pointAt(coordinate(random), coordinate(random), coordinate(random)));
  camera.turn({20, 30});
  draw(collections);

  const auto selected = elementsWithin({20, 20, 50, 50}, cloud, camera, Globe::No);

  std::vector<bool> isSelected(collections.size());
  for (const auto element : selected)
    isSelected[element] = true;
  for (int y = 22; y < 68; ++y) {
    for (int x = 22; x < 68; ++x) {
      const auto shown = pixels.at({x, y});
      EXPECT_TRUE(shown == none || isSelected[shown]) << x << ", " << y;
    }
  }
}

}
}
