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
            "\\x1B (1)\n└─ a\\nb\\x1B[2J");
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
            "more than one thing to show; choose one of GROUP, --all and --ungrouped");
  EXPECT_EQ(mistake(session, "show F"), "there is no group named F; show lists the groups");
  EXPECT_EQ(mistake(session, "show G H"),
            "H is one argument too many; usage: show [GROUP | --all | --ungrouped]");
}

TEST(Show, MarksNamesOnAColoredTerminal)
{
  auto session = sessionOf({"a"});
  session.style.isColored = true;

  EXPECT_EQ(run(session, {"create G a", "show G"}), "\x1b[1mG\x1b[0m (1)\n└─ a");
}

}
}
