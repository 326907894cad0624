// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Points/PointCloud.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace Tarvik::PointCollections {
namespace {

PointCollection collection(std::vector<Point> points)
{
  PointCollection result;
  result.points = std::move(points);
  return result;
}

float distanceFromCentre(const PointCloud::Entry& entry)
{
  return std::hypot(entry.x, entry.y, entry.z);
}

TEST(PointCloud, IsEmptyWithoutCollections)
{
  const PointCloud cloud;

  EXPECT_TRUE(cloud.entries().empty());
  EXPECT_EQ(cloud.elementCount(), 0U);
  EXPECT_FALSE(cloud.isOnSphere());
}

TEST(PointCloud, CountsElementsWithoutPoints)
{
  const PointCloud cloud({collection({}), collection({{1, 2, 3}}), collection({})});

  EXPECT_EQ(cloud.elementCount(), 3U);
  ASSERT_EQ(cloud.entries().size(), 1U);
  EXPECT_EQ(cloud.entries()[0].element, 1U);
}

TEST(PointCloud, FitsIntoTheUnitBallAroundItsMiddle)
{
  const PointCloud cloud({collection({{1000, 2000, 0}, {1010, 2000, 0}})});

  EXPECT_FLOAT_EQ(cloud.entries()[0].x, -1.0F);
  EXPECT_FLOAT_EQ(cloud.entries()[1].x, 1.0F);
  EXPECT_FLOAT_EQ(cloud.entries()[0].y, 0.0F);
}

TEST(PointCloud, KeepsTheDigitsOfPointsFarFromTheOrigin)
{
  const PointCloud cloud({collection({{1e12, 0, 0}, {1e12 + 1, 0, 0}, {1e12 + 4, 0, 0}})});

  EXPECT_FLOAT_EQ(cloud.entries()[1].x, -0.5F);
}

TEST(PointCloud, PutsOnePointInTheMiddle)
{
  const PointCloud cloud({collection({{7, 8, 9}})});

  EXPECT_FLOAT_EQ(distanceFromCentre(cloud.entries()[0]), 0.0F);
}

TEST(PointCloud, ShowsTheGreatestAndTheLeastCoordinates)
{
  constexpr auto greatest = std::numeric_limits<double>::max();
  constexpr auto least = std::numeric_limits<double>::denorm_min();

  const PointCloud large(
      {collection({{greatest, greatest, greatest}, {-greatest, -greatest, -greatest}})});
  const PointCloud small({collection({{0, 0, 0}, {least, 0, 0}})});

  for (const auto& entry : large.entries())
    EXPECT_NEAR(distanceFromCentre(entry), 1.7F, 0.1F);
  for (const auto& entry : small.entries())
    EXPECT_LE(distanceFromCentre(entry), 1.0F);
}

TEST(PointCloud, RecognisesASphereAroundTheOrigin)
{
  const std::vector<Point> onSphere = {{100, 0, 0}, {0, 101, 0}, {0, 0, -100}, {60, 80, 0}};
  auto notOnSphere = onSphere;
  notOnSphere.push_back({50, 0, 0});

  EXPECT_TRUE(PointCloud({collection(onSphere)}).isOnSphere());
  EXPECT_FALSE(PointCloud({collection(notOnSphere)}).isOnSphere());
  EXPECT_FALSE(PointCloud({collection({{1, 0, 0}, {0, 1, 0}, {0, 0, 1}})}).isOnSphere());
}

TEST(PointCloud, HasTheOriginAsItsCentreOnASphere)
{
  const PointCloud cloud({collection({{100, 0, 0}, {99, 1, 0}, {99, 0, 1}, {99, -1, 0}})});

  EXPECT_TRUE(cloud.isOnSphere());
  EXPECT_FLOAT_EQ(cloud.entries()[0].x, 1.0F);
}

}
}
