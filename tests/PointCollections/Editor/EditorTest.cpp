// SPDX-License-Identifier: MIT
#include "PointCollections/Editor/Editor.h"

#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"
#include "PointCollections/Support/Documents.h"
#include "PointCollections/Support/MemoryFiles.h"

#include <gtest/gtest.h>

namespace Tarvik::PointCollections {
namespace {

using Risk = Editor::OverwriteRisk;

class Editing : public ::testing::Test {
protected:
  static void createGroup(Editor& editor, const std::string& name)
  {
    editor.history().execute(std::make_shared<CreateTKGroupCmd<GUIdentifier>>(
        editor.document(), std::vector<GUIdentifier>(), name));
  }

  std::string groupsIn(const std::filesystem::path& file)
  {
    return groupsOf(*openDocument(*m_files, file).document);
  }

  std::shared_ptr<MemoryFiles> m_files = std::make_shared<MemoryFiles>();
  Editor m_editor = Editor({documentOf({"a", "b"}), "test.csv"}, m_files);
};

TEST_F(Editing, StartsWithoutUnsavedChanges)
{
  EXPECT_FALSE(m_editor.hasUnsavedChanges());
  EXPECT_EQ(m_editor.projectFile(), "");
  EXPECT_EQ(summaryOf(m_editor), "test.csv: 2 elements with 2 points");
}

TEST_F(Editing, SavesWhatWasChanged)
{
  createGroup(m_editor, "G");
  EXPECT_TRUE(m_editor.hasUnsavedChanges());

  m_editor.save("folder/p.tkpc");

  EXPECT_FALSE(m_editor.hasUnsavedChanges());
  EXPECT_EQ(m_editor.projectFile(), "folder/p.tkpc");
  EXPECT_EQ(summaryOf(m_editor), "p.tkpc: 2 elements with 2 points in 1 group");
  EXPECT_EQ(groupsIn("folder/p.tkpc"), "G()");
}

TEST_F(Editing, ThatCannotBeSavedStaysUnsaved)
{
  createGroup(m_editor, "G");
  m_files->isFull = true;

  EXPECT_EQ(mistakeIn([&] { m_editor.save("p.tkpc"); }), "p.tkpc: the disk is full");

  EXPECT_TRUE(m_editor.hasUnsavedChanges());
  EXPECT_EQ(m_editor.title(), "test.csv");
  EXPECT_EQ(m_editor.projectFile(), "");
}

TEST_F(Editing, StartsANewHistoryWithAnotherDocument)
{
  m_editor.save("p.tkpc");
  createGroup(m_editor, "G");

  m_editor.replaceDocument(openDocument(*m_files, "p.tkpc"));

  EXPECT_EQ(groupsOf(*m_editor.document()), "");
  EXPECT_TRUE(m_editor.history().entries().empty());
  EXPECT_FALSE(m_editor.hasUnsavedChanges());
}

TEST_F(Editing, KnowsWhatSavingWouldOverwrite)
{
  m_files->contents["other.tkpc"] = "something else";
  m_editor.save("p.tkpc");

  EXPECT_EQ(m_editor.overwriteRisk("p.tkpc"), Risk::None);
  EXPECT_EQ(m_editor.overwriteRisk("folder/../p.tkpc"), Risk::None);
  EXPECT_EQ(m_editor.overwriteRisk("new.tkpc"), Risk::None);
  EXPECT_EQ(m_editor.overwriteRisk("other.tkpc"), Risk::OtherFile);

  Editor another(openDocument(*m_files, "p.tkpc"), m_files);
  createGroup(another, "H");
  another.save("p.tkpc");
  EXPECT_EQ(m_editor.overwriteRisk("p.tkpc"), Risk::OtherChanges);

  m_files->contents.erase("p.tkpc");
  EXPECT_EQ(m_editor.overwriteRisk("p.tkpc"), Risk::None);
}

TEST_F(Editing, ReadsNoMoreThanTheStartOfWhatIsNoProject)
{
  m_editor.save("p.tkpc");
  const auto project = m_files->contents["p.tkpc"];
  auto& content = m_files->contents["other.tkpc"];
  const auto mistake = [&] { return mistakeIn([&] { openDocument(*m_files, "other.tkpc"); }); };
  m_files->wholeReads = 0;

  content = std::string(1'000, '\0');
  EXPECT_EQ(mistake(),
            "other.tkpc, byte 0: expected the first 8 bytes of an archive, found others; "
            "it is no archive");
  content = "short";
  EXPECT_EQ(mistake(), "other.tkpc, byte 0: expected an archive of 28 to 4294967295 bytes, found 5 "
                       "bytes; it is no archive, or cut off");
  content = project + std::string(1'000'000, '\0');
  EXPECT_EQ(mistake(), "other.tkpc, byte 12: expected an archive of " +
                           std::to_string(project.size()) + " bytes, found " +
                           std::to_string(content.size()) + " bytes; it is cut off or damaged");
  EXPECT_EQ(m_files->wholeReads, 0);
}

TEST_F(Editing, KnowsAFileThatOthersHaveChangedByItsSize)
{
  m_editor.save("p.tkpc");
  m_files->wholeReads = 0;

  m_files->contents["p.tkpc"] += std::string(1'000'000, '\0');

  EXPECT_EQ(m_editor.overwriteRisk("p.tkpc"), Risk::OtherChanges);
  EXPECT_EQ(m_files->wholeReads, 0);
}

}
}
