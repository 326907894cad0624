// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Support/Sessions.h"
#include "Support/Groups.h"

#include <gtest/gtest.h>

namespace Tarvik::PointCollections {
namespace {

class Sort : public ::testing::Test {
protected:
  Session m_session = sessionOf({"d", "B", "a", "C", "9", "10"});
};

TEST_F(Sort, SortsGroupsAndMembersWhateverTheCase)
{
  EXPECT_EQ(run(m_session, {"create h C a", "create G d B", "create f", "sort"}),
            "Sorted 3 groups and their members.");
  EXPECT_EQ(groupsOf(m_session), "f() G(B d) h(a C)");
}

TEST_F(Sort, TakesNumbersForText)
{
  EXPECT_EQ(run(m_session, {"create G 9 10", "sort"}), "Sorted 1 group and its members.");
  EXPECT_EQ(groupsOf(m_session), "G(10 9)");
}

TEST_F(Sort, KeepsTheOrderOfUngroupedElements)
{
  run(m_session, {"create G 10 9", "sort"});

  EXPECT_EQ(ungroupedOf(m_session), "d B a C");
}

TEST_F(Sort, IsOneStep)
{
  run(m_session, {"create H C a", "create G d B", "sort"});

  EXPECT_EQ(run(m_session, {"undo"}), "Undone: Sort Groups");
  EXPECT_EQ(groupsOf(m_session), "H(C a) G(d B)");
  run(m_session, {"redo"});
  EXPECT_EQ(groupsOf(m_session), "G(B d) H(a C)");
}

TEST_F(Sort, KeepsMembersThatTheDocumentDoesNotHave)
{
  const auto a = m_session.editor.document()->findByName("a")->id;
  m_session.editor.document()->setGroups({group("G", {a, GUIdentifier()})});

  run(m_session, {"sort"});
  EXPECT_EQ(groupsOf(m_session), "G(? a)");
}

TEST_F(Sort, HasNothingToDoWithoutGroups)
{
  EXPECT_EQ(run(m_session, {"sort"}), "Nothing to sort; there are no groups.");
  EXPECT_TRUE(m_session.editor.history().entries().empty());
}

TEST_F(Sort, HasNothingToDoIfAllIsSorted)
{
  run(m_session, {"create H C a", "create G d B", "sort"});
  m_session.editor.history().markClean();

  EXPECT_EQ(run(m_session, {"sort"}), "Nothing to sort; this is the order already.");
  EXPECT_EQ(m_session.editor.history().entries().size(), 3U);
  EXPECT_FALSE(m_session.editor.hasUnsavedChanges());
}

TEST_F(Sort, TakesNoArguments)
{
  EXPECT_EQ(mistake(m_session, "sort G"), "G is one argument too many; usage: sort");
}

}
}
