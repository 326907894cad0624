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

}
}
