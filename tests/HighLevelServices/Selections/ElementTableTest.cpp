// SPDX-License-Identifier: MIT
#include "HighLevelServices/GroupCommands/ElementTable.h"
#include "HighLevelServices/GroupCommands/DistinctElements.h"
#include "Support/Identifiers.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <type_traits>
#include <vector>

namespace Tarvik {
namespace {

/// Counts how often numbers are compared.
struct Number {
  std::uint64_t value;

  friend bool operator==(const Number& a, const Number& b)
  {
    ++s_comparisons;
    return a.value == b.value;
  }
  static inline std::size_t s_comparisons = 0;
};

struct NumberWithoutHash : Number {};

struct HashThatMixes {
  using is_avalanching = void;
};
struct HashThatSaysThatItDoesNotMix {
  using is_avalanching = std::false_type;
};

}
}

template <>
struct std::hash<Tarvik::Number> {
  std::size_t operator()(const Tarvik::Number& number) const noexcept
  {
    return static_cast<std::size_t>(number.value);
  }
};

namespace Tarvik {
namespace {

using namespace GroupLists;

static_assert(Hashable<Identifier> && Hashable<GUIdentifier> && Hashable<Number>);
static_assert(!Hashable<NumberWithoutHash>);
static_assert(QuicklyHashable<Identifier> && QuicklyHashable<GUIdentifier>);
static_assert(!QuicklyHashable<Number> && !QuicklyHashable<NumberWithoutHash>);
static_assert(Avalanching<std::hash<Identifier>> == (sizeof(std::size_t) == 8));
static_assert(Avalanching<HashThatMixes> == (sizeof(std::size_t) == 8));
static_assert(!Avalanching<HashThatSaysThatItDoesNotMix> && !Avalanching<std::hash<Number>>);

template <class T>
class DistinctElements : public ::testing::Test {};
TYPED_TEST_SUITE(DistinctElements, ElementIdentifiers, KindName);

TYPED_TEST(DistinctElements, AreInTheOrderOfTheirFirstOccurrence)
{
  const auto [a, b, c] = Tarvik::distinct<TypeParam, 3>();

  EXPECT_EQ(distinct(std::vector<TypeParam>{b, a, b, b, c, a}), (std::vector<TypeParam>{b, a, c}));
  EXPECT_EQ(distinct(std::vector<TypeParam>()), std::vector<TypeParam>());
}

TEST(DistinctElementsWithoutHash, AreInTheOrderOfTheirFirstOccurrence)
{
  const std::vector<NumberWithoutHash> numbers{{{2}}, {{1}}, {{2}}, {{3}}, {{1}}};

  EXPECT_EQ(distinct(numbers), (std::vector<NumberWithoutHash>{{{2}}, {{1}}, {{3}}}));
}

TEST(Elements, AreHashedUnlessTheyAreFewOrMoreThanATableCanNumber)
{
  EXPECT_FALSE(areHashed(0));
  EXPECT_FALSE(areHashed(fewElements));
  EXPECT_TRUE(areHashed(fewElements + 1));
  EXPECT_TRUE(areHashed(0x7fffffff));
  EXPECT_FALSE(areHashed(0x80000000));
}

TYPED_TEST(DistinctElements, AreFoundAmongThousandsWithoutALookAtTheOthers)
{
  std::vector<TypeParam> elements(5000);
  const auto expected = elements;
  elements.insert(elements.end(), expected.begin() + 1000, expected.begin() + 3000);

  EXPECT_EQ(distinct(elements), expected);
  EXPECT_EQ(distinct(expected), expected);
}

TEST(DistinctElementsWithAPlainHash, AreComparedAFewTimesWhicheverBitsDiffer)
{
  constexpr std::size_t count = 10'000;
  constexpr unsigned int bitsOfAHash = 8 * sizeof(std::size_t);
  for (unsigned int shift = 0; shift + 14 <= bitsOfAHash; ++shift) {
    std::vector<Number> numbers;
    for (std::size_t i = 0; i < count; ++i)
      numbers.push_back({static_cast<std::uint64_t>(i) << shift});
    Number::s_comparisons = 0;

    EXPECT_EQ(distinct(numbers).size(), count);
    EXPECT_LT(Number::s_comparisons, 4 * count) << "bits from " << shift;
  }
}

}
}
