// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Support/Sessions.h"

#include <gtest/gtest.h>

namespace Tarvik::PointCollections {
namespace {

/// "a" has one point, "b" has five.
Session sessionWithPoints()
{
  std::vector<PointCollection> collections;
  collections.push_back({.id = GUIdentifier(), .name = "a", .points = {{1, 2.5, -3}}});
  collections.push_back({.id = GUIdentifier(),
                         .name = "b",
                         .points = {{1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {4, 0, 0}, {5, 0, 0}}});
  return {.editor = Editor({PointDocument::create(collections), "test.csv"})};
}

TEST(Where, TellsGroupPlaceAndPoints)
{
  auto session = sessionWithPoints();

  EXPECT_EQ(run(session, {"where a"}), "a\n├─ ungrouped\n└─ (1, 2.5, -3)");
  EXPECT_EQ(run(session, {"create F", "create G b a", "where a"}),
            "a\n├─ place 2 of 2 in G (@2)\n└─ (1, 2.5, -3)");
}

TEST(Where, TellsAllGroupsThatHoldTheElement)
{
  auto session = sessionWithPoints();
  auto& document = *session.editor.document();
  const auto a = document.findByName("a")->id;
  TKGroup<GUIdentifier> group("G");
  group.addGroupMembersAtIndex({a, a}, -1);
  document.setGroups({group, TKGroup<GUIdentifier>("H"), group});

  EXPECT_EQ(run(session, {"where a"}), "a\n"
                                       "├─ place 1 of 2 in G (@1)\n"
                                       "├─ place 2 of 2 in G (@1)\n"
                                       "├─ place 1 of 2 in G (@3)\n"
                                       "├─ place 2 of 2 in G (@3)\n"
                                       "└─ (1, 2.5, -3)");
}

TEST(Where, ShowsAllPointsOfOneElementAndSomeOfSeveral)
{
  auto session = sessionWithPoints();

  EXPECT_TRUE(run(session, {"where b"}).ends_with("├─ (4, 0, 0)\n└─ (5, 0, 0)"));
  EXPECT_EQ(run(session, {"where *"}), "2 elements\n"
                                       "├─ a\n"
                                       "│  ├─ ungrouped\n"
                                       "│  └─ (1, 2.5, -3)\n"
                                       "└─ b\n"
                                       "   ├─ ungrouped\n"
                                       "   ├─ (1, 0, 0)\n"
                                       "   ├─ (2, 0, 0)\n"
                                       "   ├─ (3, 0, 0)\n"
                                       "   └─ … and 2 more points");
}

TEST(Where, WritesJson)
{
  auto session = sessionWithPoints();

  EXPECT_EQ(run(session, {"create G a", "where a --json"}),
            R"([{"name":"a","groups":[{"place":1,"name":"G","member":1}],"points":[[1,2.5,-3]]}])");
}

}
}
