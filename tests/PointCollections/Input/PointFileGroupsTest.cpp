// SPDX-License-Identifier: MIT
// The columns group and place of a file of points, read and written.
#include "PointCollections/Input/PointFile.h"
#include "PointCollections/Input/PointFileWriter.h"
#include "PointCollections/Support/Documents.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Tarvik::PointCollections {
namespace {

const std::string header = "collection,x,y,z,group,place\n";

std::shared_ptr<PointDocument> read(std::string_view rows)
{
  auto content = parsePointFile(header + std::string(rows), "cities.csv");
  auto document = PointDocument::create(std::move(content.collections));
  document->setGroups(content.groups);
  return document;
}

std::string mistakeInRows(std::string_view rows)
{
  return mistakeIn([&] { read(rows); });
}

TEST(GroupsInAFileOfPoints, HaveTheirMembersByPlace)
{
  const auto document = read("a,1,2,3,G,2\nb,1,2,3,G,1\nc,1,2,3,,\nd,1,2,3,H,\ne,1,2,3,G,7\n");

  EXPECT_EQ(groupsOf(*document), "G(b a e) H(d)");
  EXPECT_EQ(ungroupedOf(*document), "c");
}

TEST(GroupsInAFileOfPoints, TakeMembersWithoutAPlaceAtTheEnd)
{
  EXPECT_EQ(groupsOf(*read("b,1,2,3,G,\nc,1,2,3,G,\na,1,2,3,G,1\nb,4,5,6,G,\n")), "G(a b c)");
}

TEST(GroupsInAFileOfPoints, ComeFirstIfTheyAreDeclared)
{
  EXPECT_EQ(groupsOf(*read("a,1,2,3,G,1\n,,,,H,\n,,,,G,\nb,1,2,3,F,1\n")), "H() G(a) F(b)");
}

TEST(GroupsInAFileOfPoints, MayShareAnElementAndHaveItTwice)
{
  EXPECT_EQ(groupsOf(*read("a,1,2,3,G,1\na,,,,H,1\na,,,,G,2\n")), "G(a a) H(a)");
}

TEST(GroupsInAFileOfPoints, GiveAWarningIfAnElementIsInSeveralPlaces)
{
  const auto warnings = [](std::string_view rows) {
    return parsePointFile(header + std::string(rows), "cities.csv").warnings;
  };
  const std::vector<std::string> one = {"cities.csv: 1 element is in more than one group, or twice "
                                        "in one; commands take it out of the "
                                        "first place only"};
  const std::vector<std::string> two = {"cities.csv: 2 elements are in more than one group, or "
                                        "twice in one; commands take them out of "
                                        "the first place only"};

  EXPECT_EQ(warnings("a,1,2,3,G,1\na,,,,H,1\na,,,,I,\nb,1,2,3,G,2\n"), one);
  EXPECT_EQ(warnings("a,1,2,3,G,1\nb,1,2,3,G,2\na,,,,G,3\nc,1,2,3,,\nb,1,2,3,H,\n"), two);
  EXPECT_TRUE(warnings("a,1,2,3,G,1\na,4,5,6,G,1\nb,1,2,3,H,\nb,4,5,6,H,\n").empty());
}

TEST(GroupsInAFileOfPoints, MayHoldElementsWithoutPoints)
{
  const auto document = read("a,,,,G,1\n");

  EXPECT_EQ(groupsOf(*document), "G(a)");
  EXPECT_TRUE(document->findByName("a")->points.empty());
}

TEST(GroupsInAFileOfPoints, AreRefusedIfTheyMakeNoSense)
{
  EXPECT_EQ(mistakeInRows("a,1,2,3,G,one\n"),
            "cities.csv:2: place is \"one\"; expected a whole number from 1 up, or nothing");
  EXPECT_EQ(mistakeInRows("a,1,2,3,G,0\n"),
            "cities.csv:2: place is \"0\"; expected a whole number from 1 up, or nothing");
  EXPECT_EQ(
      mistakeInRows("a,1,2,3,G,1\nb,1,2,3,G,1\n"),
      "cities.csv:3: another element has the place 1 in G; expected a free place, or nothing");
  EXPECT_EQ(mistakeInRows("a,1,2,3,,1\n"),
            "cities.csv:2: a place without a group; expected the name of the group, too");
  EXPECT_EQ(mistakeInRows(",1,2,3,G,\n"),
            "cities.csv:2: the element has no name; expected one, such as Berlin");
  EXPECT_EQ(mistakeInRows(",,,,,\n"),
            "cities.csv:2: the element has no name; expected one, such as Berlin");
  EXPECT_EQ(mistakeInRows("a,1,,3,G,1\n"),
            "cities.csv:2: y is \"\", which is not a number; expected e.g. 12.5");
  EXPECT_EQ(mistakeInRows("a,1,2,3\n"),
            "cities.csv:2: 4 fields; expected 6 (collection,x,y,z,group,place)");
}

/// The rows that are written for a document with these rows.
std::string rewritten(std::string_view rows)
{
  return pointFileOf(*read(rows)).substr(header.size());
}

TEST(AWrittenFileOfPoints, HasTheSameRows)
{
  for (const std::string rows : {
           "",
           "a,1,2,3,,\n",
           "a,0.1,-2,1e+300,G,1\nb,1,2,3,,\nc,1,2,3,H,1\nd,1,2,3,G,2\n",
           ",,,,H,\n,,,,G,\na,1,2,3,G,1\nb,1,2,3,H,1\n",
           "a,1,2,3,G,1\na,4,5,6,G,1\nb,,,,,\n",
           "a,1,2,3,G,1\na,,,,G,2\na,,,,H,1\n",
           "\"a, \"\"b\"\"\",1,2,3,\"G\nH\",1\n\" c \",1,2,3,,\n",
       })
    EXPECT_EQ(rewritten(rows), rows);
}

TEST(AWrittenFileOfPoints, LeavesOutMembersThatAreNotInTheDocument)
{
  const auto document = documentOf({"a"});
  TKGroup<GUIdentifier> group("G");
  group.addGroupMembersAtIndex({GUIdentifier(), document->order().front()}, -1);
  document->setGroups({group});

  EXPECT_EQ(pointFileOf(*document), header + "a,0,0,0,G,2\n");
}

}
}
