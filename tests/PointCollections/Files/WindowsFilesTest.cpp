// SPDX-License-Identifier: MIT
// Files on Windows. Some subjects of PosixFilesTest.cpp do not apply: there are no owners and
// modes, links need rights that not every user has, and a name of 255 characters only fits into a
// folder whose path has at most four.

#include "PointCollections/Files/Files.h"
#include "PointCollections/Support/Documents.h"
#include "PointCollections/Support/Files.h"
#include "Support/ImportTable.h"

#include <gmock/gmock.h>

#include <winioctl.h>

#include <limits>

namespace Tarvik::PointCollections {
namespace {

using ::testing::HasSubstr;
using ::testing::UnorderedElementsAre;

/// A disk with so many free bytes, while it lives.
class LimitedDisk {
public:
  explicit LimitedDisk(std::size_t room) { s_room = room; }
  LimitedDisk(const LimitedDisk&) = delete;
  LimitedDisk& operator=(const LimitedDisk&) = delete;
  ~LimitedDisk() { s_room = std::numeric_limits<std::size_t>::max(); }

private:
  static BOOL WINAPI
  write(HANDLE file, const void* bytes, DWORD count, DWORD* written, OVERLAPPED* overlapped)
  {
    if (count > s_room) {
      SetLastError(ERROR_DISK_FULL);
      return FALSE;
    }
    s_room -= count;
    return s_write(file, bytes, count, written, overlapped);
  }

  static decltype(&WriteFile) replaceWriteFile()
  {
    const auto kernel = ImportTable::module("kernel32.dll");
    const auto address = reinterpret_cast<void*>(GetProcAddress(kernel, "WriteFile"));
    ImportTable::redirect(GetModuleHandleA(nullptr), kernel, "WriteFile", &write);
    return reinterpret_cast<decltype(&WriteFile)>(address);
  }

  static inline std::size_t s_room = std::numeric_limits<std::size_t>::max();
  static inline const decltype(&WriteFile) s_write = replaceWriteFile();
};

/// A file that another program has open.
class OpenFile {
public:
  OpenFile(const std::filesystem::path& file, DWORD access, DWORD share)
      : m_handle(CreateFileW(
            file.c_str(), access, share, nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr))
  {
    EXPECT_NE(m_handle, INVALID_HANDLE_VALUE) << "error " << GetLastError();
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile() { CloseHandle(m_handle); }

  /// Gives the file a size without taking space for it.
  void growTo(long long size) const
  {
    DWORD ignored = 0;
    DeviceIoControl(m_handle, FSCTL_SET_SPARSE, nullptr, 0, nullptr, 0, &ignored, nullptr);
    LARGE_INTEGER end;
    end.QuadPart = size;
    EXPECT_TRUE(SetFilePointerEx(m_handle, end, nullptr, FILE_BEGIN));
    EXPECT_TRUE(SetEndOfFile(m_handle));
  }

private:
  HANDLE m_handle;
};

/// The standard library's text for the error, which differs between libraries.
std::string reason(std::errc error)
{
  return std::make_error_condition(error).message();
}

class WindowsFiles : public ::testing::Test {
protected:
  void write(const std::filesystem::path& file, std::string_view content) const
  {
    m_files->write(file, std::as_bytes(std::span(content)));
  }

  std::string mistakeInWriting(const std::filesystem::path& file, std::string_view content) const
  {
    return mistakeIn([&] { write(file, content); });
  }

  std::vector<std::string> namesInFolder() const { return m_files->namesIn(m_folder.path()); }

