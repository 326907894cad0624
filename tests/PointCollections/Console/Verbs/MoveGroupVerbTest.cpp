// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Support/Sessions.h"

#include <gmock/gmock.h>

namespace Tarvik::PointCollections {
namespace {

using ::testing::HasSubstr;

class MoveGroup : public ::testing::Test {
protected:
  MoveGroup() { run(m_session, {"create A a", "create B b", "create C c", "create \"D D\" d"}); }

  /// Runs the line and returns the groups. Checks undo and redo; undoes the line.
  std::string after(std::string_view line)
  {
    const auto before = groupsOf(m_session);
    run(m_session, {line});
    auto result = groupsOf(m_session);
    run(m_session, {"undo"});
    EXPECT_EQ(groupsOf(m_session), before) << line;
    run(m_session, {"redo"});
    EXPECT_EQ(groupsOf(m_session), result) << line;
    run(m_session, {"undo"});
    return result;
  }

  Session m_session = sessionOf({"a", "b", "c", "d"});
};

TEST_F(MoveGroup, PutsGroupsBeforeOrAfterAnother)
{
  EXPECT_EQ(after("move-group C --before A"), "C(c) A(a) B(b) D D(d)");
  EXPECT_EQ(after("move-group A --after \"D D\""), "B(b) C(c) D D(d) A(a)");
  EXPECT_EQ(after("move-group --before B \"D D\" A"), "D D(d) A(a) B(b) C(c)");
  EXPECT_EQ(after("move-group @4 @1 --after @2"), "B(b) D D(d) A(a) C(c)");
}

TEST_F(MoveGroup, GathersGroupsAroundATargetThatIsOneOfThem)
{
  EXPECT_EQ(after("move-group \"D D\" B A --before B"), "D D(d) B(b) A(a) C(c)");
  EXPECT_EQ(after("move-group C A --after C"), "B(b) C(c) A(a) D D(d)");
}

TEST_F(MoveGroup, SaysWhatItMoved)
{
  EXPECT_EQ(run(m_session, {"move-group A --after \"D D\""}), "Moved 1 group after \"D D\".");
  EXPECT_EQ(run(m_session, {"move-group C \"D D\" --before B"}), "Moved 2 groups before B.");
  EXPECT_EQ(run(m_session, {"undo"}), "Undone: Move Groups: C, \"D D\" → before B");
}

TEST_F(MoveGroup, IsSeenByShow)
{
  EXPECT_THAT(run(m_session, {"move-group C --before B", "show"}),
              HasSubstr("├─ A (1)\n│  └─ a\n├─ C (1)\n│  └─ c\n├─ B (1)\n│  └─ b\n├─ D D (1)\n"));
}

TEST_F(MoveGroup, HasNothingToDoIfGroupsAreInPlace)
{
  for (const auto* line : {"move-group A --before B", "move-group B C --after A",
                           "move-group A B C --before A", "move-group \"D D\" --after C"}) {
    EXPECT_EQ(run(m_session, {line}), "Nothing to move; this is the order already.") << line;
    EXPECT_EQ(m_session.editor.history().entries().size(), 4U) << line;
  }
}

TEST_F(MoveGroup, ChangesNothingWhenTheLineIsWrong)
{
  EXPECT_EQ(mistake(m_session, "move-group A"),
            "the place is missing; add --before TARGET or --after TARGET");
  EXPECT_EQ(mistake(m_session, "move-group A --before B --after C"),
            "more than one place is given; choose one of --before and --after");
  EXPECT_EQ(mistake(m_session, "move-group --after A"),
            "GROUP is missing; usage: move-group GROUP… --before TARGET | --after TARGET");
  EXPECT_EQ(mistake(m_session, "move-group A --after A"),
            "A cannot go beside itself; name another group after --after");
  EXPECT_EQ(mistake(m_session, "move-group A --before a"),
            "there is no group named a; did you mean A?");
  EXPECT_EQ(mistake(m_session, "move-group A A --before B"),
            "A is given twice; name each group once");
}

}
}
