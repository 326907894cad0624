// SPDX-License-Identifier: MIT
#include "PointCollections/Input/CsvReader.h"

#include "PointCollections/Support/Documents.h"

#include <gmock/gmock.h>

namespace Tarvik::PointCollections {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Row = std::vector<std::string>;

std::vector<Row> rowsOf(std::string_view text)
{
  CsvReader csv(text, "test.csv");
  std::vector<Row> rows;
  for (Row row; csv.readRow(row);)
    rows.push_back(row);
  return rows;
}

std::string mistakeInText(std::string_view text)
{
  return mistakeIn([&] { rowsOf(text); });
}

TEST(CsvReader, ReadsFieldsAndRows)
{
  EXPECT_THAT(rowsOf("a,b\nc,d,e\n"), ElementsAre(Row{"a", "b"}, Row{"c", "d", "e"}));
}

TEST(CsvReader, NeedsNoLineEndAtTheEnd)
{
  EXPECT_THAT(rowsOf("a,b\nc"), ElementsAre(Row{"a", "b"}, Row{"c"}));
  EXPECT_THAT(rowsOf("a,"), ElementsAre(Row{"a", ""}));
  EXPECT_THAT(rowsOf("\"a\""), ElementsAre(Row{"a"}));
}

TEST(CsvReader, TakesBothLineEnds)
{
  EXPECT_THAT(rowsOf("a,b\r\nc\n\"d\"\r\n"), ElementsAre(Row{"a", "b"}, Row{"c"}, Row{"d"}));
}

TEST(CsvReader, SkipsEmptyLines)
{
  EXPECT_THAT(rowsOf("\n\r\na\n\n\nb\n\n"), ElementsAre(Row{"a"}, Row{"b"}));
  EXPECT_THAT(rowsOf("\n\n"), IsEmpty());
  EXPECT_THAT(rowsOf(""), IsEmpty());
}

TEST(CsvReader, KeepsEmptyFieldsAndBlanks)
{
  EXPECT_THAT(rowsOf(",\n a ,\"\"\n"), ElementsAre(Row{"", ""}, Row{" a ", ""}));
}

TEST(CsvReader, TakesCommasQuotesAndLineBreaksInQuotedFields)
{
  EXPECT_THAT(rowsOf("\"a,b\",\"say \"\"hi\"\"\",\"\"\"\"\n"),
              ElementsAre(Row{"a,b", "say \"hi\"", "\""}));
  EXPECT_THAT(rowsOf("\"a\r\nb\nc\rd\",e\n"), ElementsAre(Row{"a\r\nb\nc\rd", "e"}));
}

TEST(CsvReader, KnowsTheLineWhereARowBegins)
{
  CsvReader csv("a\n\n\"b\nb\",\"\n\"\nc\n", "test.csv");
  Row row;
  std::vector<std::size_t> lines;
  while (csv.readRow(row))
    lines.push_back(csv.rowLine());

  EXPECT_THAT(lines, ElementsAre(1U, 3U, 6U));
}

TEST(CsvReader, RefusesAQuotedFieldThatNeverEnds)
{
  EXPECT_EQ(mistakeInText("a\nb,\"c\nd\n"),
            "test.csv:2: a quoted field that never ends; expected a closing quote");
  EXPECT_EQ(mistakeInText("\"\"\""),
            "test.csv:1: a quoted field that never ends; expected a closing quote");
}

TEST(CsvReader, RefusesQuotesInsideAFieldWithoutQuotes)
{
  EXPECT_EQ(mistakeInText("a\nb\"c\",d\n"),
            "test.csv:2: a quote inside a field without quotes; expected the whole field in "
            "quotes, and quotes in it doubled");
}

TEST(CsvReader, RefusesTextAfterAClosingQuote)
{
  EXPECT_EQ(mistakeInText("\"a\nb\"c\n"),
            "test.csv:2: text after a closing quote; expected a comma or the end of the line, "
            "and quotes inside the field doubled");
}

TEST(CsvReader, TakesOtherSeparators)
{
  CsvReader semicolons("a,b;\"c;d\"\n", "test.csv", ';');
  CsvReader tabs("a,b\t\"c\"\td\n", "test.csv", '\t');
  Row row;

  EXPECT_TRUE(semicolons.readRow(row));
  EXPECT_THAT(row, ElementsAre("a,b", "c;d"));
  EXPECT_TRUE(tabs.readRow(row));
  EXPECT_THAT(row, ElementsAre("a,b", "c", "d"));
  EXPECT_EQ(mistakeIn([&] { CsvReader("\"a\"b", "test.csv", ';').readRow(row); }),
            "test.csv:1: text after a closing quote; expected a semicolon or the end of the line, "
            "and quotes inside the field doubled");
}

TEST(CsvReader, RefusesALoneCarriageReturn)
{
  EXPECT_EQ(mistakeInText("a\nb\rc\n"),
            "test.csv:2: a carriage return without a line feed; expected lines that end in LF or "
            "CRLF");
}

}
}
