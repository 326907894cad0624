// SPDX-License-Identifier: MIT
#include "PointCollections/Editor/Editor.h"

#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/MoveTKGroupElementsCmd.h"
#include "HighLevelServices/GroupCommands/SortTKGroupsAlphabeticallyCmd.h"
#include "PointCollections/Editor/Saving.h"
#include "PointCollections/Project/ProjectFile.h"
#include "PointCollections/Support/Documents.h"
#include "PointCollections/Support/Edits.h"
#include "PointCollections/Support/MemoryFiles.h"
#include "Support/Allocations.h"

#include <gtest/gtest.h>

#include <exception>
#include <functional>
#include <new>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace Tarvik::PointCollections {
namespace {

using Risk = Editor::OverwriteRisk;

class Editing : public ::testing::Test {
protected:
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

TEST_F(Editing, IsSavedInThreeStepsByAnotherThread)
{
  createGroup(m_editor, "G");
  Cancellation cancellation;
  std::optional<Editor::SaveResult> result;

  const auto saving = m_editor.beginSave("p.tkpc", false);
  std::thread([&] { result = saving->write(cancellation); }).join();
  EXPECT_TRUE(m_editor.hasUnsavedChanges()) << "until the editor takes note";
  m_editor.finishSave(*saving);

  ASSERT_TRUE(result);
  EXPECT_EQ(result->risk, Risk::None);
  EXPECT_FALSE(m_editor.hasUnsavedChanges());
  EXPECT_EQ(m_editor.projectFile(), "p.tkpc");
  EXPECT_EQ(m_editor.overwriteRisk("p.tkpc"), Risk::None);
  EXPECT_EQ(groupsIn("p.tkpc"), "G()");
}

TEST_F(Editing, StaysUnsavedIfItGoesOnWhileItIsSaved)
{
  createGroup(m_editor, "Saved");
  Cancellation cancellation;
  const auto saving = m_editor.beginSave("p.tkpc", false);
  createGroup(m_editor, "Later");
  saving->write(cancellation);

  m_editor.finishSave(*saving);

  EXPECT_TRUE(m_editor.hasUnsavedChanges());
  EXPECT_EQ(groupsIn("p.tkpc"), "Saved()");
  m_editor.history().undo();
  m_editor.history().undo();
  EXPECT_TRUE(m_editor.hasUnsavedChanges()) << "the file has a group now";
}

TEST_F(Editing, IsNotSavedIfThatIsCancelled)
{
  createGroup(m_editor, "G");
  Cancellation cancellation;
  cancellation.cancel();

  EXPECT_FALSE(m_editor.beginSave("p.tkpc", false)->write(cancellation));

  EXPECT_TRUE(m_files->contents.empty());
}

TEST_F(Editing, IsNotSavedOverTheFileOfOthersUnlessTheUserAgrees)
{
  m_files->contents["p.tkpc"] = "other";
  createGroup(m_editor, "G");
  Cancellation cancellation;

  const auto refused = m_editor.beginSave("p.tkpc", false)->write(cancellation);
  ASSERT_TRUE(refused);
  EXPECT_EQ(refused->risk, Risk::OtherFile);
  EXPECT_EQ(m_files->contents["p.tkpc"], "other");

  EXPECT_TRUE(m_editor.beginSave("p.tkpc", true)->write(cancellation));
  EXPECT_EQ(groupsIn("p.tkpc"), "G()");
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

TEST_F(Editing, IsSavedOnlyIfThatIsSafe)
{
  m_files->contents["p.tkpc"] = "something else";

  EXPECT_EQ(m_editor.saveIfSafe("p.tkpc").risk, Risk::OtherFile);
  EXPECT_EQ(m_files->contents["p.tkpc"], "something else");
  EXPECT_EQ(m_editor.projectFile(), "");

  EXPECT_EQ(m_editor.saveIfSafe("q.tkpc").risk, Risk::None);
  EXPECT_EQ(m_editor.projectFile(), "q.tkpc");
}

TEST_F(Editing, WaitsForNoOtherProgramThatSavesInTheSameFile)
{
  m_files->isBeingSaved = true;

  for (const auto& mistake : {mistakeIn([&] { m_editor.save("p.tkpc"); }),
                              mistakeIn([&] { m_editor.saveIfSafe("p.tkpc"); })})
    EXPECT_EQ(mistake, "p.tkpc: process 7 saves in this file; try again");
  EXPECT_TRUE(m_files->contents.empty());
}

TEST_F(Editing, TellsWhatIsUncertainAboutASavedFile)
{
  m_files->warning = "Beware.";
  createGroup(m_editor, "G");

  EXPECT_EQ(m_editor.save("p.tkpc").warning, "Beware.");

  EXPECT_FALSE(m_editor.hasUnsavedChanges());
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

bool sortGroups(Editor& editor)
{
  return editor.execute({.context = "SortTKGroupsAlphabeticallyCmd",
                         .text = "Sort Groups",
                         .makeCommand = [](auto provider) {
                           return std::make_shared<SortTKGroupsAlphabeticallyCmd<GUIdentifier>>(
                               provider);
                         }});
}

TEST_F(Editing, KeepsNoStepThatChangedNothing)
{
  createGroup(m_editor, "G");
  m_editor.save("p.tkpc");

  EXPECT_FALSE(sortGroups(m_editor));

  EXPECT_EQ(m_editor.history().entries().size(), 1U);
  EXPECT_FALSE(m_editor.hasUnsavedChanges());
  createGroup(m_editor, "A");
  EXPECT_TRUE(sortGroups(m_editor));
  EXPECT_TRUE(m_editor.hasUnsavedChanges());
}

TEST_F(Editing, KeepsSmallStepsOfALargeDocument)
{
  std::vector<PointCollection> elements;
  for (int i = 0; i < 10000; ++i)
    elements.push_back({.id = GUIdentifier(), .name = std::to_string(i), .points = {}});
  Editor editor({PointDocument::create(elements), "large"}, m_files);
  TKGroup<GUIdentifier> all("all");
  all.addGroupMembersAtIndex(editor.document()->order(), -1);
  editor.document()->setGroups({all});

  for (int i = 0; i < 10; ++i)
    createGroup(editor, "G");

  EXPECT_EQ(editor.history().entries().size(), 10U);
  EXPECT_LT(editor.history().sizeInBytes(), 20000U);
}

TEST_F(Editing, ForgetsTheOldestStepsBeyondItsBudget)
{
  for (const auto* name : {"A", "B", "C", "D"})
    createGroup(m_editor, name);
  EXPECT_EQ(m_editor.forgottenSteps(), 0U);

  m_editor.setHistoryBudget(m_editor.history().sizeInBytes() / 2);
  createGroup(m_editor, "E");

  EXPECT_EQ(m_editor.history().entries().size() + m_editor.forgottenSteps(), 5U);
  EXPECT_GE(m_editor.forgottenSteps(), 3U);
  EXPECT_EQ(m_editor.takeStepsForgottenInNeed(), 0U);
  m_editor.replaceDocument({documentOf({"a"}), "other"});
  EXPECT_EQ(m_editor.forgottenSteps(), 0U);
}

TEST_F(Editing, ForgetsStepsAndTriesAgainWhenMemoryIsShort)
{
  std::size_t times = 0;
  bool hasFailed = true;
  for (std::size_t failing = 0; hasFailed; ++failing) {
    Editor editor({documentOf({"a", "b"}), "test.csv"}, m_files);
    for (const auto* name : {"A", "B", "C", "D"})
      createGroup(editor, name);
    std::string result = "A() B() C() D() E()";
    try {
      const AllocationWatch watch(failing);
      createGroup(editor, "E");
    } catch (const std::bad_alloc&) {
      result = "A() B() C() D()";
    }
    hasFailed = AllocationWatch::hasFailed();
    EXPECT_EQ(groupsOf(*editor.document()), result) << failing;
    const auto forgotten = editor.takeStepsForgottenInNeed();
    times += forgotten > 0 ? 1 : 0;
    EXPECT_EQ(editor.forgottenSteps(), forgotten) << failing;
    while (editor.history().undo()) {
    }
    while (editor.history().redo()) {
    }
    EXPECT_EQ(groupsOf(*editor.document()), result) << failing;
  }
  EXPECT_GT(times, 5U);
}

/// Makes the element ungrouped, after another one: this changes the groups and the order.
void moveOutOfGroup(Editor& editor, const GUIdentifier& element, const GUIdentifier& target)
{
  editor.execute({.context = "MoveTKGroupElementsCmd",
                  .text = "Move Elements",
                  .makeCommand =
                      [&](auto provider) {
                        return std::make_shared<MoveTKGroupElementsCmd<GUIdentifier>>(
                            provider, std::vector{element}, target, false);
                      },
                  .bytesOfDocument = 1});
}

TEST_F(Editing, ChangesGroupsAndOrderOrNeitherWhenReversingFailsAsWell)
{
  const auto document = documentOf({"a", "b", "c"});
  const auto ids = document->order();
  TKGroup<GUIdentifier> group("G");
  group.addGroupMember(ids[0]);
  using Action = std::function<void(Editor&)>;
  const Action move = [&](Editor& editor) { moveOutOfGroup(editor, ids[0], ids[1]); };
  const Action undo = [](Editor& editor) { editor.history().undo(); };
  const Action redo = [](Editor& editor) { editor.history().redo(); };

  for (const auto& actions : {std::vector{move}, {move, undo}, {move, undo, redo}}) {
    bool hasFailed = true;
    for (std::size_t failing = 0; hasFailed; ++failing) {
      document->setOrder(ids);
      document->setGroups({group});
      Editor editor({document, "test.csv"}, m_files);
      for (std::size_t i = 0; i + 1 < actions.size(); ++i)
        actions[i](editor);
      const auto before = groupsOf(*document) + ' ' + ungroupedOf(*document);
      try {
        const AllocationWatch watch(failing, 2);
        actions.back()(editor);
      } catch (const std::exception&) {
        EXPECT_EQ(groupsOf(*document) + ' ' + ungroupedOf(*document), before)
            << actions.size() << " actions, " << failing;
      }
      hasFailed = AllocationWatch::hasFailed();
    }
    const bool isMoved = actions.size() != 2;
    EXPECT_EQ(groupsOf(*document) + ' ' + ungroupedOf(*document),
              isMoved ? "G() b a c" : "G(a) b c");
  }
}

TEST_F(Editing, CanAlwaysBeSaved)
{
  const std::filesystem::path file = "p.tkpc"; // making a path takes memory on Windows
  bool hasFailed = true;
  for (std::size_t failing = 0; hasFailed; ++failing) {
    Editor editor({documentOf({"a", "b"}), "test.csv"}, m_files);
    createGroup(editor, "A");
    createGroup(editor, "B");
    {
      const AllocationWatch watch(failing);
      editor.save(file);
      EXPECT_EQ(editor.overwriteRisk(file), Risk::None);
    }
    hasFailed = AllocationWatch::hasFailed();
    EXPECT_FALSE(editor.hasUnsavedChanges());
    EXPECT_EQ(groupsIn("p.tkpc"), "A() B()") << failing;
  }
}

TEST_F(Editing, HoldsEnoughInReserveToSaveItself)
{
  std::vector<PointCollection> elements;
  for (int i = 0; i < 1000; ++i)
    elements.push_back({.id = GUIdentifier(),
                        .name = std::string(100, 'x') + std::to_string(i),
                        .points = std::vector<Point>(static_cast<std::size_t>(i % 5))});
  const auto document = PointDocument::create(elements);
  std::vector<TKGroup<GUIdentifier>> groups(100);
  for (auto& group : groups)
    group.addGroupMembersAtIndex(document->order(), -1);
  document->setGroups(groups);

  const auto estimated = savedSizeOfElements(*document) + savedSizeOfGroups(*document);
  const auto saved = saveProject(*document).size();

  EXPECT_LE(saved, estimated);
  EXPECT_GE(saved, estimated / 2);
}

}
}
