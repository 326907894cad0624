// SPDX-License-Identifier: MIT
#include "PointCollections/Text/Utf8.h"

#include <gtest/gtest.h>

#include <string>

namespace Tarvik::PointCollections {
namespace {

constexpr auto npos = std::string_view::npos;

TEST(Utf8, TakesEveryCharacterOfUnicode)
{
  for (const std::string valid :
       {"", "a", "\x7F", "é", "\xC2\x80", "\xDF\xBF", "€", "\xE0\xA0\x80", "\xED\x9F\xBF",
        "\xEE\x80\x80", "\xEF\xBF\xBF", "😀", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"}) {
    EXPECT_EQ(Utf8::findInvalid(valid), npos) << valid;
    EXPECT_EQ(Utf8::characterLength(valid), valid.size()) << valid;
  }
}

TEST(Utf8, RefusesEverythingElse)
{
  for (const std::string invalid :
       {"\x80", "\xBF", "\xC0\x80", "\xC1\xBF", "\xC2", "\xC2g", "\xE0\x9F\xBF", "\xED\xA0\x80",
        "\xE2\x82", "\xE2\x82g", "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80",
        "\xF0\x9F\x98", "\xFE", "\xFF"}) {
    EXPECT_EQ(Utf8::findInvalid("né" + invalid), 3U) << invalid;
    EXPECT_EQ(Utf8::characterLength(invalid), 0U) << invalid;
  }
}

TEST(Utf8, CountsCharacters)
{
  EXPECT_EQ(Utf8::countCharacters(""), 0U);
  EXPECT_EQ(Utf8::countCharacters("aé€😀"), 4U);
  EXPECT_EQ(Utf8::countCharacters("a\xFF\xC3"), 3U);
}

TEST(Utf8, DecodesCharacters)
{
  EXPECT_EQ(Utf8::decode("aé€😀"), U"aé€😀");
  EXPECT_EQ(Utf8::decode("\xFFz"), U"\uFFFDz");
}

TEST(Utf8, CutsBetweenCharacters)
{
  EXPECT_EQ(Utf8::prefix("aé€", 2), "aé");
  EXPECT_EQ(Utf8::prefix("aé€", 9), "aé€");
  EXPECT_EQ(Utf8::prefix("aé€", 0), "");
}

}
}
