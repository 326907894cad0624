// SPDX-License-Identifier: MIT
#include "PointCollections/Files/Files.h"

#include "PointCollections/Files/SideFiles.h"
#include "PointCollections/Support/Documents.h"
#include "PointCollections/Support/Files.h"

#include <gmock/gmock.h>

namespace Tarvik::PointCollections {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

class DiskFiles : public ::testing::Test {
protected:
  std::string writeMistake(const std::filesystem::path& file) const
  {
    return mistakeIn([&] { m_files->write(file, bytesOf("new")); });
  }

  static std::span<const std::byte> bytesOf(std::string_view text)
  {
    return std::as_bytes(std::span(text));
  }

  TemporaryFolder m_folder;
  std::shared_ptr<Files> m_files = diskFiles();
};

TEST_F(DiskFiles, AreWrittenAndRead)
{
  const auto file = m_folder.path() / Utf8::toPath("Größe 都市.tkpc");
  const std::string content("a\0\r\n\xFF", 5);

  m_files->write(file, bytesOf(content));

  EXPECT_EQ(contentOf(file), content);
  EXPECT_THAT(m_files->readBytes(file), ::testing::ElementsAreArray(bytesOf(content)));
}

TEST_F(DiskFiles, AreAsBeforeWhenWritingIsCancelled)
{
  const auto file = m_folder.write("a.tkpc", "old");
  Cancellation cancellation;
  EXPECT_TRUE(cancellation.cancel());

  EXPECT_FALSE(m_files->writeUnlessCancelled(file, bytesOf("new"), cancellation));

  EXPECT_EQ(contentOf(file), "old");
  EXPECT_THAT(m_files->namesIn(m_folder.path()), UnorderedElementsAre("a.tkpc"))
      << "nothing unfinished is left";
}

TEST_F(DiskFiles, CannotBeCancelledOnceTheyAreReplaced)
{
  const auto file = m_folder.write("a.tkpc", "old");
  Cancellation cancellation;

  EXPECT_TRUE(m_files->writeUnlessCancelled(file, bytesOf("new"), cancellation));

  EXPECT_EQ(contentOf(file), "new");
  EXPECT_FALSE(cancellation.cancel());
  EXPECT_FALSE(cancellation.isCancelled());
}

TEST_F(DiskFiles, AreReadInPart)
{
  const auto file = m_folder.write("a.tkpc", "content");

  for (const std::size_t count : {0U, 3U, 7U, 100U}) {
    const auto [bytes, size] = m_files->readStart(file, count);

    EXPECT_THAT(bytes,
                ::testing::ElementsAreArray(bytesOf(std::string_view("content").substr(0, count))));
    EXPECT_EQ(size, 7U);
  }
}

TEST_F(DiskFiles, MayBeEmpty)
{
  const auto file = m_folder.write("a.tkpc", "old");

  m_files->write(file, {});

  EXPECT_EQ(contentOf(file), "");
  EXPECT_THAT(m_files->readBytes(file), IsEmpty());
}

TEST_F(DiskFiles, AreTextsOnlyWithoutNul)
{
  const auto text = m_folder.write("a.csv", "one\ntwo");
  const auto other = m_folder.write("b.csv", std::string_view("a\0b", 3));

  EXPECT_EQ(m_files->readText(text), "one\ntwo");
  EXPECT_THAT(mistakeIn([&] { m_files->readText(other); }), HasSubstr("a NUL byte"));
}

TEST_F(DiskFiles, ThatAreNotFilesAreNotRead)
{
  const auto mistakeInReading = [&](const std::filesystem::path& file) {
    return mistakeIn([&] { m_files->readBytes(file); });
  };
  const auto mistakeInReadingTheStart = [&](const std::filesystem::path& file) {
    return mistakeIn([&] { m_files->readStart(file, 1); });
  };

  for (const auto& none : {m_folder.path(), m_folder.path() / "none"})
    EXPECT_EQ(mistakeInReadingTheStart(none), mistakeInReading(none));
  EXPECT_THAT(mistakeInReading(m_folder.path()), HasSubstr("this is a directory"));
  EXPECT_THAT(mistakeInReading(m_folder.path() / "none"), HasSubstr("the file cannot be opened"));
}

TEST_F(DiskFiles, AreNotWrittenWhereThatIsImpossible)
{
  EXPECT_THAT(writeMistake(m_folder.path() / "none" / "a.tkpc"),
              HasSubstr("a.tkpc: the file cannot be saved ("));
  EXPECT_THAT(writeMistake(m_folder.path()), HasSubstr("the file cannot be saved ("));
}

TEST_F(DiskFiles, AreWrittenInTheWorkingFolder)
{
  const WorkingFolder workingFolder(m_folder);
  m_files->write("a.tkpc", bytesOf("new"));

  EXPECT_EQ(contentOf(m_folder.path() / "a.tkpc"), "new");
}

TEST_F(DiskFiles, AreSavedByOneProgramAtATime)
{
  const auto file = m_folder.path() / "a.tkpc";
  {
    const auto lock = m_files->lockForSaving(file);
    EXPECT_THAT(mistakeIn([&] { m_files->lockForSaving(file); }),
                ::testing::MatchesRegex(".*a.tkpc: process .+ \\(.*\\) saves in this file at "
                                        "this moment; try again"));
    m_files->lockForSaving(m_folder.path() / "b.tkpc"); // another file is free
  }
  m_files->lockForSaving(file);
  EXPECT_THAT(m_files->namesIn(m_folder.path()), IsEmpty());
}

TEST_F(DiskFiles, AreClearedOfWhatAKilledProgramLeft)
{
  const auto file = m_folder.write("a.tkpc", "old");
  const auto unfinished = SideFiles::newUnfinished(file);
  const auto ofAnother = SideFiles::newUnfinished(m_folder.path() / "b.tkpc");
  for (const auto& each : {unfinished, ofAnother})
    m_folder.write(Utf8::fromPath(each.filename()), "half");

  m_files->lockForSaving(file);

  EXPECT_THAT(m_files->namesIn(m_folder.path()),
              UnorderedElementsAre("a.tkpc", Utf8::fromPath(ofAnother.filename())));
}

TEST_F(DiskFiles, AreSavedWithoutALockWhereThereIsNone)
{
  EXPECT_EQ(m_files->lockForSaving(m_folder.path() / "none" / "a.tkpc"), nullptr);
}

TEST_F(DiskFiles, AreTheSameUnderAllTheirNames)
{
  const auto file = m_folder.write("a.tkpc", "a");
  m_folder.write("b.tkpc", "a");

  EXPECT_TRUE(m_files->areSame(file, m_folder.path() / "." / "a.tkpc"));
  EXPECT_FALSE(m_files->areSame(file, m_folder.path() / "b.tkpc"));
  EXPECT_FALSE(m_files->areSame(file, m_folder.path() / "none"));
  EXPECT_FALSE(m_files->areSame(file, ""));
}

TEST_F(DiskFiles, ExistOrDoNot)
{
  EXPECT_TRUE(m_files->exists(m_folder.write("a.tkpc", "")));
  EXPECT_TRUE(m_files->exists(m_folder.path()));
  EXPECT_FALSE(m_files->exists(m_folder.path() / "none"));
}

TEST_F(DiskFiles, AreListed)
{
  m_folder.write("a.tkpc", "");
  m_folder.write(".hidden", "");
  std::filesystem::create_directory(m_folder.path() / "folder");

  EXPECT_THAT(m_files->namesIn(m_folder.path()),
              UnorderedElementsAre("a.tkpc", ".hidden", "folder/"));
  EXPECT_THAT(m_files->namesIn(m_folder.path() / "none"), IsEmpty());
}

}
}