  TemporaryFolder m_folder;
  std::filesystem::path m_file = m_folder.write("file", "old");
  std::shared_ptr<Files> m_files = diskFiles();
};

TEST_F(WindowsFiles, SurviveAFullDisk)
{
  for (const std::size_t room : {0U, 1U, 4096U, 1500000U}) {
    const LimitedDisk disk(room);
    EXPECT_THAT(mistakeInWriting(m_file, std::string(2'000'000, 'x')),
                HasSubstr("file: the file cannot be saved (" +
                          reason(std::errc::no_space_on_device) + ")"));
    EXPECT_EQ(contentOf(m_file), "old");
    EXPECT_THAT(namesInFolder(), UnorderedElementsAre("file"));
  }
}

TEST_F(WindowsFiles, KeepTheirAttributes)
{
  constexpr DWORD hidden = FILE_ATTRIBUTE_HIDDEN;
  for (const DWORD attributes : {hidden, hidden | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE}) {
    ASSERT_TRUE(SetFileAttributesW(m_file.c_str(), attributes));
    const auto before = GetFileAttributesW(m_file.c_str());

    write(m_file, "new");

    EXPECT_EQ(contentOf(m_file), "new");
    EXPECT_EQ(GetFileAttributesW(m_file.c_str()), before) << "set to " << attributes;
  }
}

TEST_F(WindowsFiles, AreNotReplacedWhenTheyAreReadOnly)
{
  ASSERT_TRUE(SetFileAttributesW(m_file.c_str(), FILE_ATTRIBUTE_READONLY));

  EXPECT_THAT(
      mistakeInWriting(m_file, "new"),
      HasSubstr("file: the file cannot be saved (" + reason(std::errc::permission_denied) + ")"));

  EXPECT_EQ(contentOf(m_file), "old");
  EXPECT_THAT(namesInFolder(), UnorderedElementsAre("file"));
  SetFileAttributesW(m_file.c_str(), FILE_ATTRIBUTE_NORMAL); // or it could not be removed
}

TEST_F(WindowsFiles, AreNotReplacedWhileAnotherProgramHasThemOpen)
{
  constexpr DWORD reading = FILE_SHARE_READ;
  for (const DWORD share : {DWORD(0), reading, reading | FILE_SHARE_WRITE}) {
    {
      const OpenFile open(m_file, GENERIC_READ, share);
      EXPECT_THAT(mistakeInWriting(m_file, "new"),
                  HasSubstr("file: the file cannot be saved (another program has it open)"))
          << "shared as " << share;
    }
    EXPECT_EQ(contentOf(m_file), "old");
    EXPECT_THAT(namesInFolder(), UnorderedElementsAre("file"));
  }
}

TEST_F(WindowsFiles, AreReplacedWhenTheOtherProgramHasClosedThem)
{
  {
    const OpenFile open(m_file, GENERIC_READ, 0);
    EXPECT_NE(mistakeInWriting(m_file, "new"), "no mistake");
  }

  write(m_file, "new");

  EXPECT_EQ(contentOf(m_file), "new");
}

TEST_F(WindowsFiles, AreTheSameWhateverTheCaseOfTheirNames)
{
  EXPECT_TRUE(m_files->areSame(m_file, m_folder.path() / "FILE"));

  write(m_folder.path() / "FILE", "new");

  EXPECT_EQ(contentOf(m_file), "new");
  EXPECT_EQ(namesInFolder().size(), 1U);
}

TEST_F(WindowsFiles, AreNotTheDeviceNul)
{
  EXPECT_THAT(mistakeInWriting("NUL", "new"), HasSubstr("NUL: the file cannot be saved ("));
}

TEST_F(WindowsFiles, AreNotReadWhenNoArchiveIsThatLarge)
{
  const auto file = m_folder.path() / "a.tkpc";
  OpenFile(file, GENERIC_READ | GENERIC_WRITE, 0).growTo(1LL << 32U);

  EXPECT_THAT(mistakeIn([&] { m_files->readBytes(file); }),
              HasSubstr("a.tkpc: a file of 4294967296 bytes; expected 4294967295 at most"));
}

TEST_F(WindowsFiles, SayWhyTheyCannotBeWritten)
{
  EXPECT_THAT(mistakeInWriting(m_folder.path() / "none" / "a.tkpc", "new"),
              HasSubstr("a.tkpc: the file cannot be saved (" +
                        reason(std::errc::no_such_file_or_directory) + ")"));
  EXPECT_THAT(mistakeInWriting(m_folder.path(), "new"),
              HasSubstr("cannot be saved (" + reason(std::errc::is_a_directory) + ")"));
  EXPECT_THAT(mistakeInWriting(m_folder.path() / "a?b", "new"), HasSubstr("cannot be saved ("));
}

}
}
