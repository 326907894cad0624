// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Support/Sessions.h"

#include <gtest/gtest.h>

namespace Tarvik::PointCollections {
namespace {

class UndoAndRedo : public ::testing::Test {
protected:
  UndoAndRedo() { run(m_session, {"create G a", "add G b", "create H b"}); }

  Session m_session = sessionOf({"a", "b"});
};

TEST_F(UndoAndRedo, GoOneStepUnlessToldOtherwise)
{
  EXPECT_EQ(run(m_session, {"undo"}), "Undone: Create Group");
  EXPECT_EQ(groupsOf(m_session), "G(a b)");
  EXPECT_EQ(run(m_session, {"undo"}), "Undone: Add to Group");
  EXPECT_EQ(groupsOf(m_session), "G(a)");
  EXPECT_EQ(run(m_session, {"redo"}), "Redone: Add to Group");
  EXPECT_EQ(groupsOf(m_session), "G(a b)");
}

TEST_F(UndoAndRedo, KnowTheLastThousandSteps)
{
  for (int i = 0; i < 600; ++i)
    run(m_session, {"rename G F", "rename F G"});

  run(m_session, {"undo 1000"});

  EXPECT_EQ(mistake(m_session, "undo"), "there is nothing to undo");
  EXPECT_EQ(groupsOf(m_session), "G(a) H(b)");
}

TEST_F(UndoAndRedo, GoAsManyStepsAsAsked)
{
  EXPECT_EQ(run(m_session, {"undo 3"}),
            "Undone: Create Group\nUndone: Add to Group\nUndone: Create Group");
  EXPECT_EQ(groupsOf(m_session), "");
  EXPECT_EQ(run(m_session, {"redo 2"}), "Redone: Create Group\nRedone: Add to Group");
  EXPECT_EQ(groupsOf(m_session), "G(a b)");
}

TEST_F(UndoAndRedo, GoNowhereWhenThereAreFewerSteps)
{
  EXPECT_EQ(mistake(m_session, "undo 4"),
            "4 is more than there is to undo; expected a number from 1 to 3");
  EXPECT_EQ(mistake(m_session, "undo 99999999999999999999"),
            "99999999999999999999 is more than there is to undo; expected a number from 1 to 3");
  EXPECT_EQ(mistake(m_session, "redo"), "there is nothing to redo");
  EXPECT_EQ(mistake(m_session, "redo 2"), "there is nothing to redo");
  EXPECT_EQ(groupsOf(m_session), "G(a) H(b)");

  run(m_session, {"undo 3"});
  EXPECT_EQ(mistake(m_session, "undo"), "there is nothing to undo");
  EXPECT_EQ(mistake(m_session, "redo 18446744073709551615"),
            "18446744073709551615 is more than there is to redo; expected a number from 1 to 3");
}

TEST_F(UndoAndRedo, AskForANumber)
{
  for (const std::string wrong : {"0", "-1", "one", "1.5", "+1", "\"\"", "0x1"})
    EXPECT_NE(mistake(m_session, "undo " + wrong), "no mistake") << wrong;
  EXPECT_EQ(mistake(m_session, "undo one"),
            "the number of steps is one; expected a whole number from 1 up");
  EXPECT_EQ(mistake(m_session, "undo 1 2"), "2 is one argument too many; usage: undo [N]");
}

TEST_F(UndoAndRedo, HaveNothingToRedoAfterANewChange)
{
  run(m_session, {"undo 2", "create I"});

  EXPECT_EQ(mistake(m_session, "redo"), "there is nothing to redo");
  EXPECT_EQ(groupsOf(m_session), "G(a) I()");
}

TEST(History, MarksThePresentAndTheCleanState)
{
  auto session = sessionOf({"a"});
  EXPECT_EQ(run(session, {"history"}), "→   0  Start  (clean)");

  EXPECT_EQ(run(session, {"create G", "add G a", "create H", "undo", "history"}),
            "    0  Start  (clean)\n"
            "    1  Create Group\n"
            "→   2  Add to Group\n"
            "    3  Create Group  (undone)");

  session.editor.history().markClean();
  EXPECT_EQ(run(session, {"undo 2", "history"}), "→   0  Start\n"
                                                 "    1  Create Group  (undone)\n"
                                                 "    2  Add to Group  (undone)  (clean)\n"
                                                 "    3  Create Group  (undone)");
}

}
}
