// SPDX-License-Identifier: MIT
// How a table of points is understood: its separator, its columns, and those that the user chooses.
#include "PointCollections/Input/TableHeader.h"

#include "PointCollections/Input/PointColumns.h"
#include "PointCollections/Input/PointFile.h"
#include "PointCollections/Support/Documents.h"

#include <gmock/gmock.h>

namespace Tarvik::PointCollections {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

TableHeader headerOf(std::string_view text)
{
  return findHeader(text, "table.csv");
}

/// The only row of a table as the program understands it: "a 1 2 3 G".
std::string understood(std::string_view text)
{
  const auto content = parsePointFile(text, "table.csv");
  const auto& [id, name, points] = content.collections.at(0);
  const auto point = points.at(0);
  auto row = name + ' ' + std::to_string(static_cast<int>(point.x)) + ' ' +
             std::to_string(static_cast<int>(point.y)) + ' ' +
             std::to_string(static_cast<int>(point.z));
  return content.groups.empty() ? row : row + ' ' + content.groups[0].getName();
}

std::string mistakeInText(std::string_view text)
{
  return mistakeIn([&] { parsePointFile(text, "table.csv"); });
}

TEST(ATableOfPoints, MayHaveItsColumnsInAnyOrderAndInCapitalLetters)
{
  EXPECT_EQ(understood("z,Y,COLLECTION,x\n3,2,a,1\n"), "a 1 2 3");
  EXPECT_EQ(understood("GROUP,z,Y,Collection,x\nG,3,2,a,1\n"), "a 1 2 3 G");
}

TEST(ATableOfPoints, MayHaveSemicolonsOrTabs)
{
  EXPECT_EQ(understood("collection;x;y;z\n\"a;b\";1;2;3\n"), "a;b 1 2 3");
  EXPECT_EQ(understood("\xEF\xBB\xBF"
                       "collection\tx\ty\tz\na,b\t1\t2\t3\n"),
            "a,b 1 2 3");
}

TEST(ATableOfPoints, TellsWhichColumnsAreNotRead)
{
  const auto warningsOf = [](const char* text) {
    return parsePointFile(text, "table.csv").warnings;
  };

  EXPECT_THAT(warningsOf("collection,x,y,z\n"), IsEmpty());
  EXPECT_THAT(warningsOf("id,collection,x,the land,y,z,place\n"),
              ElementsAre("table.csv:1: the file has columns that are not read: id, \"the land\", "
                          "place"));
  EXPECT_THAT(
      warningsOf("collection,x,y,z,1,2,3,4,5,6,7\n"),
      ElementsAre("table.csv:1: the file has columns that are not read: 1, 2, 3, 4, 5 and 2 "
                  "more"));
}

TEST(ATableOfPoints, IsAnsweredWithWhatWasFoundAndExpected)
{
  const std::string expected =
      "; expected the columns collection, x, y and z in any order, separated "
      "by commas, semicolons or tabs";
  EXPECT_EQ(
      mistakeInText("\nname;lon;lat\na;1;2\n"),
      "table.csv:2: the header has no columns collection, x, y and z; found name, lon and lat, "
      "separated by semicolons" +
          expected);
  EXPECT_EQ(mistakeInText("collection,x,y,h\n"),
            "table.csv:1: the header has no column z; found collection, x, y and h, separated by "
            "commas" +
                expected);
  EXPECT_EQ(mistakeInText("collection|x|y|z\n"),
            "table.csv:1: the header has no columns collection, x, y and z; found only "
            "collection|x|y|z" +
                expected);
  EXPECT_EQ(mistakeInText("collection,x,X,y,z\n"),
            "table.csv:1: the header has the column x twice; found collection, x, X, y and z, "
            "separated by commas" +
                expected);
  EXPECT_THAT(mistakeInText("1,2,3,4,5,6,7,8,9,10\n"), HasSubstr("7, 8 and 2 more, separated"));
}

TEST(ATableOfPoints, ShowsDecimalCommasAsTheyShouldBe)
{
  EXPECT_EQ(mistakeInText("collection;x;y;z\na;-3937,9;2;3\n"),
            "table.csv:2: x is \"-3937,9\", which is not a number; expected a decimal point, as in "
            "-3937.9");
}

TEST(ATableOfPoints, NamesUtf16)
{
  EXPECT_EQ(mistakeInText("\xFE\xFF\x4E\x2D"),
            "table.csv: this text is in UTF-16; save it as UTF-8");
}

TEST(AHeader, TellsSeparatorNamesAndTheFirstRows)
{
  const auto header = headerOf(" name ;lon;lat\na;1;2\n\nb;3\n");

  EXPECT_EQ(header.separator, ';');
  EXPECT_TRUE(header.hasNames);
  EXPECT_THAT(header.columns, ElementsAre("name", "lon", "lat"));
  EXPECT_THAT(header.firstRows, ElementsAre(ElementsAre("a", "1", "2"), ElementsAre("b", "3")));
}

TEST(AHeader, HasNoNamesIfItHasNumbers)
{
  const auto header = headerOf("a\t1\t2\nb\t3\t4\n");

  EXPECT_FALSE(header.hasNames);
  EXPECT_THAT(header.columns, ElementsAre("a", "1", "2"));
  EXPECT_THAT(header.firstRows,
              ElementsAre(ElementsAre("a", "1", "2"), ElementsAre("b", "3", "4")));
  EXPECT_TRUE(headerOf("collection,x,y,z,2024\n").hasNames);
}

TEST(AHeader, HasAtMostFiveRowsAndEndsAtAMistake)
{
  EXPECT_EQ(headerOf("a\n1\n2\n3\n4\n5\n6\n").firstRows.size(), 5U);
  EXPECT_EQ(headerOf("a\n1\n\"2\n").firstRows.size(), 1U);
}

TEST(AHeader, CanBeReadWithAnotherSeparator)
{
  EXPECT_THAT(headerOf("a;b,c;d\n").columns, ElementsAre("a", "b,c", "d"));
  EXPECT_THAT(readHeader("a;b,c;d\n", "table.csv", ',').columns, ElementsAre("a;b", "c;d"));
}

TEST(ColumnsByName, AreThoseThatTheHeaderNames)
{
  const auto columns = columnsByName(headerOf("Y,name,x\n"));

  EXPECT_EQ(columns,
            (PointColumns{.collection = {}, .x = 2, .y = 0, .z = {}, .group = {}, .place = {}}));
  EXPECT_FALSE(columns.isComplete());
  EXPECT_TRUE(columnsByName(headerOf("collection,x,y,z\n")).isComplete());
}

TEST(ChosenColumns, AreRead)
{
  constexpr auto text = "name;region;lon;lat;alt\na;G;1;2;3\n";
  const PointColumns columns = {.collection = 0, .x = 2, .y = 3, .z = 4, .group = 1, .place = {}};

  const auto content = parsePointFile(text, "table.csv", headerOf(text), columns);

  EXPECT_EQ(content.collections.at(0).points.at(0), (Point{1, 2, 3}));
  EXPECT_EQ(content.groups.at(0).getName(), "G");
  EXPECT_THAT(content.warnings, IsEmpty());
}

TEST(ChosenColumns, AreReadFromTheFirstRowIfItHasNoNames)
{
  constexpr auto text = "a,1,2,3\nb,4,5,6\n";
  const PointColumns columns = {.collection = 0, .x = 1, .y = 2, .z = 2, .group = {}, .place = {}};

  const auto content = parsePointFile(text, "table.csv", headerOf(text), columns);

  EXPECT_EQ(content.collections.size(), 2U);
  EXPECT_EQ(content.collections.at(0).points.at(0), (Point{1, 2, 2}));
}

TEST(UnknownColumns, AreReportedTogetherWithTheHeader)
{
  try {
    parsePointFile("name,lon,lat\n", "table.csv");
    FAIL() << "the columns are taken";
  } catch (const UnknownColumns& error) {
    EXPECT_THAT(error.header().columns, ElementsAre("name", "lon", "lat"));
  }
}

}
}
