// SPDX-License-Identifier: MIT
#include "PointCollections/Files/SafeFileWriter.h"

#include "PointCollections/Support/Files.h"

#include <gmock/gmock.h>

#include <system_error>

namespace Tarvik::PointCollections {
namespace {

using ::testing::UnorderedElementsAre;

class SafeFileWriting : public ::testing::Test {
protected:
  static std::span<const std::byte> bytesOf(std::string_view text)
  {
    return std::as_bytes(std::span(text));
  }

  std::vector<std::string> namesInFolder() const
  {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(m_folder.path()))
      names.push_back(Utf8::fromPath(entry.path().filename()));
    return names;
  }

  TemporaryFolder m_folder;
  std::filesystem::path m_file = m_folder.write("file", "old");
};

TEST_F(SafeFileWriting, ReplacesAFileOnlyAtTheEnd)
{
  SafeFileWriter writer(m_file);
  writer.write(bytesOf("new "));
  writer.write(bytesOf("content"));
  EXPECT_EQ(contentOf(m_file), "old");

  writer.commit();

  EXPECT_EQ(contentOf(m_file), "new content");
  EXPECT_THAT(namesInFolder(), UnorderedElementsAre("file"));
}

TEST_F(SafeFileWriting, MakesANewFile)
{
  const auto file = m_folder.path() / "other";
  SafeFileWriter writer(file);
  writer.write(bytesOf("new"));
  writer.commit();

  EXPECT_EQ(contentOf(file), "new");
  EXPECT_THAT(namesInFolder(), UnorderedElementsAre("file", "other"));
}

TEST_F(SafeFileWriting, LeavesNothingWhenItIsNotFinished)
{
  {
    SafeFileWriter writer(m_file);
    writer.write(bytesOf("new"));
  }

  EXPECT_EQ(contentOf(m_file), "old");
  EXPECT_THAT(namesInFolder(), UnorderedElementsAre("file"));
}

TEST_F(SafeFileWriting, IsNotDisturbedByWhatAKilledProgramLeft)
{
  const auto* const left = ".point-collections-00000000000000000000000000000000.tmp";
  m_folder.write(left, "something");
  SafeFileWriter writer(m_file);
  writer.write(bytesOf("new"));
  writer.commit();

  EXPECT_EQ(contentOf(m_file), "new");
  EXPECT_THAT(namesInFolder(), UnorderedElementsAre("file", left));
}

TEST_F(SafeFileWriting, GoesOnBesideAnotherOneOfTheSameFile)
{
  SafeFileWriter one(m_file);
  SafeFileWriter other(m_file);
  one.write(bytesOf("one"));
  other.write(bytesOf("other"));

  one.commit();
  EXPECT_EQ(contentOf(m_file), "one");
  other.commit();
  EXPECT_EQ(contentOf(m_file), "other");
}

TEST_F(SafeFileWriting, WritesALargeFile)
{
  const std::string large(5'000'000, 'x');
  SafeFileWriter writer(m_file);
  writer.write(bytesOf(large));
  writer.commit();

  EXPECT_TRUE(contentOf(m_file) == large);
}

TEST_F(SafeFileWriting, RefusesAFolder)
{
  EXPECT_THROW(SafeFileWriter(m_folder.path()), std::system_error);
}

TEST_F(SafeFileWriting, RefusesAFolderThatDoesNotExist)
{
  EXPECT_THROW(SafeFileWriter(m_folder.path() / "none" / "file"), std::system_error);
  EXPECT_THAT(namesInFolder(), UnorderedElementsAre("file"));
}

TEST_F(SafeFileWriting, RefusesAReadOnlyFile)
{
  namespace fs = std::filesystem;
  fs::permissions(m_file, fs::perms::owner_read, fs::perm_options::replace);

  EXPECT_THROW(SafeFileWriter{m_file}, std::system_error);

  EXPECT_EQ(contentOf(m_file), "old");
  EXPECT_THAT(namesInFolder(), UnorderedElementsAre("file"));
  fs::permissions(m_file, fs::perms::owner_write, fs::perm_options::add);
}

TEST_F(SafeFileWriting, ReplacesNoFolderThatAppearedInTheMeantime)
{
  const auto file = m_folder.path() / "other";
  {
    SafeFileWriter writer(file);
    std::filesystem::create_directory(file);
    EXPECT_THROW(writer.commit(), std::system_error);
  }

  EXPECT_TRUE(std::filesystem::is_directory(file));
  EXPECT_THAT(namesInFolder(), UnorderedElementsAre("file", "other"));
}

}
}
