// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Differences/GroupListDifference.h"
#include "GroupHosting/Support/RandomLists.h"
#include "GroupHosting/Support/Steps.h"
#include "Support/Groups.h"

#include <gtest/gtest.h>

namespace Tarvik {

/// Expects that differences of random lists lead from one list to the other and back, at once and
/// step by step.
template <class T>
void expectDifferencesToLeadBothWays(int count)
{
  RandomLists<T> random(1);
  for (int i = 0; i < count; ++i) {
    const auto [before, after] = random.nextPair();
    const GroupListDifference<T> difference(before, after);
    auto list = before;

    difference.applyTo(list);
    ASSERT_TRUE(identical(list, after)) << i;
    difference.revertOn(list);
    ASSERT_TRUE(identical(list, before)) << i;
    for (const auto& step : difference.steps())
      doStep(list, step);
    ASSERT_TRUE(identical(list, after)) << i;
    ASSERT_EQ(difference.empty(), identical(before, after)) << i;
    ASSERT_EQ(difference.empty(), difference.steps().empty()) << i;
  }
}

}
