// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Support/Sessions.h"

#include <gtest/gtest.h>

namespace Tarvik::PointCollections {
namespace {

class Delete : public ::testing::Test {
protected:
  Delete() { run(m_session, {"create G c a", "create \"H 1\" b", "create I", "create J d"}); }

  void giveTheThirdGroupTheNameOfTheFirst()
  {
    m_session.editor.document()->renameGroup(m_session.editor.document()->getGroups()[2].getId(),
                                             "G");
  }

  Session m_session = sessionOf({"a", "b", "c", "d", "e"});
};

TEST_F(Delete, TakesAGroupAndKeepsItsMembers)
{
  EXPECT_EQ(run(m_session, {"delete G"}), "Deleted G; 2 elements are ungrouped now.");
  EXPECT_EQ(groupsOf(m_session), "H 1(b) I() J(d)");
  EXPECT_EQ(ungroupedOf(m_session), "a c e");
}

TEST_F(Delete, TakesManyGroupsInAnyOrder)
{
  EXPECT_EQ(run(m_session, {"delete J G"}), "Deleted J and G; 3 elements are ungrouped now.");
  EXPECT_EQ(groupsOf(m_session), "H 1(b) I()");
  run(m_session, {"undo"});
  EXPECT_EQ(run(m_session, {"delete I \"H 1\" G"}),
            "Deleted I, \"H 1\" and G; 3 elements are ungrouped now.");
  EXPECT_EQ(groupsOf(m_session), "J(d)");
}

TEST_F(Delete, MentionsMembersIfThereAreAny)
{
  EXPECT_EQ(run(m_session, {"delete I"}), "Deleted I.");
  EXPECT_EQ(run(m_session, {"delete \"H 1\""}), "Deleted \"H 1\"; 1 element is ungrouped now.");
}

TEST_F(Delete, DoesNotCountMembersThatAnotherGroupHolds)
{
  auto groups = m_session.editor.document()->getGroups();
  groups[3].addGroupMember(m_session.editor.document()->findByName("a")->id);
  m_session.editor.document()->setGroups(groups);

  EXPECT_EQ(run(m_session, {"delete G"}), "Deleted G; 1 element is ungrouped now.");
}

TEST_F(Delete, IsOneStep)
{
  run(m_session, {"delete J G"});

  EXPECT_EQ(run(m_session, {"undo"}), "Undone: Remove Group: J, G");
  EXPECT_EQ(groupsOf(m_session), "G(c a) H 1(b) I() J(d)");
  run(m_session, {"redo"});
  EXPECT_EQ(groupsOf(m_session), "H 1(b) I()");
}

TEST_F(Delete, TakesGroupsByTheirPlacesBeforeTheStep)
{
  giveTheThirdGroupTheNameOfTheFirst();

  EXPECT_EQ(run(m_session, {"delete @2 @3"}), "Deleted \"H 1\" and G; 1 element is ungrouped now.");
  EXPECT_EQ(groupsOf(m_session), "G(c a) J(d)");
}

TEST_F(Delete, ChangesNothingWhenTheLineIsWrong)
{
  EXPECT_EQ(mistake(m_session, "delete"), "GROUP is missing; usage: delete GROUP…");
  EXPECT_EQ(mistake(m_session, "delete G K"), "there is no group named K; show lists the groups");
  EXPECT_EQ(mistake(m_session, "delete G I G"), "G is given twice; name each group once");
  EXPECT_EQ(mistake(m_session, "delete G @1"), "G is given twice; name each group once");
  EXPECT_EQ(mistake(m_session, "delete @5"), "there is no group at place 5; there are 4 groups");

  giveTheThirdGroupTheNameOfTheFirst();
  EXPECT_EQ(mistake(m_session, "delete J G"),
            "G is the name of 2 groups; write @1 or @3 to say which you mean");
  EXPECT_EQ(groupsOf(m_session), "G(c a) H 1(b) G() J(d)");
  EXPECT_EQ(m_session.editor.history().entries().size(), 4U);
}

}
}
