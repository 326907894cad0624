// SPDX-License-Identifier: MIT
#include "PointCollections/Document/Placement.h"

#include "Identifier/GUIdentifier.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace Tarvik::PointCollections {
namespace {

class Placement : public ::testing::Test {
protected:
  const GUIdentifier a, b, c, d;
  const Order order = {a, b, c, d};

  /// The order after the placement, which can be put back.
  static Order placedBeside(const Order& order,
                            const GUIdentifier& target,
                            const std::vector<GUIdentifier>& elements,
                            bool insertBefore)
  {
    const auto placement = placementBeside(order, target, elements, insertBefore);
    auto result = placed(order, placement);
    EXPECT_EQ(putBack(result, placement), order);
    EXPECT_EQ(placement.movesAny(), result != order);
    return result;
  }
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

TEST_F(Placement, PutsTheElementsThatAreThereAlreadyWhereTheyWere)
{
  EXPECT_EQ(placedBeside(order, b, {c, d}, false), order);
  EXPECT_EQ(placedBeside(order, c, {b}, true), order);
  EXPECT_EQ(placedBeside(order, b, {}, true), order);
  EXPECT_EQ(placedBeside(order, a, {a}, true), order);
}

TEST_F(Placement, PutsAllBackWhateverHasMoved)
{
  std::minstd_rand random(1); // NOLINT: the same in every run
  for (int round = 0; round < 1000; ++round) {
    auto elements = order;
    std::shuffle(elements.begin(), elements.end(), random);
    elements.resize(1 + random() % elements.size());
    placedBeside(order, order[random() % order.size()], elements, random() % 2 == 0);
  }
}

}
}
