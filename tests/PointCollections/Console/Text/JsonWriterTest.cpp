// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Text/JsonWriter.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <string>
#include <string_view>

namespace Tarvik::PointCollections {
namespace {

std::string asJson(std::string_view text)
{
  return JsonWriter().value(text).text();
}

TEST(Json, SeparatesValues)
{
  JsonWriter json;
  json.beginObject().key("a").value(std::size_t(1)).key("b").beginArray();
  json.value(true).null().beginObject().endObject().value("x").endArray();
  json.key("c").beginArray().endArray().endObject();

  EXPECT_EQ(json.text(), R"({"a":1,"b":[true,null,{},"x"],"c":[]})");
}

TEST(Json, EscapesWhatANameMayHave)
{
  EXPECT_EQ(asJson("a \"b\" \\c/"), R"("a \"b\" \\c/")");
  EXPECT_EQ(asJson("\n\t\x1B\x7F"), R"("\u000a\u0009\u001b\u007f")");
  EXPECT_EQ(asJson(std::string_view("\0", 1)), R"("\u0000")");
  EXPECT_EQ(asJson("Größe 都市 🌍"), "\"Größe 都市 🌍\"");
}

TEST(Json, EscapesWhatATerminalMayObeyAndAllEndsOfLines)
{
  EXPECT_EQ(asJson("a\u0080\u0085\u009B\u009F"), R"("a\u0080\u0085\u009b\u009f")");
  EXPECT_EQ(asJson("\u2028\u2029"), R"("\u2028\u2029")");
  EXPECT_EQ(asJson("\u00A0\u2027\u202F"), "\"\u00A0\u2027\u202F\"");
}

TEST(Json, ReplacesBytesThatAreNotUtf8)
{
  EXPECT_EQ(asJson("a\xFF"
                   "b\xC3"),
            "\"a\uFFFD"
            "b\uFFFD\"");
}

TEST(Json, WritesNumbersThatAreReadBackAsTheyWere)
{
  constexpr auto largest = std::numeric_limits<std::size_t>::max();
  JsonWriter json;
  json.beginArray().value(0.1).value(-1.0).value(1e300).value(1.0 / 3);
  json.value(largest).endArray();

  EXPECT_EQ(json.text(), "[0.1,-1,1e+300,0.3333333333333333," + std::to_string(largest) + "]");
}

}
}
