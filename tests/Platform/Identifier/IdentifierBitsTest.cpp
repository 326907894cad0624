// SPDX-License-Identifier: MIT
#include "Identifier/IdentifierBits.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <set>
#include <vector>

namespace Tarvik {
namespace {

constexpr std::uint64_t highestBit = 1ULL << 63U;

TEST(Bits, AreZeroUnlessGiven)
{
  constexpr IdentifierBits zero;

  static_assert(zero.high == 0 && zero.low == 0 && zero.isZero());
  static_assert(sizeof(IdentifierBits) == 16);
}

TEST(Bits, AreZeroOnlyWhenAllOfThemAre)
{
  for (unsigned int bit = 0; bit < 64; ++bit) {
    EXPECT_FALSE((IdentifierBits{1ULL << bit, 0}.isZero())) << "high bit " << bit;
    EXPECT_FALSE((IdentifierBits{0, 1ULL << bit}.isZero())) << "low bit " << bit;
  }
}

TEST(Bits, AreEqualOnlyWhenAllOfThemAre)
{
  constexpr IdentifierBits bits{0x0123456789abcdef, 0xfedcba9876543210};

  EXPECT_TRUE(bits == (IdentifierBits{0x0123456789abcdef, 0xfedcba9876543210}));
  for (unsigned int bit = 0; bit < 64; ++bit) {
    EXPECT_FALSE(bits == (IdentifierBits{bits.high ^ 1ULL << bit, bits.low})) << "high " << bit;
    EXPECT_FALSE(bits == (IdentifierBits{bits.high, bits.low ^ 1ULL << bit})) << "low " << bit;
  }
}

TEST(Bits, AreOrderedAsOneNumberWithoutSign)
{
  const std::vector<IdentifierBits> ascending = {{0, 0},          {0, 1},     {0, highestBit},
                                                 {0, ~0ULL},      {1, 0},     {1, ~0ULL},
                                                 {highestBit, 0}, {~0ULL, 0}, {~0ULL, ~0ULL}};

  for (std::size_t i = 0; i < ascending.size(); ++i)
    for (std::size_t j = 0; j < ascending.size(); ++j) {
      EXPECT_EQ(ascending[i] < ascending[j], i < j) << i << " and " << j;
      EXPECT_EQ(ascending[i] == ascending[j], i == j) << i << " and " << j;
    }
}

TEST(Bits, CarryTheVersionAndTheVariantOfAUuidWhenNew)
{
  for (int i = 0; i < 200'000; ++i) {
    const auto bits = IdentifierBits::unique();
    ASSERT_EQ(bits.high >> 12U & 0xFU, 8U) << std::hex << bits.high << ' ' << bits.low;
    ASSERT_EQ(bits.low >> 62U, 2U) << std::hex << bits.high << ' ' << bits.low;
  }
}

TEST(Bits, DifferInTheirLowWordWithinABlock)
{
  const auto first = IdentifierBits::unique();
  int follow = 0;
  int inTheSameBlock = 0;
  auto previous = first;
  for (int i = 0; i < 1000; ++i) {
    const auto next = IdentifierBits::unique();
    inTheSameBlock += next.high == previous.high ? 1 : 0;
    follow += next.low == previous.low + 1 ? 1 : 0;
    previous = next;
  }

  EXPECT_GE(inTheSameBlock, 999); // at most one block ends among a thousand
  EXPECT_EQ(follow, inTheSameBlock);
}

TEST(Bits, DrawNewRandomnessAfterEveryBlock)
{
  struct Block {
    std::uint64_t high;
    int size;
  };
  std::vector<Block> blocks;
  while (blocks.size() < 10) {
    const auto high = IdentifierBits::unique().high;
    if (blocks.empty() || blocks.back().high != high)
      blocks.push_back({high, 0});
    ++blocks.back().size;
    ASSERT_LE(blocks.back().size, 65'535) << "the block does not end";
  }

  std::set<std::uint64_t> highWords;
  for (const auto& block : blocks)
    highWords.insert(block.high);
  for (std::size_t i = 1; i + 1 < blocks.size();
       ++i) // the first block was not new, the last has not ended
    EXPECT_EQ(blocks[i].size, 65'535) << "block " << i;
  EXPECT_EQ(highWords.size(), blocks.size()) << "two blocks share their high word";
}

// Hashes

/// How 65,536 hashes fall into as many buckets, chosen by their lowest bits. Evenly by chance,
/// some 41,000 buckets are used and the fullest holds about 8.
struct Spread {
  std::size_t used = 0;
  int fullest = 0;
};

/// As random as those of a process, but the same in every run.
constexpr IdentifierBits someSeed{0x5c9d1a3f70e2846b, 0xd1e8a02b9f47c365};

template <class BitsOf>
Spread spreadOf(BitsOf bitsOf, const IdentifierBits& seed = someSeed)
{
  constexpr std::size_t count = 65'536;
  std::vector<int> buckets(count, 0);
  for (std::uint64_t i = 0; i < count; ++i)
    ++buckets[bitsOf(i).hash(seed) % count];
  Spread spread;
  for (const int inBucket : buckets) {
    spread.used += inBucket > 0 ? 1U : 0U;
    spread.fullest = std::max(spread.fullest, inBucket);
  }
  return spread;
}

constexpr int fullestAtMost = 16;

TEST(Bits, SpreadEvenlyOverHashesWhenTheyAreSequential)
{
  for (const IdentifierBits start :
       {IdentifierBits{0, 0}, IdentifierBits{0x919108f752d18320, 0x9bacf847db410000},
        IdentifierBits{0x017f22e279b08cc3, 0x98c4dc0c0c070000},
        IdentifierBits{0xffffffffffff8fff, 0xbfffffffffff0000}}) {
    const auto spread = spreadOf([&](std::uint64_t i) {
      return IdentifierBits{start.high, start.low + i};
    });

    EXPECT_GE(spread.used, 32'768U) << std::hex << start.high << ' ' << start.low;
    EXPECT_LE(spread.fullest, fullestAtMost) << std::hex << start.high << ' ' << start.low;
  }
}

TEST(Bits, SpreadEvenlyOverHashesWhereverTheyDiffer)
{
  const IdentifierBits start{0x919108f752d18320, 0x9bacf847db4148a8};
  for (unsigned int shift = 0; shift <= 48; ++shift) {
    const auto inHigh = spreadOf([&](std::uint64_t i) {
      return IdentifierBits{start.high ^ i << shift, start.low};
    });
    const auto inLow = spreadOf([&](std::uint64_t i) {
      return IdentifierBits{start.high, start.low ^ i << shift};
    });

    EXPECT_GE(inHigh.used, 16'384U) << "high word, bits from " << shift;
    EXPECT_LE(inHigh.fullest, fullestAtMost) << "high word, bits from " << shift;
    EXPECT_GE(inLow.used, 16'384U) << "low word, bits from " << shift;
    EXPECT_LE(inLow.fullest, fullestAtMost) << "low word, bits from " << shift;
  }
}

TEST(Bits, ThatCollideForOneSeedSpreadEvenlyForAnother)
{
  constexpr IdentifierBits knownSeed{0x919108f752d18320, 0};
  const auto prepared = [](std::uint64_t i) {
    return IdentifierBits{knownSeed.high, i}; // makes one factor of the product zero
  };

  const auto known = spreadOf(prepared, knownSeed);
  const auto other = spreadOf(prepared, someSeed);

  EXPECT_EQ(known.used, 1U);
  EXPECT_GE(other.used, 32'768U);
  EXPECT_LE(other.fullest, fullestAtMost);
}

TEST(Bits, AreHashedWithTheSeedOfTheProcess)
{
  constexpr IdentifierBits bits{0x0123456789abcdef, 0xfedcba9876543210};

  EXPECT_EQ(bits.hash(), bits.hash({IdentifierBits::seedHigh, IdentifierBits::seedLow}));
  EXPECT_NE(IdentifierBits::seedHigh, IdentifierBits::seedLow) << "drawn once, used twice";
}

TEST(Bits, OfABlockDifferInTheLowestBitsOfTheirQuickHashes)
{
  constexpr IdentifierBits start{0x919108f752d18320, 0x9bacf847db410000};
  std::set<std::size_t> lowestBits;
  for (std::uint64_t i = 0; i < 1024; ++i)
    lowestBits.insert(IdentifierBits{start.high, start.low + i}.quickHash() % 1024);

  EXPECT_EQ(lowestBits.size(), 1024U);
}

TEST(Bits, HaveTheSameHashWhenEqual)
{
  constexpr IdentifierBits bits{0x0123456789abcdef, 0xfedcba9876543210};

  EXPECT_EQ(bits.hash(), (IdentifierBits{0x0123456789abcdef, 0xfedcba9876543210}.hash()));
  EXPECT_NE(bits.hash(), (IdentifierBits{0xfedcba9876543210, 0x0123456789abcdef}.hash()));
}

}
}
