// SPDX-License-Identifier: MIT
#include "GroupHosting/Differences/GroupListDifference.h"
#include "GroupHosting/Support/RandomLists.h"
#include "GroupHosting/Support/Steps.h"
#include "Support/Groups.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <variant>
#include <vector>

namespace Tarvik {
namespace {

template <class T>
using Groups = std::vector<TKGroup<T>>;

template <class T>
class Difference : public ::testing::Test {};
TYPED_TEST_SUITE(Difference, ElementIdentifiers, KindName);

TYPED_TEST(Difference, LeadsFromAnyListToAnyOtherAndBack)
{
  RandomLists<TypeParam> random(1);
  for (int i = 0; i < 3000; ++i) {
    const auto [before, after] = random.nextPair();
    const GroupListDifference<TypeParam> difference(before, after);
    auto list = before;

    difference.applyTo(list);
    ASSERT_TRUE(identical(list, after)) << i;
    difference.revertOn(list);
    ASSERT_TRUE(identical(list, before)) << i;
    for (const auto& step : difference.steps())
      doStep(list, step);
    ASSERT_TRUE(identical(list, after)) << i;
  }
}

}
}
