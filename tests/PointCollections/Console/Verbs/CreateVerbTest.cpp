// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Support/Sessions.h"

#include <gtest/gtest.h>

namespace Tarvik::PointCollections {
namespace {

class Create : public ::testing::Test {
protected:
  Session m_session = sessionOf({"a", "b", "c", "two words"});
};

TEST_F(Create, MakesAGroupOfElementsInTheOrderGiven)
{
  EXPECT_EQ(run(m_session, {"create G c a \"two words\""}), "Created G with 3 elements.");
  EXPECT_EQ(groupsOf(m_session), "G(c a two words)");
}

TEST_F(Create, MakesAnEmptyGroup)
{
  EXPECT_EQ(run(m_session, {"create G"}), "Created G with 0 elements.");
  EXPECT_EQ(groupsOf(m_session), "G()");
}

TEST_F(Create, SaysWhereElementsCameFrom)
{
  EXPECT_EQ(run(m_session, {"create G a b", "create \"H 1\" c", "create I c b \"two words\" a"}),
            "Created I with 4 elements (2 from G, 1 from \"H 1\").");
  EXPECT_EQ(groupsOf(m_session), "G() H 1() I(c b two words a)");
}

TEST_F(Create, SaysWhichNameTheGroupGot)
{
  EXPECT_EQ(run(m_session, {"create G", "create G a"}),
            "Created \"G 2\" with 1 element; the name G was taken.");
  EXPECT_EQ(run(m_session, {"create \"\""}), "Created Group with 0 elements.");
  EXPECT_EQ(run(m_session, {"create \"\""}), "Created \"Group 2\" with 0 elements.");
}

TEST_F(Create, IsUndone)
{
  run(m_session, {"create G a", "create H a", "undo"});

  EXPECT_EQ(groupsOf(m_session), "G(a)");
}

TEST_F(Create, ChangesNothingWhenTheLineIsWrong)
{
  EXPECT_EQ(mistake(m_session, "create"), "NAME is missing; usage: create NAME [ELEMENT…]");
  EXPECT_EQ(mistake(m_session, "create G a d"),
            "there is no element named d; show --all lists them");
  EXPECT_EQ(mistake(m_session, "create G a b a"), "a is given twice; name each element once");
  EXPECT_EQ(mistake(m_session, "create G two words"),
            "a name with blanks needs quotes; write \"two words\"");
  EXPECT_EQ(mistake(m_session, "create G --at 1"),
            "create has no option --at; usage: create NAME [ELEMENT…]");
  EXPECT_EQ(groupsOf(m_session), "");
  EXPECT_TRUE(m_session.editor.history().entries().empty());
}

}
}
