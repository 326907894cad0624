// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Support/Sessions.h"

#include <gtest/gtest.h>

namespace Tarvik::PointCollections {
namespace {

class Find : public ::testing::Test {
protected:
  Find() { run(m_session, {"create \"New World\" \"New York\" Lima", "create Old Paris"}); }

  Session m_session = sessionOf({"New York", "Lima", "Paris", "Newport"});
};

TEST_F(Find, ListsGroupsAndElementsWithTheTextInAnyCase)
{
  EXPECT_EQ(run(m_session, {"find NEW"}), "2 elements and 1 group with NEW in the name\n"
                                          "├─ New World (2): group @1\n"
                                          "├─ New York: place 1 of 2 in \"New World\" (@1)\n"
                                          "└─ Newport: ungrouped");
  EXPECT_EQ(run(m_session, {"find \"w y\""}), "1 element with \"w y\" in the name\n"
                                              "└─ New York: place 1 of 2 in \"New World\" (@1)");
}

TEST_F(Find, TakesNoCharacterForAPattern)
{
  EXPECT_EQ(run(m_session, {"find *"}), "Nothing has \"*\" in its name.");
}

TEST_F(Find, WritesJson)
{
  EXPECT_EQ(run(m_session, {"find new --json"}),
            R"({"text":"new","groups":[{"place":1,"name":"New World","count":2}],"elements":[)"
            R"({"name":"New York","groups":[{"place":1,"name":"New World","member":1}],)"
            R"("points":[[0,0,0]]},{"name":"Newport","groups":[],"points":[[0,0,0]]}]})");
  EXPECT_EQ(run(m_session, {"find x --json"}), R"({"text":"x","groups":[],"elements":[]})");
}

TEST_F(Find, NeedsAText)
{
  EXPECT_EQ(mistake(m_session, "find \"\""),
            "the text to find is empty; show --all lists everything");
}

}
}
