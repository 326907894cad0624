// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Support/Sessions.h"

#include <gtest/gtest.h>

namespace Tarvik::PointCollections {
namespace {

class Remove : public ::testing::Test {
protected:
  Remove() { run(m_session, {"create G c a", "create \"H 1\" d b"}); }

  Session m_session = sessionOf({"a", "b", "c", "d", "e", "two words"});
};

TEST_F(Remove, TakesElementsOutOfTheirGroup)
{
  EXPECT_EQ(run(m_session, {"remove d"}), "Removed 1 element from \"H 1\".");
  EXPECT_EQ(groupsOf(m_session), "G(c a) H 1(b)");
  EXPECT_EQ(ungroupedOf(m_session), "d e two words");
}

TEST_F(Remove, SaysHowManyLeaveEachGroup)
{
  EXPECT_EQ(run(m_session, {"remove d a c"}), "Removed 3 elements (2 from G, 1 from \"H 1\").");
  EXPECT_EQ(groupsOf(m_session), "G() H 1(b)");
}

TEST_F(Remove, IsOneStep)
{
  run(m_session, {"remove a b"});

  EXPECT_EQ(run(m_session, {"undo"}), "Undone: Remove Point Collection(s) From Group: 2 elements");
  EXPECT_EQ(groupsOf(m_session), "G(c a) H 1(d b)");
  run(m_session, {"redo"});
  EXPECT_EQ(groupsOf(m_session), "G(c) H 1(d)");
}

TEST_F(Remove, ChangesNothingWhenTheLineIsWrong)
{
  EXPECT_EQ(mistake(m_session, "remove"), "ELEMENT is missing; usage: remove ELEMENT…");
  EXPECT_EQ(mistake(m_session, "remove a e"), "e is ungrouped; name members of groups only");
  EXPECT_EQ(mistake(m_session, "remove two words"),
            "a name with blanks needs quotes; write \"two words\"");
  EXPECT_EQ(mistake(m_session, "remove a x"), "there is no element named x; show --all lists them");
  EXPECT_EQ(mistake(m_session, "remove a a"), "a is given twice; name each element once");
  EXPECT_EQ(mistake(m_session, "remove a --end"),
            "remove has no option --end; usage: remove ELEMENT…");
  EXPECT_EQ(groupsOf(m_session), "G(c a) H 1(d b)");
  EXPECT_EQ(m_session.editor.history().entries().size(), 2U);
}

}
}
