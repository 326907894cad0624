// SPDX-License-Identifier: MIT
#include "PointCollections/Text/Quoting.h"

#include "PointCollections/Text/Words.h"

#include <gmock/gmock.h>

namespace Tarvik::PointCollections {
namespace {

using ::testing::ElementsAre;

TEST(Quoting, LeavesSimpleNamesPlain)
{
  for (const std::string name : {"Paris", "Port-au-Prince", "Größe", "a#b", "a@b", "-1", "a,b"})
    EXPECT_EQ(asTyped(name), name);
}

TEST(Quoting, PutsOtherNamesInQuotes)
{
  EXPECT_EQ(asTyped("New York"), "\"New York\"");
  EXPECT_EQ(asTyped(""), "\"\"");
  EXPECT_EQ(asTyped("a\"b"), R"("a\"b")");
  EXPECT_EQ(asTyped("a\\b"), R"("a\\b")");
  EXPECT_EQ(asTyped("#1"), "\"#1\"");
  EXPECT_EQ(asTyped("@1"), "\"@1\"");
  EXPECT_EQ(asTyped("--at"), "\"--at\"");
}

TEST(Quoting, EscapesWhatATerminalWouldObey)
{
  EXPECT_EQ(asTyped("a\nb\r\tc\x1B[2J"), R"("a\nb\r\tc\x1B[2J")");
  EXPECT_EQ(printable("a\nb\x7F"), "a\\nb\\x7F");
  EXPECT_EQ(printable("\xC2\x9B"), "\\xC2\\x9B");
  EXPECT_EQ(printable("\xC2\xA0"), "\xC2\xA0");
}

TEST(Quoting, EscapesWhatNobodySees)
{
  EXPECT_EQ(asTyped("Ber\u200Blin"), R"("Ber\u{200B}lin")");
  EXPECT_EQ(asTyped("\u202Elin"), R"("\u{202E}lin")");
  EXPECT_EQ(printable("\uFEFFa\u200Db\u2028\U000E0041"), R"(\u{FEFF}a\u{200D}b\u{2028}\u{E0041})");
  for (const std::string name : {"Zu\u0308rich", "\u2764\uFE0F", "\u4E2D", "\U0001F600"})
    EXPECT_EQ(printable(name), name);
}

TEST(Quoting, ListsNamesAsTheyAreUnlessThatIsAmbiguous)
{
  EXPECT_EQ(listedName("Isle of \"Man\""), "Isle of \"Man\"");
  EXPECT_EQ(listedName("a\nb"), R"("a\nb")");
  EXPECT_EQ(listedName("a\\nb"), R"("a\\nb")");
  EXPECT_EQ(listedName("\"a\""), R"("\"a\"")");
  EXPECT_EQ(listedName(""), "\"\"");
}

TEST(Quoting, ShowsBlanksThatCannotBeToldApart)
{
  EXPECT_EQ(listedName("New York"), "New York");
  EXPECT_EQ(listedName("Berlin "), R"("Berlin ")");
  EXPECT_EQ(listedName(" Berlin"), R"(" Berlin")");
  EXPECT_EQ(listedName("New  York"), R"("New  York")");
  EXPECT_EQ(listedName("New\u00A0York"), R"("New\u{A0}York")");
  EXPECT_EQ(asTyped("a\u2003b\u3000c"), R"("a\u{2003}b\u{3000}c")");
  EXPECT_EQ(displayName("\u202F"), R"("\u{202F}")");
}

TEST(Quoting, EscapesBytesThatAreNotUtf8)
{
  EXPECT_EQ(printable("a\xFF\xC3(é"), "a\\xFF\\xC3(é");
}

TEST(Quoting, LeavesBackslashesAndQuotesInPrintableText)
{
  EXPECT_EQ(printable(R"(a\b "c")"), R"(a\b "c")");
}

TEST(Quoting, CanBeTypedBack)
{
  for (const std::string name :
       {"", "a", "New York", "a\"b", "\\", "\\\"", "a\nb\rc\td", "\x1B", "\x7F", "\xC2\x9B", "é ü",
        "a\u200Bb", "\u202E", "a\u00A0b", "#x", "@2", "--at", " a "})
    EXPECT_THAT(splitWords(asTyped(name) + ' ' + inQuotes(name)),
                ElementsAre(Word{name, asTyped(name) != name}, Word{name, true}))
        << name;
}

TEST(Quoting, ShortensLongNamesInMessages)
{
  const std::string name(60, 'x');

  EXPECT_EQ(displayName(name), name);
  EXPECT_EQ(displayName(name + 'x'), name + "…");
  EXPECT_EQ(abbreviated("äöü", 2), "äö…");
  EXPECT_EQ(abbreviated("äöü", 3), "äöü");
}

}
}
