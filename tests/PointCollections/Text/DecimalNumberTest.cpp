// SPDX-License-Identifier: MIT
#include "PointCollections/Text/DecimalNumber.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <string_view>
#include <system_error>

namespace Tarvik::PointCollections {
namespace {

struct Reading {
  double value = 7;
  std::size_t length = 0; ///< of the text that belongs to the number
  std::errc error = std::errc();
};

Reading readingOf(std::string_view text)
{
  Reading reading;
  const auto [stop, error] = readDecimalNumber(text, reading.value);
  reading.length = static_cast<std::size_t>(stop - text.data());
  reading.error = error;
  return reading;
}

TEST(DecimalNumber, HasAPointAndAnExponent)
{
  EXPECT_EQ(readingOf("12").value, 12);
  EXPECT_EQ(readingOf("-0.125").value, -0.125);
  EXPECT_EQ(readingOf(".5").value, 0.5);
  EXPECT_EQ(readingOf("3.").value, 3);
  EXPECT_EQ(readingOf("1e3").value, 1000);
  EXPECT_EQ(readingOf("-1.5E+2").value, -150);
  EXPECT_EQ(readingOf("25e-2").value, 0.25);
  EXPECT_EQ(readingOf("0.1").value, 0.1);
  EXPECT_EQ(readingOf("1.7976931348623157e308").value, 1.7976931348623157e308);
}

TEST(DecimalNumber, EndsBeforeWhatIsNoPartOfIt)
{
  EXPECT_EQ(readingOf("12 13").length, 2U);
  EXPECT_EQ(readingOf("1.5.2").length, 3U);
  EXPECT_EQ(readingOf("0x10").length, 1U);
  EXPECT_EQ(readingOf("1e").length, 1U);
  EXPECT_EQ(readingOf("2e+").length, 1U);
  EXPECT_EQ(readingOf("2e+x").value, 2);
  EXPECT_EQ(readingOf("1,5").value, 1);
}

TEST(DecimalNumber, IsMissingInOtherText)
{
  for (const std::string_view text : {"", "-", "+1", " 1", ".", "-.", "e5", "--1", "abc", "in"}) {
    EXPECT_EQ(readingOf(text).error, std::errc::invalid_argument) << text;
    EXPECT_EQ(readingOf(text).length, 0U) << text;
    EXPECT_EQ(readingOf(text).value, 7) << text;
  }
}

TEST(DecimalNumber, MayBeAWord)
{
  EXPECT_EQ(readingOf("inf").value, HUGE_VAL);
  EXPECT_EQ(readingOf("-Infinity").value, -HUGE_VAL);
  EXPECT_EQ(readingOf("-Infinity").length, 9U);
  EXPECT_TRUE(std::isnan(readingOf("NaN").value));
}

TEST(DecimalNumber, IsNotTakenOutOfRange)
{
  for (const std::string_view text : {"1e999", "-1e999", "1e-999"}) {
    EXPECT_EQ(readingOf(text).error, std::errc::result_out_of_range) << text;
    EXPECT_EQ(readingOf(text).length, text.size()) << text;
    EXPECT_EQ(readingOf(text).value, 7) << text;
  }
}

}
}
