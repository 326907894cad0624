// SPDX-License-Identifier: MIT
#include "PointCollections/Recovery/Recovery.h"

#include "PointCollections/Support/Documents.h"
#include "PointCollections/Support/Edits.h"
#include "PointCollections/Support/Files.h"
#include "PointCollections/Support/Language.h"
#include "PointCollections/Text/Interruption.h"
#include "PointCollections/Text/Utf8.h"

#include <gmock/gmock.h>

#include <fstream>

namespace Tarvik::PointCollections {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

using FileSince = UnsavedWork::FileSince;

/// A program that edits a project, with its recovery. The clock is the test's.
struct EditingProgram {
  EditingProgram(const fs::path& file, const fs::path& state)
      : editor(openDocument(*diskFiles(), file)), recovery(editor, state)
  {}

  void change(const std::string& group)
  {
    createGroup(editor, group);
    recovery.changed(now);
  }

  /// Lets the time pass, in which the user does nothing.
  void rest(Recovery::Clock::duration time)
  {
    now += time;
    recovery.pause(now);
  }

  Editor editor;
  Recovery recovery;
  Recovery::Time now = Recovery::Clock::now();
};

class RecoveryOf : public ::testing::Test {
protected:
  RecoveryOf()
  {
    fs::create_directory(m_folder.path() / "work");
    Editor({documentOf({"a", "b"}), "test"}).save(m_project);
    m_folder.write("work/points.csv", "collection,x,y,z\na,1,2,3\n");
  }

  /// A program makes the group G and ends without saving.
  void leaveUnsaved(const fs::path& file) const
  {
    EditingProgram program(file, m_state);
    program.change("G");
    program.recovery.keep(program.now);
  }

  /// What a program finds that starts now: the groups of each work.
  std::vector<std::string> foundFor(const fs::path& file) const
  {
    std::vector<std::string> groups;
    for (const auto& work : find(file).works)
      groups.push_back(groupsOf(*work.record.opened.document));
    return groups;
  }

  FoundWork find(const fs::path& file) const
  {
    return findUnsavedWork(*diskFiles(), file, m_state);
  }

  std::size_t filesIn(const fs::path& folder) const { return diskFiles()->namesIn(folder).size(); }

