// SPDX-License-Identifier: MIT
#include "PointCollections/Text/Words.h"

#include "PointCollections/Support/Documents.h"

#include <gmock/gmock.h>

namespace Tarvik::PointCollections {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::string mistakeInLine(std::string_view line)
{
  return mistakeIn([&] { splitWords(line); });
}

TEST(Words, AreDividedByBlanks)
{
  EXPECT_THAT(splitWords("add  Europe\tBerlin "),
              ElementsAre(Word{"add", false}, Word{"Europe", false}, Word{"Berlin", false}));
  EXPECT_THAT(splitWords(" \t"), IsEmpty());
  EXPECT_THAT(splitWords(""), IsEmpty());
}

TEST(Words, MayBeQuoted)
{
  EXPECT_THAT(splitWords(R"("New York" "" "--at")"),
              ElementsAre(Word{"New York", true}, Word{"", true}, Word{"--at", true}));
}

TEST(Words, HaveEscapesInsideQuotesOnly)
{
  EXPECT_THAT(splitWords(R"("a\"b\\c\n\r\t\x41\xC3\xA9" a\n)"),
              ElementsAre(Word{"a\"b\\c\n\r\tAé", true}, Word{"a\\n", false}));
}

TEST(Words, RefuseAnOpenQuote)
{
  const std::string expected = "this quote is never closed; add a \" after the name";
  EXPECT_EQ(mistakeInLine("é \"New York"), "column 3: " + expected);
  EXPECT_EQ(mistakeInLine("\""), "column 1: " + expected);
  EXPECT_EQ(mistakeInLine(R"("a\")"), "column 1: " + expected);
  EXPECT_EQ(mistakeInLine(R"("a\)"), "column 1: " + expected);
  EXPECT_EQ(mistakeInLine(R"("a\x4)"), "column 1: " + expected);
}

TEST(Words, RefuseQuotesInTheMiddle)
{
  EXPECT_EQ(mistakeInLine("New\" York\""),
            "column 4: a quote inside a word; put the whole name in quotes, and a \\ before a "
            "quote that belongs to it");
  EXPECT_EQ(mistakeInLine("\"New\"York"), "column 6: a blank is missing after the closing quote");
  EXPECT_EQ(mistakeInLine("\"a\"\"b\""), "column 4: a blank is missing after the closing quote");
}

TEST(Words, MayBeMixedWhenTheyHaveASpecialCharacterOutsideQuotes)
{
  EXPECT_THAT(splitWords(R"("North Sea":* @"my file" "New "* a"*":1)"),
              ElementsAre(Word{"North Sea:*", false, {{0, 9}}}, Word{"@my file", false, {{1, 8}}},
                          Word{"New *", false, {{0, 4}}}, Word{"a*:1", false, {{1, 2}}}));
  EXPECT_EQ(mistakeInLine(R"(a"*")"), "column 2: a quote inside a word; put the whole name in "
                                      "quotes, and a \\ before a quote that belongs to it");
}

TEST(Words, KnowWhichOfTheirCharactersAreSpecial)
{
  const auto word = splitWords(R"("a:":*"*")").front();

  EXPECT_EQ(word.findPlain(":"), 2U);
  EXPECT_EQ(word.findPlain("*"), 3U);
  EXPECT_EQ(word.findPlain("*", 4), std::string::npos);
  EXPECT_EQ(word.part(0, 2), (Word{"a:", true}));
  EXPECT_EQ(word.part(3, 5), (Word{"**", false, {{1, 2}}}));
  EXPECT_EQ(asTyped(word), R"("a:":*"*")");
}

TEST(Words, RefuseUnknownEscapes)
{
  EXPECT_EQ(
      mistakeInLine(R"("a\q")"),
      R"(column 3: an unknown escape; there are \", \\, \n, \r, \t, \x with two digits and \u{...})");
  EXPECT_EQ(mistakeInLine(R"("\xg0")"),
            R"(column 2: \x needs two hexadecimal digits, such as \x1B)");
  EXPECT_EQ(mistakeInLine(R"("\x1")"),
            R"(column 2: \x needs two hexadecimal digits, such as \x1B)");
}

TEST(Words, MayHaveCharactersByTheirNumbers)
{
  EXPECT_EQ(splitWords(R"("a\u{200b}\u{1F600}\u{61}")").front().text, "a\u200B\U0001F600a");
  for (const std::string wrong : {R"("\u{}")", R"("\u{D800}")", R"("\u{110000}")", R"("\u200B")",
                                  R"("\u{0000041}")", R"("\u{4x}")"})
    EXPECT_EQ(mistakeIn([&] { splitWords(wrong); }),
              R"(column 2: \u needs the number of a character in braces, such as \u{200B})")
        << wrong;
  for (const char* open : {R"("\u)", R"("\u{)", R"("\u{20)"})
    EXPECT_EQ(mistakeInLine(open), "column 1: this quote is never closed; add a \" after the name");
}

TEST(Words, RefuseEscapesThatMakeNoText)
{
  const auto* expected = "column 1: the escapes in this name do not make valid UTF-8 without NUL";
  EXPECT_EQ(mistakeInLine(R"("\xFF")"), expected);
  EXPECT_EQ(mistakeInLine(R"("\x00")"), expected);
}

TEST(Words, RefuseBytesThatAreNotUtf8)
{
  EXPECT_EQ(mistakeInLine("ü \xFC"),
            "column 3: the byte \\xFC is not UTF-8; save or type the line as UTF-8");
}

TEST(Words, RefuseControlCharacters)
{
  EXPECT_EQ(mistakeInLine(std::string_view("a\0b", 3)),
            "column 2: a NUL byte, which no name can hold; leave it out");
  EXPECT_EQ(mistakeInLine("a \x1B[2J"),
            "column 3: a control character; in a name, write \\x1B in double quotes");
  EXPECT_EQ(mistakeInLine("a\nb"),
            "column 2: a control character; in a name, write \\n in double quotes");
}

TEST(Words, AreSplitWhileTheLastIsBeingTyped)
{
  const auto line = splitUnfinished("add \"New York\" Par");

  EXPECT_THAT(line.words, ElementsAre(Word{"add", false}, Word{"New York", true}));
  EXPECT_EQ(line.last, (Word{"Par", false}));
  EXPECT_EQ(line.lastAt, 15U);
}

TEST(Words, AreSplitAfterABlankAsIfAnEmptyWordWereTyped)
{
  const auto line = splitUnfinished("add ");

  EXPECT_THAT(line.words, ElementsAre(Word{"add", false}));
  EXPECT_EQ(line.last, (Word{"", false}));
  EXPECT_EQ(line.lastAt, 4U);
}

TEST(Words, AreSplitWhileAQuoteIsOpen)
{
  EXPECT_EQ(splitUnfinished("add \"New Yo").last, (Word{"New Yo", true}));
  EXPECT_EQ(splitUnfinished("add \"").last, (Word{"", true}));
  EXPECT_EQ(splitUnfinished("add \"New York\"").last, (Word{"New York", true}));
}

TEST(Words, AreSplitWhileAnEscapeIsHalfTyped)
{
  for (const std::string escape : {"\\", "\\x", "\\x2", "\\u", "\\u{", "\\u{FE"}) {
    const auto line = splitUnfinished("add \"New" + escape);
    EXPECT_EQ(line.last, (Word{"New", true}));
    EXPECT_EQ(line.openEscape, escape);
  }
  EXPECT_EQ(splitUnfinished(R"(add "New\n)").openEscape, "");
}

}
}
