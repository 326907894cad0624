// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Support/Sessions.h"

#include <gtest/gtest.h>

namespace Tarvik::PointCollections {
namespace {

class Rename : public ::testing::Test {
protected:
  Rename() { run(m_session, {"create G b a", "create H"}); }

  Session m_session = sessionOf({"a", "b"});
};

TEST_F(Rename, KeepsPlaceMembersAndId)
{
  const auto id = m_session.editor.document()->getGroups()[0].getId();

  EXPECT_EQ(run(m_session, {"rename G \"Old World\""}), "Renamed G to \"Old World\".");
  EXPECT_EQ(groupsOf(m_session), "Old World(b a) H()");
  EXPECT_EQ(m_session.editor.document()->getGroups()[0].getId(), id);
}

TEST_F(Rename, IsOneStep)
{
  run(m_session, {"rename G I"});

  EXPECT_EQ(run(m_session, {"undo"}), "Undone: Rename Group: G → I");
  EXPECT_EQ(groupsOf(m_session), "G(b a) H()");
  run(m_session, {"redo"});
  EXPECT_EQ(groupsOf(m_session), "I(b a) H()");
}

TEST_F(Rename, SaysWhatLooksTheSame)
{
  EXPECT_EQ(
      run(m_session, {"rename G Zürich", "create Zu\u0308rich"}),
      "Created Zu\u0308rich with 0 elements; the group \"Z\\u{FC}rich\" looks the same, but is "
      "written differently.");
  EXPECT_EQ(run(m_session, {"rename H \"Zürich\\u{200B}\""}),
            "Renamed H to \"Zürich\\u{200B}\"; the group \"Zürich\" looks the same, but is written "
            "differently.");
}

TEST_F(Rename, MayChangeTheCaseOrTakeAnElementsName)
{
  EXPECT_EQ(run(m_session, {"rename G g"}), "Renamed G to g.");
  EXPECT_EQ(run(m_session, {"rename g a"}), "Renamed g to a.");
  EXPECT_EQ(run(m_session, {"rename a G", "rename H g"}), "Renamed H to g.");
}

TEST_F(Rename, SwapsNamesByWayOfAThird)
{
  run(m_session, {"rename G I", "rename H G", "rename I H"});
  EXPECT_EQ(groupsOf(m_session), "H(b a) G()");

  run(m_session, {"undo 3"});
  EXPECT_EQ(groupsOf(m_session), "G(b a) H()");
}

TEST_F(Rename, HasNothingToDoWithTheNameThatTheGroupHas)
{
  EXPECT_EQ(run(m_session, {"rename G G"}), "Nothing to rename; G has this name already.");
  EXPECT_EQ(run(m_session, {"rename @2 H"}), "Nothing to rename; H has this name already.");
  EXPECT_EQ(m_session.editor.history().entries().size(), 2U);
}

TEST_F(Rename, TellsGroupsOfTheSameNameApart)
{
  m_session.editor.document()->renameGroup(m_session.editor.document()->getGroups()[1].getId(),
                                           "G");

  EXPECT_EQ(mistake(m_session, "rename G I"),
            "G is the name of 2 groups; write @1 or @2 to say which you mean");
  EXPECT_EQ(run(m_session, {"rename @2 I"}), "Renamed G to I.");
  EXPECT_EQ(groupsOf(m_session), "G(b a) I()");
}

TEST_F(Rename, ChangesNothingWhenTheLineIsWrong)
{
  EXPECT_EQ(mistake(m_session, "rename G \"\""), "the new name is empty; a group needs one");
  EXPECT_EQ(mistake(m_session, "rename G H"),
            "another group has the name H; choose one that is free");
  EXPECT_EQ(mistake(m_session, "rename G"), "NAME is missing; usage: rename GROUP NAME");
  EXPECT_EQ(mistake(m_session, "rename G Old World"),
            "World is one argument too many; usage: rename GROUP NAME");
  EXPECT_EQ(mistake(m_session, "rename Old World"),
            "there is no group named Old; show lists the groups");
  EXPECT_EQ(groupsOf(m_session), "G(b a) H()");
  EXPECT_EQ(m_session.editor.history().entries().size(), 2U);
}

}
}