  TemporaryFolder m_folder;
  fs::path m_state = m_folder.path() / "state" / "programs";
  fs::path m_project = m_folder.path() / "work" / "p.tkpc";
  fs::path m_points = m_folder.path() / "work" / "points.csv";
};

TEST_F(RecoveryOf, AProjectIsWrittenAfterARest)
{
  {
    EditingProgram program(m_project, m_state);
    program.change("G");
    EXPECT_EQ(program.recovery.dueTime(), program.now + Recovery::rest);
    program.rest(Recovery::rest - 1ms);
    EXPECT_EQ(filesIn(m_project.parent_path()), 2U) << "too early";

    program.rest(1ms);
    EXPECT_EQ(program.recovery.dueTime(), std::nullopt);
  }

  EXPECT_THAT(foundFor(m_project), ::testing::ElementsAre("G()"));
  EXPECT_FALSE(fs::exists(m_state));
}

TEST_F(RecoveryOf, ADocumentWithoutAProjectIsInTheStateFolder)
{
  {
    EditingProgram program(m_points, m_state);
    program.change("G");
    program.rest(1min);
    EXPECT_EQ(filesIn(m_points.parent_path()), 2U);
  }

  EXPECT_THAT(foundFor(m_points), ::testing::ElementsAre("G()"));
  EXPECT_THAT(foundFor(m_project), IsEmpty()) << "it belongs to another file";
}

TEST_F(RecoveryOf, ABusyUserIsWrittenAllTheSame)
{
  EditingProgram program(m_project, m_state);
  const auto start = program.now;
  for (int i = 0; i < 30 && filesIn(m_project.parent_path()) == 2; ++i) {
    program.change("G");
    program.rest(1s);
  }

  EXPECT_EQ(program.now - start, Recovery::longestDelay);
}

TEST_F(RecoveryOf, ChangesThatFollowEachOtherIsWrittenEveryFewSecondsAtMost)
{
  EditingProgram program(m_project, m_state);
  program.change("G");
  program.rest(Recovery::rest);
  const auto written = program.now;

  program.change("H");

  EXPECT_GE(*program.recovery.dueTime(), written + Recovery::shortestInterval);
}

TEST_F(RecoveryOf, WhatWasSavedIsRemoved)
{
  EditingProgram program(m_project, m_state);
  program.change("G");
  program.rest(1min);
  EXPECT_EQ(filesIn(m_project.parent_path()), 4U) << "project, points, recovery file and its lock";

  program.editor.save(m_project);
  program.recovery.changed(program.now);

  EXPECT_EQ(filesIn(m_project.parent_path()), 2U);
  EXPECT_EQ(program.recovery.dueTime(), std::nullopt);
}

TEST_F(RecoveryOf, WhatWasUndoneIsRemoved)
{
  EditingProgram program(m_project, m_state);
  program.change("G");
  program.rest(1min);

  program.editor.history().undo();
  program.recovery.changed(program.now);

  EXPECT_EQ(filesIn(m_project.parent_path()), 2U);
}

TEST_F(RecoveryOf, WhatTheUserDiscardedIsRemoved)
{
  EditingProgram program(m_project, m_state);
  program.change("G");
  program.rest(1min);

  program.recovery.clear();

  EXPECT_EQ(filesIn(m_project.parent_path()), 2U);
}

TEST_F(RecoveryOf, AProgramThatMustEndIsWrittenAtOnce)
{
  {
    EditingProgram program(m_project, m_state);
    EXPECT_TRUE(program.recovery.keep(program.now));
    EXPECT_EQ(filesIn(m_project.parent_path()), 2U) << "there was nothing to keep";
    program.change("G");
    EXPECT_TRUE(program.recovery.keep(program.now));
  }

  EXPECT_THAT(foundFor(m_project), ::testing::ElementsAre("G()"));
}

TEST_F(RecoveryOf, AProgramThatStillRunsIsNotFound)
{
  EditingProgram program(m_project, m_state);
  program.change("G");
  program.rest(1min);

  EXPECT_THAT(foundFor(m_project), IsEmpty());
}

TEST_F(RecoveryOf, TwoProgramsWithTheSameFileIsKeptForBoth)
{
  {
    EditingProgram one(m_project, m_state);
    EditingProgram other(m_project, m_state);
    one.change("G");
    one.rest(1min);
    other.change("H");
    other.rest(1min);
    one.recovery.clear();
    one.change("I");
    one.rest(1min);
  }

  EXPECT_THAT(foundFor(m_project), ::testing::UnorderedElementsAre("H()", "G() I()"));
}

TEST_F(RecoveryOf, AProgramIsOfferedToOneOtherOnly)
{
  {
    EditingProgram program(m_project, m_state);
    program.change("G");
    program.rest(1min);
  }
  const auto first = find(m_project);

  EXPECT_THAT(first.works, SizeIs(1));
  EXPECT_THAT(foundFor(m_project), IsEmpty());
}

TEST_F(RecoveryOf, WhatIsLeftForLaterIsFoundAgain)
{
  {
    EditingProgram program(m_project, m_state);
    program.change("G");
    program.rest(1min);
  }

  for (int i = 0; i < 3; ++i)
    EXPECT_THAT(foundFor(m_project), ::testing::ElementsAre("G()"));
}

TEST_F(RecoveryOf, WhatWasRecoveredIsKeptUntilItIsSaved)
{
  {
    EditingProgram program(m_project, m_state);
    program.change("G");
    program.rest(1min);
  }
  {
    EditingProgram program(m_project, m_state);
    auto found = find(m_project);
    ASSERT_THAT(found.works, SizeIs(1));
    program.editor.replaceWithUnsaved(found.works[0].record.opened);
    program.recovery.adopt(std::move(found.works[0]));
    EXPECT_TRUE(program.editor.hasUnsavedChanges());
    EXPECT_EQ(program.editor.projectFile(), m_project);
  } // and crashes again
  EXPECT_THAT(foundFor(m_project), ::testing::ElementsAre("G()"));

  EditingProgram program(m_project, m_state);
  auto found = find(m_project);
  ASSERT_THAT(found.works, SizeIs(1));
  program.editor.replaceWithUnsaved(found.works[0].record.opened);
  program.recovery.adopt(std::move(found.works[0]));
  EXPECT_EQ(program.editor.saveIfSafe(m_project).risk, Editor::OverwriteRisk::None);
  program.recovery.changed(program.now);

  EXPECT_EQ(filesIn(m_project.parent_path()), 2U);
  EXPECT_EQ(groupsOf(*openDocument(*diskFiles(), m_project).document), "G()");
}

TEST_F(RecoveryOf, AFileThatWasChangedSinceSaysSo)
{
  {
    EditingProgram program(m_project, m_state);
    program.change("G");
    program.rest(1min);
  }
  EXPECT_EQ(find(m_project).works.at(0).fileSince, FileSince::Same);
  {
    Editor other(openDocument(*diskFiles(), m_project));
    createGroup(other, "H");
    other.save(m_project);
  }

  auto changed = find(m_project);
  EXPECT_EQ(changed.works.at(0).fileSince, FileSince::Changed);
  EXPECT_THAT(summaryOf(changed.works[0]),
              ::testing::EndsWith("; the file has been changed since"));

  Editor editor(openDocument(*diskFiles(), m_project));
  editor.replaceWithUnsaved(changed.works[0].record.opened);
  EXPECT_EQ(editor.overwriteRisk(m_project), Editor::OverwriteRisk::OtherChanges);
}

TEST_F(RecoveryOf, AFileThatIsGoneSaysSo)
{
  {
    EditingProgram program(m_project, m_state);
    program.change("G");
    program.rest(1min);
  }
  fs::remove(m_project);

  EXPECT_THAT(summaryOf(find(m_project).works.at(0)),
              ::testing::MatchesRegex("2 elements with 2 points in 1 group, written on "
                                      "....-..-.. at ..:..:..; the file has been removed "
                                      "since"));
}

TEST_F(RecoveryOf, AFileTellsItsTimeInTheOrderOfTheLanguage)
{
  leaveUnsaved(m_project);
  const Language language({{"{0}, written on {1:%Y-%m-%d at %H:%M:%S}",
                            "am {1:%d.%m.%Y um %H:%M} Uhr geschrieben: {0}"},
                           {"{} with {} in {}", "{2}; {0}; {1}"}});

  EXPECT_THAT(summaryOf(find(m_project).works.at(0)),
              ::testing::MatchesRegex("am ..\\...\\..... um ..:.. Uhr geschrieben: 1 group; 2 "
                                      "elements; 2 points"));
}

TEST_F(RecoveryOf, AProjectIsSavedWhereTheUserHasFoundIt)
{
  const auto folderBefore = fs::current_path();
  fs::current_path(m_project.parent_path());
  leaveUnsaved(m_project.filename());
  fs::current_path(folderBefore);

  const auto asTyped = find(m_project);
  ASSERT_EQ(asTyped.works.size(), 1U);
  EXPECT_EQ(asTyped.works[0].fileSince, FileSince::Same);
  EXPECT_EQ(asTyped.works[0].record.opened.projectFile, m_project);
  EXPECT_EQ(asTyped.works[0].record.opened.file, m_project);
}

TEST_F(RecoveryOf, AProjectIsMovedWithIt)
{
  leaveUnsaved(m_project);
  fs::rename(m_project.parent_path(), m_folder.path() / "elsewhere");

  const auto moved = m_folder.path() / "elsewhere" / "p.tkpc";
  const auto found = find(moved);
  ASSERT_EQ(found.works.size(), 1U);
  EXPECT_EQ(found.works[0].fileSince, FileSince::Same);
  EXPECT_EQ(found.works[0].record.opened.projectFile, moved);
}

TEST_F(RecoveryOf, AProgramThatIsToldToStopIsWrittenAllTheSame)
{
  {
    EditingProgram program(m_project, m_state);
    program.change("G");
    const Interruptible work;
    Interruptible::request();

    EXPECT_TRUE(program.recovery.keep(program.now));
    EXPECT_TRUE(Interruptible::isRequested()) << "the work itself still stops";
  }

  EXPECT_THAT(foundFor(m_project), ::testing::ElementsAre("G()"));
}

#if !defined(_WIN32) // names of files do not ignore upper and lower case
TEST_F(RecoveryOf, AProjectIsNotOfferedForOneWithAlmostTheSameName)
{
  const auto other = m_project.parent_path() / "P.tkpc";
  fs::copy(m_project, other);
  leaveUnsaved(m_project);

  EXPECT_THAT(foundFor(other), IsEmpty());
  EXPECT_THAT(foundFor(m_project), ::testing::ElementsAre("G()"));
}

TEST_F(RecoveryOf, ALinkedProjectHasTheNameOfTheLink)
{
  const auto link = m_folder.path() / "link.tkpc";
  fs::create_symlink(m_project, link);
  leaveUnsaved(m_project);

  const auto found = find(link);
  ASSERT_EQ(found.works.size(), 1U);
  EXPECT_EQ(found.works[0].record.opened.title, "link.tkpc");
  EXPECT_EQ(found.works[0].record.opened.projectFile, link);
}
#endif

TEST_F(RecoveryOf, APathIsKeptFromTheRoot)
{
  const auto document = documentOf({"a"});
  const RecoveryRecord record = {{.document = document, .title = "a", .file = "a.csv"}, {}};

  EXPECT_EQ(loadRecovery(saveRecovery(record), "r").opened.file, fs::absolute("a.csv"));
}

TEST_F(RecoveryOf, PointsFromAPipeDoesNotMissTheirFile)
{
  {
    EditingProgram program(m_project, m_state);
    program.editor.replaceDocument(openPoints("collection,x,y,z\na,1,2,3\n", "<stdin>"));
    program.change("G");
    program.rest(1min);
  }

  EXPECT_EQ(find({}).works.at(0).fileSince, FileSince::Same);
}

TEST_F(RecoveryOf, AnotherDocumentReplacesThatOfTheFirst)
{
  EditingProgram program(m_project, m_state);
  program.change("G");
  program.rest(1min);

  program.editor.replaceDocument(openDocument(*diskFiles(), m_points));
  program.recovery.changed(program.now);
  program.change("H");
  program.rest(1min);

  EXPECT_EQ(filesIn(m_project.parent_path()), 2U);
  EXPECT_EQ(filesIn(m_state), 2U) << "the recovery file and its lock";
}

TEST_F(RecoveryOf, ADamagedFileIsReportedAndStays)
{
  {
    EditingProgram program(m_project, m_state);
    program.change("G");
    program.rest(1min);
  }
  fs::path file;
  for (const auto& entry : fs::directory_iterator(m_project.parent_path()))
    file = entry.path().extension() == recoveryEnding ? entry.path() : file;
  std::ofstream(file, std::ios::binary) << "nothing of that kind, but long enough";

  for (int i = 0; i < 2; ++i) {
    const auto found = find(m_project);
    EXPECT_THAT(found.works, IsEmpty());
    ASSERT_THAT(found.mistakes, SizeIs(1));
    EXPECT_THAT(found.mistakes[0], HasSubstr(".recovery: "));
  }
}

TEST_F(RecoveryOf, NothingThatCanBeWrittenIsToldOnce)
{
  m_folder.write("file", "");
  EditingProgram program(m_points, m_folder.path() / "file" / "state");
  for (int i = 0; i < 2; ++i) {
    program.change("G");
    program.rest(1min);
  }
  EXPECT_THAT(program.recovery.takeProblem(),
              HasSubstr("no copy of the unsaved changes can be kept"));
  program.change("G");
  program.rest(1min);
  EXPECT_EQ(program.recovery.takeProblem(), "");
  EXPECT_FALSE(program.recovery.keep(program.now));
}

TEST_F(RecoveryOf, NothingThatCanBeWrittenTellsTheReasonInTheUsersLanguage)
{
  const Language language(
      {{"Not a directory", "Kein Verzeichnis"}, {"No such file or directory", "Kein Verzeichnis"}});
  m_folder.write("file", "");
  const auto state = m_folder.path() / "file" / "state";
  EditingProgram program(m_points, state);
  program.change("G");
  program.rest(1min);

  EXPECT_THAT(program.recovery.takeProblem(),
              HasSubstr("(" + Utf8::fromPath(state) + ": Kein Verzeichnis)"));
}

}
}
