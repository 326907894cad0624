// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Support/Sessions.h"
#include "PointCollections/Support/MemoryFiles.h"

#include <gmock/gmock.h>

namespace Tarvik::PointCollections {
namespace {

using ::testing::HasSubstr;

class Save : public ::testing::Test {
protected:
  /// The groups of a project file.
  std::string groupsIn(const std::string& file)
  {
    auto other = sessionOf({}, m_files);
    run(other, {"open " + file});
    return groupsOf(other);
  }

  std::shared_ptr<MemoryFiles> m_files = std::make_shared<MemoryFiles>();
  Session m_session = sessionOf({"a", "b"}, m_files);
};

TEST_F(Save, WritesAProjectFile)
{
  EXPECT_EQ(run(m_session, {"create G b a", "save p.tkpc"}),
            "Saved p.tkpc: 2 elements with 2 points in 1 group.");

  EXPECT_EQ(groupsIn("p.tkpc"), "G(b a)");
}

TEST_F(Save, MakesItTheFileOfTheDocument)
{
  run(m_session, {"save folder/p.tkpc", "create G", "save"});

  EXPECT_EQ(m_session.editor.title(), "p.tkpc");
  EXPECT_EQ(groupsIn("folder/p.tkpc"), "G()");
}

TEST_F(Save, NeedsANameTheFirstTime)
{
  EXPECT_EQ(mistake(m_session, "save"),
            "test.csv is not saved in a project file yet; usage: save FILE");
}

TEST_F(Save, NeedsTheNameOfAProject)
{
  for (const std::string name : {"p", "test.csv", "p.tkpc/", "\"\"", "\".tkpc\""})
    EXPECT_THAT(mistake(m_session, "save " + name), HasSubstr("expected one that ends in .tkpc"));
  EXPECT_EQ(mistake(m_session, "save test.csv"),
            "test.csv is not the name of a project file; expected one that ends in .tkpc");
}

TEST_F(Save, TakesNamesInQuotes)
{
  run(m_session, {"save \"Größe 都市.tkpc\""});

  EXPECT_TRUE(m_files->contents.contains("Größe 都市.tkpc"));
}

TEST_F(Save, DoesNotReplaceAnotherFileUnasked)
{
  m_files->contents["p.tkpc"] = "something else";

  EXPECT_EQ(mistake(m_session, "save p.tkpc"),
            "p.tkpc exists already; add --overwrite to replace it");
  EXPECT_EQ(m_files->contents["p.tkpc"], "something else");
  EXPECT_EQ(m_session.editor.title(), "test.csv");

  run(m_session, {"save p.tkpc --overwrite"});
  EXPECT_EQ(groupsIn("p.tkpc"), "");
}

TEST_F(Save, ReplacesItsOwnFileUnderAnyOfItsNames)
{
  run(m_session, {"save p.tkpc", "create G", "save folder/../p.tkpc", "create H", "save p.tkpc"});

  EXPECT_EQ(groupsIn("p.tkpc"), "G() H()");
}

TEST_F(Save, DoesNotReplaceWhatAnotherProgramHasSavedInItsFile)
{
  run(m_session, {"save p.tkpc", "create G"});
  auto other = sessionOf({}, m_files);
  run(other, {"open p.tkpc", "create H", "save"});

  EXPECT_EQ(mistake(m_session, "save"), "another program has changed p.tkpc; save under another "
                                        "name, or add --overwrite to replace it");
  EXPECT_EQ(groupsIn("p.tkpc"), "H()");

  run(m_session, {"save --overwrite", "create I", "save"});
  EXPECT_EQ(groupsIn("p.tkpc"), "G() I()");
}

TEST_F(Save, PassesTheWarningOnToTheUser)
{
  m_files->warning = "Beware.";

  EXPECT_EQ(run(m_session, {"save p.tkpc"}), "Saved p.tkpc: 2 elements with 2 points.\nBeware.");
}

TEST_F(Save, MakesItsFileAgainWhenItIsGone)
{
  run(m_session, {"save p.tkpc"});
  m_files->contents.clear();

  run(m_session, {"save"});
  EXPECT_EQ(groupsIn("p.tkpc"), "");
}

TEST_F(Save, LeavesTheOldFileAlone)
{
  run(m_session, {"save p.tkpc", "create G", "save q.tkpc", "create H", "save"});

  EXPECT_EQ(groupsIn("p.tkpc"), "");
  EXPECT_EQ(groupsIn("q.tkpc"), "G() H()");
}

TEST_F(Save, MarksTheStateAsClean)
{
  run(m_session, {"create G", "create H", "save p.tkpc"});
  EXPECT_TRUE(m_session.editor.history().isClean());
  EXPECT_THAT(run(m_session, {"history"}), HasSubstr("2  Create Group: H (0)  (clean)"));

  run(m_session, {"undo"});
  EXPECT_FALSE(m_session.editor.history().isClean());
  run(m_session, {"redo"});
  EXPECT_TRUE(m_session.editor.history().isClean());
}

TEST_F(Save, KeepsTheHistory)
{
  run(m_session, {"create G", "save p.tkpc", "undo"});

  EXPECT_EQ(groupsOf(m_session), "");
}

TEST_F(Save, ThatFailsChangesNothing)
{
  run(m_session, {"save p.tkpc", "create G"});
  m_files->isFull = true;

  EXPECT_EQ(mistake(m_session, "save"), "p.tkpc: the disk is full");
  EXPECT_EQ(mistake(m_session, "save q.tkpc"), "q.tkpc: the disk is full");

  EXPECT_FALSE(m_session.editor.history().isClean());
  EXPECT_EQ(m_session.editor.title(), "p.tkpc");
  EXPECT_EQ(m_session.editor.projectFile(), "p.tkpc");
  EXPECT_EQ(groupsIn("p.tkpc"), "");
}

}
}
