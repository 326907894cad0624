// SPDX-License-Identifier: MIT
#include "GroupHosting/Providers/MemberAlignment.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <random>
#include <string>
#include <vector>

namespace Tarvik::GroupLists {
namespace {

/// What left and what came: "bd ef".
std::string changes(const std::string& before, const std::string& after)
{
  std::string left;
  std::string came;
  align(
      std::vector<char>(before.begin(), before.end()),
      std::vector<char>(after.begin(), after.end()),
      [&left](auto begin, auto end) { left.append(begin, end); },
      [&came](auto begin, auto end) { came.append(begin, end); });
  return left + ' ' + came;
}

TEST(Alignment, FindsNothingBetweenEqualLists)
{
  EXPECT_EQ(changes("abc", "abc"), " ");
  EXPECT_EQ(changes("", ""), " ");
}

TEST(Alignment, FindsWhatLeftAndWhatCame)
{
  EXPECT_EQ(changes("abcdefgh", "acfgh"), "bde ");
  EXPECT_EQ(changes("acfgh", "abcdefgh"), " bde");
  EXPECT_EQ(changes("abcdef", "axcdyf"), "be xy");
  EXPECT_EQ(changes("abc", ""), "abc ");
  EXPECT_EQ(changes("", "abc"), " abc");
  EXPECT_EQ(changes("abc", "xyz"), "abc xyz");
}

TEST(Alignment, FindsWhatMovedAsBoth)
{
  EXPECT_EQ(changes("abcdef", "bcdefa"), "a a");
  EXPECT_EQ(changes("abcdef", "defabc"), "abc abc");
  EXPECT_EQ(changes("abcdef", "fabcde"), "f f");
}

TEST(Alignment, CountsEveryMemberOnceInRandomLists)
{
  std::mt19937 random(1);
  for (int i = 0; i < 20'000; ++i) {
    std::string before;
    std::string after;
    for (auto n = random() % 12; n > 0; --n)
      before += static_cast<char>('a' + random() % 6);
    for (auto n = random() % 12; n > 0; --n)
      after += static_cast<char>('a' + random() % 6);
    const auto found = changes(before, after);
    const auto blank = found.find(' ');

    auto expected = before + found.substr(blank + 1);
    auto sum = after + found.substr(0, blank);
    std::sort(expected.begin(), expected.end());
    std::sort(sum.begin(), sum.end());
    ASSERT_EQ(sum, expected) << before << " to " << after;
  }
}

/// Counts how often it is compared.
struct Counted {
  int value;
  static inline std::size_t comparisons = 0;
  friend bool operator==(const Counted& a, const Counted& b)
  {
    ++comparisons;
    return a.value == b.value;
  }
};

TEST(Alignment, ComparesEachMemberAFewTimesOnlyAfterAShuffle)
{
  constexpr int size = 10'000;
  std::vector<Counted> before;
  for (int i = 0; i < size; ++i)
    before.push_back({i});
  auto after = before;
  std::shuffle(after.begin(), after.end(), std::mt19937(1));
  Counted::comparisons = 0;

  const auto ignore = [](auto, auto) {};
  align(before, after, ignore, ignore);

  EXPECT_LT(Counted::comparisons, std::size_t{6} * size);
}

}
}
