// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Text/Wrapping.h"

#include "PointCollections/Console/Text/DisplayWidth.h"

#include <gtest/gtest.h>

namespace Tarvik::PointCollections {
namespace {

TEST(DisplayWidth, CountsTheColumnsOfATerminal)
{
  EXPECT_EQ(displayWidth(""), 0U);
  EXPECT_EQ(displayWidth("Paris"), 5U);
  EXPECT_EQ(displayWidth("Zürich"), 6U);
  EXPECT_EQ(displayWidth("Zu\u0308rich"), 6U);
  EXPECT_EQ(displayWidth("東京"), 4U);
  EXPECT_EQ(displayWidth("서울"), 4U);
  EXPECT_EQ(displayWidth("\u1109\u1165"), 2U);
  EXPECT_EQ(displayWidth("\U0001F30D"), 2U);
  EXPECT_EQ(displayWidth("│ …"), 3U);
  EXPECT_EQ(displayWidth("\xFF\xFE"), 2U);
}

TEST(DisplayWidth, LeavesColoursOut)
{
  EXPECT_EQ(displayWidth("\x1b[1mG\x1b[0m"), 1U);
  EXPECT_EQ(displayWidth("\x1b[1"), 3U);
}

TEST(Wrapping, BreaksLinesAtBlanks)
{
  EXPECT_EQ(wrapped("one two three", 7), "one two\nthree");
  EXPECT_EQ(wrapped("one two three", 6), "one\ntwo\nthree");
  EXPECT_EQ(wrapped("one two", unlimitedColumns), "one two");
  EXPECT_EQ(wrapped("one\n\ntwo\n", 10), "one\n\ntwo\n");
  EXPECT_EQ(wrapped("", 10), "");
}

TEST(Wrapping, CountsColumns)
{
  EXPECT_EQ(wrapped("東京 大阪", 9), "東京 大阪");
  EXPECT_EQ(wrapped("東京 大阪", 8), "東京\n大阪");
}

TEST(Wrapping, KeepsLongWordsWhole)
{
  EXPECT_EQ(wrapped("a incomprehensible b", 5), "a\nincomprehensible\nb");
}

TEST(Wrapping, BreaksLinesBetweenWideCharacters)
{
  EXPECT_EQ(wrapped("撤销最后一步或者最后几步", 10), "撤销最后一\n步或者最后\n几步");
  EXPECT_EQ(wrapped("撤销最后一步或者最后几步", 11), "撤销最后一\n步或者最后\n几步");
  EXPECT_EQ(wrapped("用save保存文件后退出程序", 12), "用save保存文\n件后退出程序");
  EXPECT_EQ(wrapped("打开 save保存文件后 退出", 12), "打开 save保\n存文件后\n退出");
}

TEST(Wrapping, KeepsPunctuationWithTheCharacterBeforeIt)
{
  EXPECT_EQ(wrapped("東京都、大阪府", 6), "東京\n都、大\n阪府");
  EXPECT_EQ(wrapped("一二三四。」五六", 8), "一二三\n四。」五\n六");
  EXPECT_EQ(wrapped("グループをしょり", 6), "グルー\nプを\nしょり");
}

TEST(Wrapping, KeepsOpeningPunctuationWithTheCharacterAfterIt)
{
  EXPECT_EQ(wrapped("一二三「四五」六", 8), "一二三\n「四五」\n六");
}

TEST(Wrapping, KeepsShortNamesWhole)
{
  EXPECT_EQ(wrapped("見る 東京大阪", 10), "見る\n東京大阪");
  EXPECT_EQ(wrapped("見る 東京大阪府", 10), "見る 東京\n大阪府");
  EXPECT_EQ(wrapped("東京大阪", 6), "東京大\n阪");
}

TEST(Wrapping, GoesOnBelowTheSecondColumnOfATable)
{
  EXPECT_EQ(wrapped("  show  draw the groups", 16), "  show  draw the\n        groups");
  EXPECT_EQ(wrapped("  show  一二三四五六七", 16), "  show  一二三四\n        五六七");
  EXPECT_EQ(wrapped("  one two three", 10), "  one two\n  three");
  EXPECT_EQ(wrapped("undefined  is a word", 12), "undefined\nis a word");
}

}
}
