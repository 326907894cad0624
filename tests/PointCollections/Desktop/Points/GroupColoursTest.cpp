// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Points/GroupColours.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace Tarvik::PointCollections {
namespace {

TEST(GroupColours, KeepTheColourOfAGroup)
{
  GroupColours colours;
  const Identifier europe;
  const Identifier asia;

  const auto ofEurope = colours.of(europe);
  const auto ofAsia = colours.of(asia);

  EXPECT_EQ(colours.of(europe), ofEurope);
  EXPECT_EQ(colours.of(asia), ofAsia);
}

TEST(GroupColours, DifferClearlyForTheFirstTenGroups)
{
  GroupColours colours;
  std::array<QColor, 10> of;
  for (auto& colour : of)
    colour = colours.of(Identifier());

  for (std::size_t i = 0; i < of.size(); ++i) {
    for (std::size_t j = 0; j < i; ++j) {
      const auto difference = std::abs(of.at(i).hslHue() - of.at(j).hslHue());
      EXPECT_GE((std::min)(difference, 360 - difference), 15) << i << " and " << j;
    }
  }
}

TEST(GroupColours, AreNeitherTooLightNorTooDark)
{
  GroupColours colours;

  for (int i = 0; i < 1000; ++i) {
    const auto lightness = colours.of(Identifier()).lightness();
    EXPECT_GT(lightness, 100);
    EXPECT_LT(lightness, 180);
  }
}

}
}
