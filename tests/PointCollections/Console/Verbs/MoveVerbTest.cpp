// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Support/Sessions.h"

#include <gtest/gtest.h>

namespace Tarvik::PointCollections {
namespace {

class Move : public ::testing::Test {
protected:
  Move() { run(m_session, {"create G a c e", "create H g"}); }

  /// Runs the line and returns the groups and ungrouped elements. Checks undo and redo; undoes the
  /// line.
  std::string after(std::string_view line)
  {
    const auto before = state();
    run(m_session, {line});
    auto result = state();
    run(m_session, {"undo"});
    EXPECT_EQ(state(), before) << line;
    run(m_session, {"redo"});
    EXPECT_EQ(state(), result) << line;
    run(m_session, {"undo"});
    return result;
  }

  std::string state() const { return groupsOf(m_session) + ' ' + ungroupedOf(m_session); }

  Session m_session = sessionOf({"a", "b", "c", "d", "e", "f", "g", "two words"});
};

TEST_F(Move, PutsElementsIntoTheGroupOfTheTarget)
{
  EXPECT_EQ(after("move f b --before c"), "G(a f b c e) H(g) d two words");
  EXPECT_EQ(after("move f b --after c"), "G(a c f b e) H(g) d two words");
  EXPECT_EQ(after("move --after e g"), "G(a c e g) H() b d f two words");
  EXPECT_EQ(after("move e a --before g"), "G(c) H(e a g) b d f two words");
}

TEST_F(Move, MovesMembersWithinTheirGroup)
{
  EXPECT_EQ(after("move e --before a"), "G(e a c) H(g) b d f two words");
  EXPECT_EQ(after("move a c --after e"), "G(e a c) H(g) b d f two words");
}

TEST_F(Move, PlacesUngroupedElements)
{
  EXPECT_EQ(after("move f --before b"), "G(a c e) H(g) f b d two words");
  EXPECT_EQ(after("move b d --after \"two words\""), "G(a c e) H(g) f two words b d");
}

TEST_F(Move, TakesElementsOutOfTheirGroupsBesideAnUngroupedOne)
{
  EXPECT_EQ(after("move g a --before f"), "G(c e) H() b d g a f two words");
  EXPECT_EQ(after("move e f --after b"), "G(a c) H(g) b e f d two words");
}

TEST_F(Move, TakesElementsOutOfTheirGroupsEvenIfTheirPlaceStaysTheSame)
{
  EXPECT_EQ(after("move c --after b"), "G(a e) H(g) b c d f two words");
  EXPECT_EQ(after("move a --before b"), "G(c e) H(g) a b d f two words");
}

TEST_F(Move, GathersElementsAroundATargetThatIsOneOfThem)
{
  EXPECT_EQ(after("move e c g --before c"), "G(a e c g) H() b d f two words");
  EXPECT_EQ(after("move e c --after c"), "G(a e c) H(g) b d f two words");
  EXPECT_EQ(after("move f d a --before d"), "G(c e) H(g) b f d a two words");
  EXPECT_EQ(after("move a d --after d"), "G(c e) H(g) b a d f two words");
}

TEST_F(Move, SaysWhereElementsWentAndCameFrom)
{
  EXPECT_EQ(run(m_session, {"move g a b --before e"}),
            "Moved 3 elements before e in G (1 moved within it, 1 from H).");
  EXPECT_EQ(run(m_session, {"move d --after e"}), "Moved 1 element after e in G.");
  EXPECT_EQ(run(m_session, {"move g --before \"two words\""}),
            "Moved 1 element before \"two words\", which is ungrouped (1 from G).");
  EXPECT_EQ(run(m_session, {"move g --before f"}), "Moved 1 element before f, which is ungrouped.");
}

TEST_F(Move, IsOneStepOnAnyWayThroughTheHistory)
{
  const auto start = state();
  run(m_session, {"move a g --after f", "move f --before c", "move e --before b", "sort",
                  "remove c", "move c --before \"two words\""});
  const auto end = state();
  EXPECT_EQ(end, "G(f) H() e b d a g c two words");
  EXPECT_EQ(m_session.editor.history().entries().size(), 8U);

  m_session.editor.history().jumpTo(2);
  EXPECT_EQ(state(), start);
  m_session.editor.history().jumpTo(8);
  EXPECT_EQ(state(), end);
  m_session.editor.history().jumpTo(3);
  EXPECT_EQ(state(), "G(c e) H() b d f a g two words");
  EXPECT_EQ(run(m_session, {"redo"}), "Redone: Move Elements: f → before c");
  EXPECT_EQ(state(), "G(f c e) H() b d a g two words");
}

TEST_F(Move, HasNothingToDoIfElementsAreInPlace)
{
  run(m_session, {"move f d --after \"two words\""});

  for (const auto* line : {"move a --before c", "move c e --after a", "move a c --before a",
                           "move b --before \"two words\"", "move f d --after \"two words\""}) {
    EXPECT_EQ(run(m_session, {line}), "Nothing to move; this is the order already.") << line;
    EXPECT_EQ(m_session.editor.history().entries().size(), 3U) << line;
  }
}

TEST_F(Move, ChangesNothingWhenTheLineIsWrong)
{
  const auto before = state();

  EXPECT_EQ(mistake(m_session, "move a"),
            "the place is missing; add --before TARGET or --after TARGET");
  EXPECT_EQ(mistake(m_session, "move a --before c --after e"),
            "more than one place is given; choose one of --before and --after");
  EXPECT_EQ(mistake(m_session, "move a --before c --before e"),
            "--before is given twice; give it once");
  EXPECT_EQ(mistake(m_session, "move a --after"), "--after needs a value; expected --after TARGET");
  EXPECT_EQ(mistake(m_session, "move --after a"),
            "ELEMENT is missing; usage: move ELEMENT… --before TARGET | --after TARGET");
  EXPECT_EQ(mistake(m_session, "move a --after a"),
            "a cannot go beside itself; name another element after --after");
  EXPECT_EQ(mistake(m_session, "move b --before b"),
            "b cannot go beside itself; name another element after --before");
  EXPECT_EQ(mistake(m_session, "move a --after two words"),
            "there is no element named two; did you mean \"two words\"?");
  EXPECT_EQ(mistake(m_session, "move two words --after a"),
            "a name with blanks needs quotes; write \"two words\"");
  EXPECT_EQ(mistake(m_session, "move a a --after b"), "a is given twice; name each element once");
  EXPECT_EQ(mistake(m_session, "move a --behind b"),
            "move has no option --behind; usage: move ELEMENT… --before TARGET | --after TARGET");
  EXPECT_EQ(state(), before);
  EXPECT_EQ(m_session.editor.history().entries().size(), 2U);
}

}
}
