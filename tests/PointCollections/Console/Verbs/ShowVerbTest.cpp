// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Support/Sessions.h"
#include "Support/Groups.h"

#include <gtest/gtest.h>

namespace Tarvik::PointCollections {
namespace {

TEST(Show, DrawsGroupsAndUngroupedElements)
{
  auto session = sessionOf({"a", "b", "c"});

  EXPECT_EQ(run(session, {"create \"First group\" c a", "create Empty", "show"}),
            "test.csv: 3 elements in 2 groups\n"
            "├─ First group (2)\n"
            "│  ├─ c\n"
            "│  └─ a\n"
            "├─ Empty (0)\n"
            "└─ ungrouped (1)\n"
            "   └─ b");
}

TEST(Show, DrawsAnEmptyDocument)
{
  auto session = sessionOf({});

  EXPECT_EQ(run(session, {"show"}), "test.csv: 0 elements in 0 groups\n"
                                    "└─ ungrouped (0)");
}

TEST(Show, DrawsOneGroup)
{
  auto session = sessionOf({"a", "b"});

  EXPECT_EQ(run(session, {"create G b", "create H a", "show H"}), "H (1)\n└─ a");
  EXPECT_EQ(run(session, {"show @1"}), "G (1)\n└─ b");
}

TEST(Show, CountsPointsUnlessThereIsOne)
{
  auto document = PointDocument::create({{.id = GUIdentifier(), .name = "line", .points = {{}, {}}},
                                         {.id = GUIdentifier(), .name = "dot", .points = {{}}},
                                         {.id = GUIdentifier(), .name = "empty", .points = {}}});
  Session session = {.editor = Editor({document, "test.csv"})};

  EXPECT_EQ(run(session, {"show --ungrouped"}), "ungrouped (3)\n"
                                                "├─ line, 2 points\n"
                                                "├─ dot\n"
                                                "└─ empty, 0 points");
}

TEST(Show, TellsALineBreakFromABackslash)
{
  auto session = sessionOf({"a\nb", "a\\nb", "\u202Ea", "c d"});

  EXPECT_EQ(run(session, {R"(create "x\ny")", R"(create "x\\ny")", "show"}),
            "test.csv: 4 elements in 2 groups\n"
            "├─ \"x\\ny\" (0)\n"
            "├─ \"x\\\\ny\" (0)\n"
            "└─ ungrouped (4)\n"
            "   ├─ \"a\\nb\"\n"
            "   ├─ \"a\\\\nb\"\n"
            "   ├─ \"\\u{202E}a\"\n"
            "   └─ c d");
}

TEST(Show, AbbreviatesMoreThanTwelveElements)
{
  auto session = sessionOf({"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12", "13"});

  EXPECT_TRUE(run(session, {"show"}).ends_with("   ├─ 11\n   └─ … and 2 more"));
  EXPECT_TRUE(run(session, {"create G 1", "show"}).ends_with("   ├─ 12\n   └─ 13"));
  EXPECT_TRUE(run(session, {"undo", "show --all"}).ends_with("   ├─ 12\n   └─ 13"));
  EXPECT_TRUE(run(session, {"show --ungrouped"}).ends_with("\n├─ 12\n└─ 13"));
}

TEST(Show, EscapesNamesThatATerminalWouldObey)
{
  auto session = sessionOf({"a\nb\x1B[2J"});

  EXPECT_EQ(run(session, {R"(create "\x1B" "a\nb\x1B[2J")", "create x", "show @1"}),
            "\"\\x1B\" (1)\n└─ \"a\\nb\\x1B[2J\"");
}

TEST(Show, ShowsMembersThatTheDocumentDoesNotHave)
{
  auto session = sessionOf({"a"});
  session.editor.document()->setGroups({group("", {GUIdentifier()})});

  EXPECT_EQ(run(session, {"show @1"}), "\"\" (1)\n└─ (an element that is not in this document)");
}

TEST(Show, ShowsOneThingAtATime)
{
  auto session = sessionOf({"a"});
  run(session, {"create G"});

  EXPECT_EQ(mistake(session, "show G --all"),
            "more than one thing to show; choose one of GROUP, ELEMENT, --all, --groups and "
            "--ungrouped");
  EXPECT_EQ(mistake(session, "show Fxx"),
            "there is no group or element named Fxx; show --groups lists the groups");
  EXPECT_EQ(mistake(session, "show 6"),
            "there is no group or element named 6; show --groups lists the groups");
  EXPECT_EQ(mistake(session, "show G a"),
            "G is a group, not an element; write G:* for its members");
}

TEST(Show, ShowsElements)
{
  auto session = sessionOf({"a", "b", "c"});
  run(session, {"create G a", "create c"});

  EXPECT_EQ(run(session, {"show b"}), "b\n├─ ungrouped\n└─ (0, 0, 0)");
  EXPECT_EQ(run(session, {"show G:*"}), "a\n├─ place 1 of 1 in G (@1)\n└─ (0, 0, 0)");
  EXPECT_EQ(run(session, {"show c"}), "c (0)");
  EXPECT_TRUE(run(session, {"show a b"}).starts_with("2 elements\n├─ a\n│  ├─ place 1 of 1"));
}

TEST(Show, ListsTheGroupsInOneLineEach)
{
  auto session = sessionOf({"a", "b", "c"});

  EXPECT_EQ(run(session, {"create G a b", "create H", "show --groups"}),
            "test.csv: 3 elements in 2 groups\n├─  @1  G (2)\n├─  @2  H (0)\n└─ ungrouped (1)");
}

TEST(Show, NumbersTheElementsIfAsked)
{
  auto session = sessionOf({"a", "b", "c"});

  EXPECT_EQ(run(session, {"create G b a", "show G --places"}), "G (2)\n├─   1  b\n└─   2  a");
  EXPECT_EQ(run(session, {"show --ungrouped --places"}), "ungrouped (1)\n└─   1  c");
}

TEST(Show, WritesJson)
{
  auto session = sessionOf({"a", "b \"c\""});
  session.editor.document()->setGroups({group("G", {GUIdentifier()})});
  run(session, {"add G a --at 1"});

  EXPECT_EQ(run(session, {"show --json"}),
            R"({"title":"test.csv","groups":[{"place":1,"name":"G","count":2,)"
            R"("members":["a",null]}],"ungrouped":["b \"c\""]})");
  EXPECT_EQ(run(session, {"show G --json"}),
            R"({"place":1,"name":"G","count":2,"members":["a",null]})");
  EXPECT_EQ(run(session, {"show --groups --json"}),
            R"({"groups":[{"place":1,"name":"G","count":2}]})");
  EXPECT_EQ(run(session, {"show --ungrouped --json"}), R"({"ungrouped":["b \"c\""]})");
  EXPECT_EQ(run(session, {"show a --json"}),
            R"({"elements":[{"name":"a","groups":[{"place":1,"name":"G","member":1}],)"
            R"("points":[[0,0,0]]}]})");
}

TEST(Show, MarksNamesOnAColoredTerminal)
{
  auto session = sessionOf({"a"});
  session.style.isColored = true;

  EXPECT_EQ(run(session, {"create G a", "show G"}), "\x1b[1mG\x1b[0m (1)\n└─ a");
}

}
}
