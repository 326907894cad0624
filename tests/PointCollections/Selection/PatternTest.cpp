// SPDX-License-Identifier: MIT
#include "PointCollections/Selection/Pattern.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace Tarvik::PointCollections {
namespace {

bool matches(std::string_view pattern, std::string_view name)
{
  return Pattern(splitWords(pattern).front()).matches(name);
}

TEST(APattern, HasAStarForAnyText)
{
  EXPECT_TRUE(matches("*", ""));
  EXPECT_TRUE(matches("*", "Paris"));
  EXPECT_TRUE(matches("P*", "P"));
  EXPECT_TRUE(matches("P*s", "Paris"));
  EXPECT_TRUE(matches("*ar*", "Paris"));
  EXPECT_TRUE(matches("**i*", "Paris"));
  EXPECT_FALSE(matches("P*x", "Paris"));
  EXPECT_FALSE(matches("ar*", "Paris"));
  EXPECT_FALSE(matches("p*", "Paris"));
}

TEST(APattern, LetsEarlierTextGoForALaterPart)
{
  EXPECT_TRUE(matches("*ab", "aabab"));
  EXPECT_TRUE(matches("*a*b", "xaxbxb"));
  EXPECT_FALSE(matches("*a*b", "xbxa"));
}

TEST(APattern, HasAQuestionMarkForOneCharacterOfAnyLanguage)
{
  EXPECT_TRUE(matches("P?ris", "Paris"));
  EXPECT_TRUE(matches("??", "東京"));
  EXPECT_TRUE(matches("New?York", "New York"));
  EXPECT_FALSE(matches("?", ""));
  EXPECT_FALSE(matches("?", "東京"));
  EXPECT_FALSE(matches("*??", "東"));
  EXPECT_FALSE(matches("???", "東京"));
}

TEST(APattern, TakesQuotedPartsAsTheyAre)
{
  EXPECT_TRUE(matches("\"New \"*", "New York"));
  EXPECT_TRUE(matches("\"a*\"*", "a*b"));
  EXPECT_FALSE(matches("\"a*\"*", "ab"));
  EXPECT_TRUE(matches("*\"?\"", "why?"));
  EXPECT_FALSE(matches("*\"?\"", "why"));
}

TEST(APattern, IsComparedInTimeThatDoesNotExplode)
{
  std::string stars;
  for (int i = 0; i < 100; ++i)
    stars += "a*";

  EXPECT_FALSE(matches(stars + 'b', std::string(10'000, 'a')));
}

}
}
