// SPDX-License-Identifier: MIT
// Groups in a program whose registry takes only one caster of each class: saving needs the first,
// loading the second.

#include "GroupEntries.h"

#include <gtest/gtest.h>

namespace Tarvik {
namespace {

template <class T>
class RefusedSecondCasters : public ::testing::Test {};
TYPED_TEST_SUITE(RefusedSecondCasters, ElementIdentifiers, KindName);

TYPED_TEST(RefusedSecondCasters, LetGroupsBeSavedButNotLoaded)
{
  const auto [a] = distinct<TypeParam, 1>();
  auto pumps = group("Pumps", {a});
  const auto before = pumps;
  RecordedArchive archive;

  EXPECT_EQ(failureOf([&] { save(pumps, archive); }), "nothing was thrown");
  EXPECT_EQ(failureOf([&] { load(pumps, archive); }), "Parent not registered");

  EXPECT_FALSE(archive.values.empty());
  EXPECT_TRUE(identical(pumps, before)) << ::testing::PrintToString(list(pumps));
}

}
}
