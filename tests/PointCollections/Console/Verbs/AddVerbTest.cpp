// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Support/Sessions.h"

#include <gtest/gtest.h>

namespace Tarvik::PointCollections {
namespace {

class Add : public ::testing::Test {
protected:
  Add() { run(m_session, {"create G a b c", "create H d"}); }

  /// Runs the line, returns the groups, and undoes the line.
  std::string groupsAfter(std::string_view line)
  {
    run(m_session, {line});
    auto result = groupsOf(m_session);
    run(m_session, {"undo"});
    return result;
  }

  Session m_session = sessionOf({"a", "b", "c", "d", "e", "f"});
};

TEST_F(Add, PutsElementsAtTheEnd)
{
  EXPECT_EQ(run(m_session, {"add G f e"}), "Added 2 elements to G.");
  EXPECT_EQ(groupsOf(m_session), "G(a b c f e) H(d)");
  EXPECT_EQ(groupsAfter("add H a --end"), "G(b c f e) H(d a)");
}

TEST_F(Add, CountsPlacesFromOne)
{
  EXPECT_EQ(groupsAfter("add G e f --at 1"), "G(e f a b c) H(d)");
  EXPECT_EQ(groupsAfter("add G --at 3 e"), "G(a b e c) H(d)");
  EXPECT_EQ(groupsAfter("add G e --at 4"), "G(a b c e) H(d)");
}

TEST_F(Add, PutsElementsBeforeAMember)
{
  EXPECT_EQ(groupsAfter("add G f e --before b"), "G(a f e b c) H(d)");
  EXPECT_EQ(groupsAfter("add G a --before c"), "G(b a c) H(d)");
}

TEST_F(Add, PutsElementsAfterAMember)
{
  EXPECT_EQ(groupsAfter("add G f e --after b"), "G(a b f e c) H(d)");
  EXPECT_EQ(groupsAfter("add G a --after c"), "G(b c a) H(d)");
  EXPECT_EQ(groupsAfter("add G e --after G:1"), "G(a e b c) H(d)");
  EXPECT_EQ(mistake(m_session, "add G e --after d"),
            "d is not in G; name one of its members after --after");
}

TEST_F(Add, MovesMembersWithinTheGroup)
{
  EXPECT_EQ(run(m_session, {"add G c d e --at 1"}),
            "Added 3 elements to G (1 moved within it, 1 from H).");
  EXPECT_EQ(groupsOf(m_session), "G(c d e a b) H()");
}

TEST_F(Add, HasNothingToDoIfElementsAreInPlace)
{
  const auto entries = m_session.editor.history().entries().size();

  EXPECT_EQ(run(m_session, {"add G"}), "Nothing to add; G stays as it is.");
  for (const auto* line : {"add G c", "add G a b c", "add G b c --end", "add G a b --at 1",
                           "add G a b --at 3", "add G a --before b", "add G c --before c"})
    EXPECT_EQ(run(m_session, {line}), "Nothing to add; this is the order already.") << line;
  EXPECT_EQ(groupsOf(m_session), "G(a b c) H(d)");
  EXPECT_EQ(m_session.editor.history().entries().size(), entries);
}

TEST_F(Add, IsAChangeIfOnlyAPartIsAsItWas)
{
  EXPECT_EQ(groupsAfter("add G b a"), "G(c b a) H(d)");
  EXPECT_EQ(groupsAfter("add G a c --at 1"), "G(a c b) H(d)");
  EXPECT_EQ(groupsAfter("add G c d"), "G(a b c d) H()");
}

TEST_F(Add, TakesAGroupByItsPlace)
{
  EXPECT_EQ(run(m_session, {"add @2 e"}), "Added 1 element to H.");
  EXPECT_EQ(mistake(m_session, "add @3 e"), "there is no group at place 3; there are 2 groups");
  EXPECT_EQ(mistake(m_session, "add @x e"),
            "the place of a group after @ is x; expected a whole number from 1 up");
  EXPECT_EQ(mistake(m_session, "add \"@2\" e"),
            "there is no group named \"@2\"; show lists the groups");
}

TEST_F(Add, AsksWhichOfTwoGroupsWithTheSameNameIsMeant)
{
  const auto h = m_session.editor.document()->getGroups()[1].getId();
  m_session.editor.document()->renameGroup(h, "G");

  EXPECT_EQ(mistake(m_session, "add G e"),
            "G is the name of 2 groups; write @1 or @2 to say which you mean");
  EXPECT_EQ(groupsAfter("add @2 e"), "G(a b c) G(d e)");
}

TEST_F(Add, ChangesNothingWhenTheLineIsWrong)
{
  const auto before = groupsOf(m_session);

  EXPECT_EQ(mistake(m_session, "add g e"), "there is no group named g; did you mean G?");
  EXPECT_EQ(mistake(m_session, "add G e --at 5"),
            "--at 5 is after the end; G has 3 members, so N is from 1 to 4");
  EXPECT_EQ(mistake(m_session, "add G e --at 99999999999999999999"),
            "--at 99999999999999999999 is after the end; G has 3 members, so N is from 1 to 4");
  EXPECT_EQ(mistake(m_session, "add G e --at 0"),
            "the place after --at is 0; expected a whole number from 1 up");
  EXPECT_EQ(mistake(m_session, "add G e --at -1"),
            "the place after --at is -1; expected a whole number from 1 up");
  EXPECT_EQ(mistake(m_session, "add G e --at"), "--at needs a value; expected --at N");
  EXPECT_EQ(mistake(m_session, "add G e --before d"),
            "d is not in G; name one of its members after --before");
  EXPECT_EQ(mistake(m_session, "add G e --end --at 1"),
            "more than one place is given; choose one of --at, --before, --after and --end");
  EXPECT_EQ(mistake(m_session, "add G e --befor a"),
            "add has no option --befor; did you mean --before?");
  EXPECT_EQ(mistake(m_session, "add G x"), "there is no element named x; show --all lists them");
  EXPECT_EQ(groupsOf(m_session), before);
  EXPECT_EQ(m_session.editor.history().entries().size(), 2U);
}

}
}
