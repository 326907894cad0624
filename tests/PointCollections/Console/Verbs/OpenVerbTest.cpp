// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Support/Questions.h"
#include "PointCollections/Console/Support/Sessions.h"
#include "PointCollections/Support/MemoryFiles.h"

#include <gmock/gmock.h>

namespace Tarvik::PointCollections {
namespace {

using ::testing::ElementsAre;
using ::testing::StartsWith;

class Open : public ::testing::Test {
protected:
  Open()
  {
    m_files->contents["points.csv"] = "collection,x,y,z\nc,1,2,3\nc,4,5,6\n";
    m_files->contents["bad.csv"] = "collection,x,y,z\nc,1,2\n";
    run(m_session, {"move b --before a", "create G b", "save p.tkpc"});
    auto& damaged = m_files->contents["bad.tkpc"] = m_files->contents["p.tkpc"];
    damaged[damaged.size() / 2] ^= 1;
  }

  /// The message for a line that is wrong, which must leave also the history as it was.
  std::string mistakeThatChangesNothing(const std::string& line)
  {
    const auto history = run(m_session, {"history"});
    auto message = mistake(m_session, line);
    EXPECT_EQ(run(m_session, {"history"}), history);
    return message;
  }

  std::shared_ptr<MemoryFiles> m_files = std::make_shared<MemoryFiles>();
  Session m_session = sessionOf({"a", "b"}, m_files);
};

TEST_F(Open, ReplacesTheDocumentWithAProject)
{
  run(m_session, {"open points.csv"});

  EXPECT_EQ(run(m_session, {"open p.tkpc"}), "Opened p.tkpc: 2 elements with 2 points in 1 group.");

  EXPECT_EQ(groupsOf(m_session), "G(b)");
  EXPECT_THAT(namesOf(*m_session.editor.document(), m_session.editor.document()->order()),
              ElementsAre("b", "a"));
  EXPECT_EQ(m_session.editor.title(), "p.tkpc");
  EXPECT_EQ(m_session.editor.projectFile(), "p.tkpc");
}

TEST_F(Open, ReplacesTheDocumentWithPoints)
{
  EXPECT_EQ(run(m_session, {"open points.csv"}), "Opened points.csv: 1 element with 2 points.");

  EXPECT_EQ(ungroupedOf(m_session), "c");
  EXPECT_EQ(mistake(m_session, "save"),
            "points.csv is not saved in a project file yet; usage: save FILE");
}

TEST_F(Open, StartsANewHistory)
{
  run(m_session, {"open points.csv"});

  EXPECT_EQ(run(m_session, {"history"}), "→   0  Start  (clean)");
  EXPECT_EQ(mistake(m_session, "undo"), "there is nothing to undo");
}

TEST_F(Open, StartsANewHistoryAfterStepsThatWereUndone)
{
  run(m_session, {"create H", "undo", "open points.csv"});
  EXPECT_EQ(run(m_session, {"history"}), "→   0  Start  (clean)");

  run(m_session, {"create H", "undo 1", "create I", "open --discard points.csv"});
  EXPECT_EQ(run(m_session, {"history"}), "→   0  Start  (clean)");
}

TEST_F(Open, ThatFailsChangesNothing)
{
  run(m_session, {"create H", "save", "undo", "redo"});

  EXPECT_THAT(mistakeThatChangesNothing("open bad.tkpc"), StartsWith("bad.tkpc, byte "));
  EXPECT_THAT(mistakeThatChangesNothing("open bad.csv"), StartsWith("bad.csv:2: "));
  EXPECT_EQ(mistakeThatChangesNothing("open none.tkpc"), "none.tkpc: there is no such file");
}

TEST_F(Open, ThatFailsKeepsUnsavedChanges)
{
  run(m_session, {"create H"});

  EXPECT_THAT(mistakeThatChangesNothing("open --discard bad.tkpc"), StartsWith("bad.tkpc, byte "));
}

TEST_F(Open, DiscardsNoChangesInAScript)
{
  run(m_session, {"create H"});

  EXPECT_EQ(mistakeThatChangesNothing("open points.csv"),
            "p.tkpc has unsaved changes; save them first, or add --discard to lose them");

  run(m_session, {"open points.csv --discard"});
  EXPECT_EQ(m_session.editor.title(), "points.csv");
}

TEST_F(Open, OpensItsOwnFileAgain)
{
  run(m_session, {"create H", "open p.tkpc --discard"});

  EXPECT_EQ(groupsOf(m_session), "G(b)");
}

TEST_F(Open, AsksWhatToDoWithUnsavedChanges)
{
  Questions questions(m_session, {"cancel", "discard"});
  run(m_session, {"create H"});

  EXPECT_EQ(run(m_session, {"open points.csv"}), "Nothing opened; p.tkpc stays open.");
  EXPECT_EQ(groupsOf(m_session), "G(b) H()");

  run(m_session, {"open points.csv"});
  EXPECT_EQ(m_session.editor.title(), "points.csv");
  const auto* question = "p.tkpc has unsaved changes. Type save, discard or cancel: ";
  EXPECT_THAT(questions.asked, ElementsAre(question, question));
}

TEST_F(Open, SavesChangesWhenTheUserSaysSo)
{
  Questions questions(m_session, {"save"});
  run(m_session, {"create H", "open points.csv", "open p.tkpc"});

  EXPECT_EQ(groupsOf(m_session), "G(b) H()");
}

TEST_F(Open, ReadsAgainWhenTheUserSavesInTheFileToOpen)
{
  Questions questions(m_session, {"save"});
  run(m_session, {"create H", "open p.tkpc"});

  EXPECT_EQ(groupsOf(m_session), "G(b) H()");
  run(m_session, {"create I", "save"});
  EXPECT_EQ(run(m_session, {"open p.tkpc"}),
            "Opened p.tkpc: 2 elements with 2 points in 3 groups.");
}

TEST_F(Open, AsksNothingWhenTheFileIsNotValid)
{
  Questions questions(m_session, {"save other.tkpc"});
  run(m_session, {"create H"});

  for (const auto* file : {"bad.csv", "bad.tkpc", "none.csv"})
    EXPECT_THAT(mistakeThatChangesNothing(std::string("open ") + file), StartsWith(file));

  EXPECT_THAT(questions.asked, ElementsAre());
  EXPECT_FALSE(m_session.editor.history().isClean());
}

TEST_F(Open, AsksNothingWithoutUnsavedChanges)
{
  Questions questions(m_session, {});
  run(m_session, {"create H", "undo", "open points.csv"});

  EXPECT_EQ(m_session.editor.title(), "points.csv");
}

TEST_F(Open, AsksAgainWhenItDoesNotUnderstand)
{
  Questions questions(m_session, {"", "  ", "yes", "\"", "  discard "});
  run(m_session, {"create H", "open points.csv"});

  EXPECT_EQ(m_session.editor.title(), "points.csv");
}

}
}
