// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Support/Sessions.h"

#include "Translator/Translator.h"

#include <gmock/gmock.h>

namespace Tarvik::PointCollections {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;

class UndoAndRedo : public ::testing::Test {
protected:
  UndoAndRedo() { run(m_session, {"create G a", "add G b", "create H b"}); }

  Session m_session = sessionOf({"a", "b"});
};

TEST_F(UndoAndRedo, GoOneStepUnlessToldOtherwise)
{
  EXPECT_EQ(run(m_session, {"undo"}), "Undone: Create Group: H (1)");
  EXPECT_EQ(groupsOf(m_session), "G(a b)");
  EXPECT_EQ(run(m_session, {"undo"}), "Undone: Add to Group: b → G");
  EXPECT_EQ(groupsOf(m_session), "G(a)");
  EXPECT_EQ(run(m_session, {"redo"}), "Redone: Add to Group: b → G");
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
  EXPECT_EQ(
      run(m_session, {"undo 3"}),
      "Undone: Create Group: H (1)\nUndone: Add to Group: b → G\nUndone: Create Group: G (1)");
  EXPECT_EQ(groupsOf(m_session), "");
  EXPECT_EQ(run(m_session, {"redo 2"}), "Redone: Create Group: G (1)\nRedone: Add to Group: b → G");
  EXPECT_EQ(groupsOf(m_session), "G(a b)");
}

TEST_F(UndoAndRedo, SummariseManySteps)
{
  run(m_session, {"create I", "create J", "create K"});

  EXPECT_EQ(run(m_session, {"undo 6"}),
            "Undone 6 steps, from “Create Group: K (0)” to “Create Group: G (1)”.");
  EXPECT_EQ(run(m_session, {"redo 6"}),
            "Redone 6 steps, from “Create Group: G (1)” to “Create Group: K (0)”.");
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
            "    1  Create Group: G (0)\n"
            "→   2  Add to Group: a → G\n"
            "    3  Create Group: H (0)  (undone)\n"
            "The steps take less than 1 % of 256M bytes.");

  session.editor.history().markClean();
  EXPECT_EQ(run(session, {"undo 2", "history"}), "→   0  Start\n"
                                                 "    1  Create Group: G (0)  (undone)\n"
                                                 "    2  Add to Group: a → G  (undone)  (clean)\n"
                                                 "    3  Create Group: H (0)  (undone)\n"
                                                 "The steps take less than 1 % of 256M bytes.");
}

TEST(History, ListsAFewStepsIfAsked)
{
  auto session = sessionOf({"a"});
  run(session, {"create A", "create B", "create C", "create D", "create E", "create F", "undo 3"});

  EXPECT_EQ(run(session, {"history 2"}), "       … 1 earlier step not shown\n"
                                         "    2  Create Group: B (0)\n"
                                         "→   3  Create Group: C (0)\n"
                                         "    4  Create Group: D (0)  (undone)\n"
                                         "    5  Create Group: E (0)  (undone)\n"
                                         "       … 1 later step not shown\n"
                                         "The steps take less than 1 % of 256M bytes.");
  EXPECT_EQ(run(session, {"history 99999999999999999999"}), run(session, {"history"}));
  EXPECT_EQ(mistake(session, "history 0"),
            "the number of steps is 0; expected a whole number from 1 up");
}

TEST(History, WritesJson)
{
  auto session = sessionOf({"a"});
  run(session, {"create G", "create \"\\\"\"", "undo"});

  EXPECT_EQ(run(session, {"history --json"}),
            R"({"position":1,"clean":0,"forgotten":0,"steps":[)"
            R"~({"number":1,"description":"Create Group: G (0)","undone":false},)~"
            R"~({"number":2,"description":"Create Group: \"\\\"\" (0)","undone":true}]})~");
}

TEST(History, SaysWhatItHasForgotten)
{
  auto session = sessionOf({"a"});
  run(session, {"create F", "create G", "create H"});

  session.editor.setHistoryBudget(0);
  EXPECT_EQ(run(session, {"add H a", "history"}), "    0  (3 older steps forgotten)\n"
                                                  "→   1  Add to Group: a → H\n"
                                                  "Only the last step is kept.");
}

TEST(History, NamesWhatEachStepWasDoneTo)
{
  auto session = sessionOf({"a", "b", "c d", "e"});
  run(session, {"create G",
                "create \"\" a \"c d\"",
                "add G a",
                "add G b e",
                "move a b --after \"c d\"",
                "remove b",
                "rename G I",
                "sort",
                "move-group I --before Group",
                "create 1",
                "create 2",
                "create 3",
                "delete 1 2",
                "delete 3 I Group",
                "create X",
                "undo",
                "create 4",
                "create 5",
                "create 6",
                "create 7",
                "delete 4 5 6 7"});

  EXPECT_THAT(run(session, {"history"}),
              AllOf(HasSubstr(" 2  Create Group: Group (2)\n"), HasSubstr("Add to Group: a → G\n"),
                    HasSubstr("Add to Group: 2 elements → G\n"),
                    HasSubstr("Move Elements: 2 elements → after \"c d\"\n"),
                    HasSubstr("Remove Point Collection(s) From Group: b\n"),
                    HasSubstr("Rename Group: G → I\n"), HasSubstr("Sort Groups\n"),
                    HasSubstr("Move Groups: I → before Group\n"), HasSubstr("Remove Group: 1, 2\n"),
                    HasSubstr("Remove Group: 3, I, Group\n"),
                    HasSubstr("Remove Group: 4 groups\n")));
}

/// Translates all texts until it is destroyed.
class EveryTextTranslated {
public:
  EveryTextTranslated()
  {
    Translator::installCatalogue([](const char* context, const char* text, const char*, int) {
      return std::string(context) + '/' + text;
    });
  }
  EveryTextTranslated(const EveryTextTranslated&) = delete;
  EveryTextTranslated& operator=(const EveryTextTranslated&) = delete;
  ~EveryTextTranslated() { Translator::installCatalogue({}); }
};

TEST(History, FollowsAChangeOfLanguage)
{
  auto session = sessionOf({"a", "b"});
  run(session, {"create G a b", "create H", "add G b --at 1", "move a --before b", "rename G I",
                "move-group H --before I", "remove a", "sort", "create J", "delete H"});

  const EveryTextTranslated translated;

  EXPECT_THAT(run(session, {"history"}),
              AllOf(HasSubstr("CreateTKGroupCmd/Create Group: G (2)\n"),
                    HasSubstr("AddToTKGroupCmd/Add to Group: b → G\n"),
                    HasSubstr("MoveTKGroupElementsCmd/Move Elements: a → before b\n"),
                    HasSubstr("RenameTKGroupCmd/Rename Group: G → I\n"),
                    HasSubstr("MoveTKGroupsCmd/Move Groups: H → before I\n"),
                    HasSubstr("RemoveFromTKGroupCmd/Remove Point Collection(s) From Group: a\n"),
                    HasSubstr("RemoveTKGroupsCmd/Remove Group: H (0)\n")));
}

}
}
