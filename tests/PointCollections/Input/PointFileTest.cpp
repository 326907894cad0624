// SPDX-License-Identifier: MIT
#include "PointCollections/Input/PointFile.h"

#include "PointCollections/Support/Documents.h"
#include "PointCollections/Support/Files.h"
#include "PointCollections/Text/Interruption.h"

#include <gmock/gmock.h>

#include <ostream>

namespace Tarvik::PointCollections {

void PrintTo(const Point& point, std::ostream* out)
{
  *out << '(' << point.x << ' ' << point.y << ' ' << point.z << ')';
}

namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::Field;
using ::testing::IsEmpty;
using ::testing::SizeIs;

std::vector<PointCollection> parse(std::string_view rows)
{
  return parsePoints("collection,x,y,z\n" + std::string(rows), "cities.csv");
}

PointFileContent contentOfRows(const std::string& rows)
{
  return parsePointFile("collection,x,y,z\n" + rows, "cities.csv");
}

std::string mistakeInRows(std::string_view rows)
{
  return mistakeIn([&] { parse(rows); });
}

std::string mistakeInText(std::string_view text)
{
  return mistakeIn([&] { parsePoints(text, "cities.csv"); });
}

TEST(PointFile, GathersTheRowsOfAnElement)
{
  const auto collections = parse("b,1,2,3\na,0,0,0\nb,4,5,6\n");

  ASSERT_EQ(collections.size(), 2U);
  EXPECT_EQ(collections[0].name, "b");
  EXPECT_THAT(collections[0].points, ElementsAre(Point{1, 2, 3}, Point{4, 5, 6}));
  EXPECT_EQ(collections[1].name, "a");
  EXPECT_NE(collections[0].id, collections[1].id);
}

TEST(PointFile, MayHaveNoRows)
{
  EXPECT_THAT(parse(""), IsEmpty());
}

TEST(PointFile, MayStartWithAByteOrderMarkAndUseAnyLineEnd)
{
  const auto collections =
      parsePoints("\xEF\xBB\xBF\"collection\", x,y ,z\r\n\r\nGröße,1,2,3\r\n", "cities.csv");

  ASSERT_EQ(collections.size(), 1U);
  EXPECT_EQ(collections[0].name, "Größe");
}

TEST(PointFile, TakesAnyDecimalNumber)
{
  const auto collections = parse("a,-12.5,1e3,+.5\na, 7 ,-0,1E-2\na,\"3\",1.,-1.5e+2\n");

  EXPECT_THAT(collections[0].points,
              ElementsAre(Point{-12.5, 1000, 0.5}, Point{7, 0, 0.01}, Point{3, 1, -150}));
}

TEST(PointFile, RefusesWhatIsNotANumber)
{
  EXPECT_EQ(mistakeInRows("a,1,2,3\nb,abc,2,3\n"),
            "cities.csv:3: x is \"abc\", which is not a number; expected e.g. 12.5");
  for (const std::string wrong : {"", " ", "1 2", "0x10", "1.5.2", "--1", "+-1", "+", "1,5\""})
    EXPECT_NE(mistakeInRows("a,1," + wrong + ",3\n"), "no mistake") << wrong;
  EXPECT_EQ(mistakeInRows("a,1,\"1,5\",3\n"),
            "cities.csv:2: y is \"1,5\", which is not a number; expected a decimal point, as in "
            "1.5");
}

TEST(PointFile, RefusesNumbersThatAreNotFinite)
{
  for (const std::string wrong : {"inf", "-inf", "nan", "Infinity"})
    EXPECT_EQ(mistakeInRows("a,1,2," + wrong + "\n"),
              "cities.csv:2: z is \"" + wrong + "\", which is not finite; expected e.g. 12.5");
}

TEST(PointFile, RefusesNumbersThatAreTooLarge)
{
  for (const std::string wrong : {"1e999", "-1e999", "0.1e400", "1e99999999999999999999"})
    EXPECT_EQ(mistakeInRows("a," + wrong + ",2,3\n"),
              "cities.csv:2: x is \"" + wrong +
                  "\", which is out of range; expected at most 1.7e308");
}

TEST(PointFile, TakesNumbersThatAreTooCloseToZeroForZeroAndSaysSo)
{
  const auto tiny = "0." + std::string(400, '0') + "1";
  for (const std::string number : {"1e-400", "-1e-400", "12.5e-999", "1e-99999999999999999999"})
    EXPECT_THAT(
        contentOfRows("a," + number + ",2,3\n"),
        AllOf(Field(&PointFileContent::collections,
                    ElementsAre(Field(&PointCollection::points, ElementsAre(Point{0, 2, 3})))),
              Field(&PointFileContent::warnings,
                    ElementsAre("cities.csv:2: x is \"" + number +
                                "\", which is too close to 0 for this program; it is read "
                                "as 0"))));
  EXPECT_THAT(contentOfRows("a," + tiny + ",2,3\n").warnings, SizeIs(1));
  EXPECT_THAT(contentOfRows("a,1e-300,0e999,0\n").warnings, IsEmpty());
}

TEST(PointFile, WarnsOnceOfAllNumbersThatAreTooCloseToZero)
{
  EXPECT_THAT(
      contentOfRows("a,1,1e-400,3\nb,1e-500,2,1e-600\n").warnings,
      ElementsAre("cities.csv:2: y is \"1e-400\", which is too close to 0 for this program; "
                  "it is read as 0; so are 2 more numbers"));
}

TEST(PointFile, QuotesOnlyTheStartOfALongField)
{
  EXPECT_EQ(mistakeInRows("a," + std::string(100000, 'x') + ",2,3\n"),
            "cities.csv:2: x is \"" + std::string(60, 'x') +
                "…\", which is not a number; expected e.g. 12.5");
}

TEST(PointFile, WarnsOfNamesThatLookTheSame)
{
  EXPECT_THAT(
      contentOfRows("Zürich,1,2,3\nZu\u0308rich,1,2,3\n").warnings,
      ElementsAre("cities.csv: the names \"Z\\u{FC}rich\" and \"Zu\\u{308}rich\" look the same, "
                  "but are written differently; they are two elements"));
  EXPECT_THAT(
      contentOfRows("a\u200B,1,2,3\na,1,2,3\nb,1,2,3\nb\u200B,1,2,3\n").warnings,
      ElementsAre("cities.csv: the names \"a\" and \"a\\u{200B}\" look the same, but are "
                  "written differently; they are two elements; the same goes for 1 more pair"));
  EXPECT_THAT(contentOfRows("ä,1,2,3\nä,1,2,3\na,1,2,3\n").warnings, IsEmpty());
}

TEST(PointFile, RefusesARowWithTooFewOrTooManyFields)
{
  EXPECT_EQ(mistakeInRows("a,1,2\n"), "cities.csv:2: 3 fields; expected 4 (collection,x,y,z)");
  EXPECT_EQ(mistakeInRows("a,1,2,3,\n"), "cities.csv:2: 5 fields; expected 4 (collection,x,y,z)");
  EXPECT_EQ(mistakeInRows("a\n"), "cities.csv:2: 1 field; expected 4 (collection,x,y,z)");
}

TEST(PointFile, RefusesAnElementWithoutName)
{
  EXPECT_EQ(mistakeInRows(",1,2,3\n"),
            "cities.csv:2: the element has no name; expected one, such as Berlin");
}

TEST(PointFile, RefusesTextWithoutTheHeader)
{
  EXPECT_EQ(mistakeInText(""), "cities.csv:1: the file is empty; expected the header "
                               "collection,x,y,z");
  EXPECT_EQ(
      mistakeInText("a,1,2,3\n"),
      "cities.csv:1: the header is missing; found a, 1, 2 and 3, separated by commas; expected "
      "the columns collection, x, y and z in any order, separated by commas, semicolons or "
      "tabs");
}

TEST(PointFile, RefusesBytesThatAreNotUtf8)
{
  EXPECT_EQ(mistakeInRows("a,1,2,3\nGr\xF6\xDF"
                          "e,1,2,3\n"),
            "cities.csv:3: the byte \\xF6 is not UTF-8; save the file as UTF-8");
}

TEST(PointFile, GivesTheLineOfAMistakeAfterNamesWithLineBreaks)
{
  EXPECT_EQ(mistakeInRows("\"a\nb\",1,2,3\n\nc,1,2,q\n"),
            "cities.csv:5: z is \"q\", which is not a number; expected e.g. 12.5");
}

TEST(PointFile, IsReadUntilTheUserStopsIt)
{
  std::string rows;
  for (int i = 0; i < 2000; ++i)
    rows += "a,1,2,3\n";
  const Interruptible work;
  Interruptible::request();

  EXPECT_THROW(contentOfRows(rows), Interrupted);
}

TEST(PointFile, IsReadFromDisk)
{
  const TemporaryFolder folder;
  const auto file = folder.write("some.csv", "collection,x,y,z\na,1,2,3\n");

  EXPECT_EQ(readPointFile(file).size(), 1U);
}

TEST(PointFile, IsReadWholeWhenItIsLarge)
{
  std::string rows;
  for (int i = 0; i < 100000; ++i)
    rows += "collection " + std::to_string(i % 1000) + ',' + std::to_string(i) + ",2.25,-3\n";
  const TemporaryFolder folder;

  const auto collections = readPointFile(folder.write("large.csv", "collection,x,y,z\n" + rows));

  ASSERT_EQ(collections.size(), 1000U);
  EXPECT_EQ(collections[999].points.size(), 100U);
  EXPECT_EQ(collections[999].points.back(), (Point{99999, 2.25, -3}));
}

}
}
