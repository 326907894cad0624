// SPDX-License-Identifier: MIT
#include "Identifier/GUIdentifier.h"
#include "Identifier/Identifier.h"

#include "Platform/Identifier/KnownIdentifiers.h"
#include "Support/Identifiers.h"

#include <gtest/gtest.h>

#include <compare>
#include <functional>
#include <random>
#include <set>
#include <string>
#include <type_traits>
#include <unordered_set>
#include <vector>

namespace Tarvik {
namespace {

/// How identifiers compare with each other, and what containers need of them.
template <class T>
class ComparedIds : public ::testing::Test {};
TYPED_TEST_SUITE(ComparedIds, ElementIdentifiers, KindName);

TYPED_TEST(ComparedIds, AreComparedByFunctionsOfTheNamespace)
{
  using Equal = bool (*)(const TypeParam&, const TypeParam&);
  using Ordered = std::strong_ordering (*)(const TypeParam&, const TypeParam&);
  const auto equal = static_cast<Equal>(&Tarvik::operator==);
  const auto order = static_cast<Ordered>(&Tarvik::operator<=>);
  const TypeParam small = withBits<TypeParam>(1, 2);
  const TypeParam large = withBits<TypeParam>(1, 3);

  EXPECT_TRUE(equal(small, withBits<TypeParam>(1, 2)));
  EXPECT_FALSE(equal(small, large));
  EXPECT_TRUE(order(small, large) < 0);
}

TYPED_TEST(ComparedIds, CanBeComparedAtCompileTime)
{
  constexpr TypeParam small(IdentifierBits{1, 2});
  constexpr TypeParam large(IdentifierBits{1, 3});

  static_assert(small == small && small != large && small < large && large >= small);
}

TYPED_TEST(ComparedIds, AreEqualOnlyWhenAllBitsAre)
{
  const TypeParam known(knownBits);

  EXPECT_TRUE(known == TypeParam(knownBits));
  for (unsigned int bit = 0; bit < 64; ++bit) {
    EXPECT_FALSE(known == withBits<TypeParam>(knownBits.high ^ 1ULL << bit, knownBits.low)) << bit;
    EXPECT_FALSE(known == withBits<TypeParam>(knownBits.high, knownBits.low ^ 1ULL << bit)) << bit;
  }
}

TYPED_TEST(ComparedIds, AreOrderedAsTheirTexts)
{
  std::mt19937_64 random(7);
  std::vector<TypeParam> ids = {withBits<TypeParam>(0, 0),
                                withBits<TypeParam>(0, ~0ULL),
                                withBits<TypeParam>(~0ULL, 0),
                                withBits<TypeParam>(~0ULL, ~0ULL),
                                withBits<TypeParam>(1ULL << 63U, 0),
                                withBits<TypeParam>(1, 1ULL << 63U),
                                withBits<TypeParam>(1, 0)};
  for (int i = 0; i < 50; ++i) {
    const auto high = random();
    ids.push_back(withBits<TypeParam>(high, random()));
    ids.push_back(withBits<TypeParam>(high, random()));
  }

  for (const auto& a : ids)
    for (const auto& b : ids) {
      const auto texts = a.toString() + " and " + b.toString();
      EXPECT_EQ(a < b, a.toString() < b.toString()) << texts;
      EXPECT_EQ(a <= b, a.toString() <= b.toString()) << texts;
      EXPECT_EQ(a > b, a.toString() > b.toString()) << texts;
      EXPECT_EQ(a >= b, a.toString() >= b.toString()) << texts;
      EXPECT_EQ(a == b, a.toString() == b.toString()) << texts;
    }
}

TYPED_TEST(ComparedIds, WorkInSetsOfBothKinds)
{
  std::vector<TypeParam> ids(1000);
  std::set<TypeParam> ordered(ids.begin(), ids.end());
  std::unordered_set<TypeParam> hashed(ids.begin(), ids.end());

  for (const auto& id : ids) {
    ordered.insert(id);
    hashed.insert(id);
  }

  EXPECT_EQ(ordered.size(), ids.size());
  EXPECT_EQ(hashed.size(), ids.size());
  EXPECT_FALSE(hashed.contains(TypeParam()));
  EXPECT_FALSE(ordered.contains(TypeParam()));
}

TYPED_TEST(ComparedIds, HaveTheHashOfTheirBits)
{
  const std::hash<TypeParam> hash{};

  EXPECT_EQ(hash(TypeParam(knownBits)), hash(TypeParam(knownBits)));
  EXPECT_EQ(hash(TypeParam(knownBits)), knownBits.hash());
  EXPECT_EQ(hash.quick(TypeParam(knownBits)), knownBits.quickHash());
  static_assert(std::is_nothrow_invocable_v<std::hash<TypeParam>, const TypeParam&>);
}

}
}
