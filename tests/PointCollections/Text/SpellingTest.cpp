// SPDX-License-Identifier: MIT
#include "PointCollections/Text/Spelling.h"

#include "PointCollections/Text/Words.h"

#include <gtest/gtest.h>

namespace Tarvik::PointCollections {
namespace {

TEST(Decomposition, TakesCharactersApart)
{
  EXPECT_TRUE(decomposed("Zürich") == U"Zu\u0308rich");
  EXPECT_TRUE(decomposed("\u01D5") == U"U\u0308\u0304") << "in two steps";
  EXPECT_TRUE(decomposed("\u212B") == U"A\u030A") << "the sign of the unit Ångström";
  EXPECT_TRUE(decomposed("\uD55C\uAE00") == U"\u1112\u1161\u11AB\u1100\u1173\u11AF") << "Korean";
  EXPECT_TRUE(decomposed("a\u4E2D\U0001F600") == U"a\u4E2D\U0001F600");
}

TEST(Decomposition, OrdersMarksThatDoNotTouchEachOther)
{
  EXPECT_TRUE(decomposed("q\u0307\u0323") == decomposed("q\u0323\u0307"));
  EXPECT_FALSE(decomposed("q\u0307\u0308") == decomposed("q\u0308\u0307"));
}

TEST(Lookalikes, AreWrittenDifferently)
{
  EXPECT_TRUE(Lookalikes("Zürich")("Zu\u0308rich"));
  EXPECT_TRUE(Lookalikes("Zu\u0308rich")("Zürich"));
  EXPECT_TRUE(Lookalikes("New York")("New\u00A0York"));
  EXPECT_TRUE(Lookalikes("New\u00A0York")("New York"));
  EXPECT_TRUE(Lookalikes("\u2764")("\u2764\uFE0F"));
  EXPECT_FALSE(Lookalikes("Zürich")("Zürich")) << "the same";
  EXPECT_FALSE(Lookalikes("Zürich")("Zurich"));
  EXPECT_FALSE(Lookalikes("a\tb")("ab")) << "shown as \\t";
}

TEST(ASpelling, EscapesOnlyWhatIsDifferent)
{
  EXPECT_EQ(spelledApart("Zürich ö", "Zu\u0308rich ö"), R"("Z\u{FC}rich ö")");
  EXPECT_EQ(spelledApart("Zu\u0308rich", "Zürich"), R"("Zu\u{308}rich")");
  EXPECT_EQ(spelledApart("a\"b\u200B", "a\"b"), R"("a\"b\u{200B}")");
  EXPECT_EQ(spelledApart("a\"b", "a\"b\u200B"), R"("a\"b")");
}

TEST(ASpelling, CanBeTypedBack)
{
  for (const std::string name : {"Zürich", "Zu\u0308rich", "\u01D5\U0001F600\"\\"})
    EXPECT_EQ(splitWords(spelledApart(name, "")).front().text, name);
}

}
}
