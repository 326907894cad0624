// SPDX-License-Identifier: MIT
#include "PointCollections/Document/Placement.h"

#include "Identifier/GUIdentifier.h"

#include <gtest/gtest.h>

namespace Tarvik::PointCollections {
namespace {

class Placement : public ::testing::Test {
protected:
  const GUIdentifier a, b, c, d;
  const std::vector<GUIdentifier> order = {a, b, c, d};
  using Order = std::vector<GUIdentifier>;
};

TEST_F(Placement, PutsElementsBeforeTheTarget)
{
  EXPECT_EQ(placedBeside(order, b, {d, a}, true), (Order{d, a, b, c}));
}

TEST_F(Placement, PutsElementsAfterTheTarget)
{
  EXPECT_EQ(placedBeside(order, b, {d, a}, false), (Order{b, d, a, c}));
  EXPECT_EQ(placedBeside(order, d, {a}, false), (Order{b, c, d, a}));
}

TEST_F(Placement, GathersElementsAroundATargetThatIsOneOfThem)
{
  EXPECT_EQ(placedBeside(order, c, {d, c, a}, true), (Order{b, d, c, a}));
  EXPECT_EQ(placedBeside(order, c, {c, a}, false), (Order{b, c, a, d}));
}

TEST_F(Placement, CountsElementsOnceAndOnlyThoseOfTheOrder)
{
  EXPECT_EQ(placedBeside(order, a, {d, GUIdentifier(), d}, true), (Order{d, a, b, c}));
}

TEST_F(Placement, KeepsAnOrderWithoutTheTarget)
{
  EXPECT_EQ(placedBeside(order, GUIdentifier(), {d}, true), order);
  EXPECT_EQ(placedBeside({}, a, {a}, true), Order());
}

}
}
