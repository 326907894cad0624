// SPDX-License-Identifier: MIT
// Files on POSIX systems: modes, owners, links, devices and limits, which Windows does not have or
// has in another way. See WindowsFilesTest.cpp.

#include "PointCollections/Editor/Editor.h"
#include "PointCollections/Files/DiskLock.h"
#include "PointCollections/Files/Files.h"
#include "PointCollections/Support/Documents.h"
#include "PointCollections/Support/Files.h"
#include "PointCollections/Text/Interruption.h"
#include "Support/Allocations.h"

#include <gmock/gmock.h>

#include <grp.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#if defined(__linux__)
#include <sys/xattr.h>
#endif

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <fstream>
#include <iostream>
#include <string>
#include <thread>
#include <vector>

namespace Tarvik::PointCollections {
namespace {

/// The error that flushing a folder has; 0 if it is flushed.
int errorOfFolders = 0;

bool isFolder(int handle)
{
  struct stat status = {};
  return fstat(handle, &status) == 0 && S_ISDIR(status.st_mode);
}

}
}

/// Takes the place of the system's function in this program.
extern "C" int fsync(int handle)
{
  using namespace Tarvik::PointCollections;
  if (errorOfFolders == 0 || !isFolder(handle))
    return static_cast<int>(syscall(SYS_fsync, handle));
  errno = errorOfFolders;
  return -1;
}

namespace Tarvik::PointCollections {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::UnorderedElementsAre;

/// Limits the size of files while it lives, like a disk that is almost full.
class LimitedFileSize {
public:
  explicit LimitedFileSize(rlim_t bytes)
  {
    getrlimit(RLIMIT_FSIZE, &m_before);
    const rlimit limit = {bytes, m_before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  LimitedFileSize(const LimitedFileSize&) = delete;
  LimitedFileSize& operator=(const LimitedFileSize&) = delete;
  ~LimitedFileSize() { setrlimit(RLIMIT_FSIZE, &m_before); }

private:
  rlimit m_before = {};
};

/// Sets the mask for the rights of new files while it lives.
class FileMask {
public:
  explicit FileMask(mode_t mask) : m_before(umask(mask)) {}
  FileMask(const FileMask&) = delete;
  FileMask& operator=(const FileMask&) = delete;
  ~FileMask() { umask(m_before); }

private:
  mode_t m_before;
};

constexpr uid_t someUser = 12345;
constexpr gid_t groupOfUser = 23456;
constexpr gid_t foreignGroup = 34567;

/// Turns the administrator into a user in a single group while it lives.
class ActingAsUser {
public:
  ActingAsUser() : m_groups(static_cast<std::size_t>(getgroups(0, nullptr)))
  {
    EXPECT_EQ(getgroups(static_cast<int>(m_groups.size()), m_groups.data()), m_groups.size());
    EXPECT_EQ(setgroups(0, nullptr), 0);
    EXPECT_EQ(setegid(groupOfUser), 0);
    EXPECT_EQ(seteuid(someUser), 0);
  }
  ActingAsUser(const ActingAsUser&) = delete;
  ActingAsUser& operator=(const ActingAsUser&) = delete;
  ~ActingAsUser()
  {
    EXPECT_EQ(seteuid(0), 0);
    EXPECT_EQ(setegid(m_group), 0);
    EXPECT_EQ(setgroups(m_groups.size(), m_groups.data()), 0);
  }

private:
  std::vector<gid_t> m_groups;
  gid_t m_group = getegid();
};

/// Lets flushing folders fail while it lives.
class FailingFolders {
public:
  explicit FailingFolders(int error) { errorOfFolders = error; }
  FailingFolders(const FailingFolders&) = delete;
  FailingFolders& operator=(const FailingFolders&) = delete;
  ~FailingFolders() { errorOfFolders = 0; }
};

struct stat statusOf(const fs::path& file)
{
  struct stat status = {};
  EXPECT_EQ(stat(file.c_str(), &status), 0) << file;
  return status;
}

mode_t modeOf(const fs::path& file)
{
  return statusOf(file).st_mode & 07777U;
}

class PosixFiles : public ::testing::Test {
protected:
  void write(const fs::path& file, std::string_view content) const
  {
    m_files->write(file, std::as_bytes(std::span(content)));
  }

  std::string mistakeInWriting(const fs::path& file, std::string_view content) const
  {
    return mistakeIn([&] { write(file, content); });
  }

  std::vector<std::string> namesInFolder() const { return m_files->namesIn(m_folder.path()); }

  TemporaryFolder m_folder;
  fs::path m_file = m_folder.write("file", "old");
  std::shared_ptr<Files> m_files = diskFiles();
};

TEST_F(PosixFiles, SurviveAFullDisk)
{
  for (const rlim_t limit : {0U, 1U, 4096U, 1500000U}) {
    const LimitedFileSize limited(limit);
    EXPECT_THAT(mistakeInWriting(m_file, std::string(2'000'000, 'x')),
                HasSubstr("file: the file cannot be saved (File too large)"));
    EXPECT_EQ(contentOf(m_file), "old");
    EXPECT_THAT(namesInFolder(), UnorderedElementsAre("file"));
  }
}

TEST_F(PosixFiles, AreSavedWhenOnlyTheirFolderCannotBeFlushed)
{
  const FailingFolders failing(EIO);

  const auto warning = m_files->write(m_file, std::as_bytes(std::span("new", 3))).warning;

  EXPECT_EQ(contentOf(m_file), "new");
  EXPECT_EQ(warning, "The file is saved, but flushing its folder to the disk failed (Input/output "
                     "error); after a power cut, the old file may be back.");
}

TEST_F(PosixFiles, AreNotDoubtedWhereFoldersAreNeverFlushed)
{
  for (const int error : {EINVAL, ENOTSUP}) {
    const FailingFolders failing(error);
    EXPECT_EQ(m_files->write(m_file, {}).warning, "");
  }
}

TEST_F(PosixFiles, OfTheEditorAreItsOwnAfterAFailedFlush)
{
  const auto project = m_folder.path() / "p.tkpc";
  Editor editor({documentOf({"a"}), "test.csv"}, m_files);
  {
    const FailingFolders failing(EIO);
    EXPECT_THAT(editor.save(project).warning, HasSubstr("a power cut"));
  }

  EXPECT_FALSE(editor.hasUnsavedChanges());
  EXPECT_EQ(editor.overwriteRisk(project), Editor::OverwriteRisk::None);
}

/// The administrator may look into every folder.
TEST_F(PosixFiles, AreNotTakenForAbsentWhenTheyCannotBeSeen)
{
  if (geteuid() != 0) {
    std::cout << "not tried: only the administrator can become another user\n";
    return;
  }
  const auto folder = m_folder.path() / "closed";
  fs::create_directory(folder);
  fs::permissions(folder, fs::perms::none);
  const ActingAsUser user;

  for (const auto& mistake : {mistakeIn([&] { m_files->exists(folder / "a.tkpc"); }),
                              mistakeIn([&] { m_files->areSame(m_file, folder / "a.tkpc"); })})
    EXPECT_THAT(mistake, HasSubstr("closed/a.tkpc: it cannot be found out whether this file exists "
                                   "(Permission denied)"));
}

#if defined(__linux__)

TEST_F(PosixFiles, AreNotTakenForEmptyWhenTheirSizeIsUnknown)
{
  for (const auto& mistake : {mistakeIn([&] { m_files->readBytes("/proc/version"); }),
                              mistakeIn([&] { m_files->readStart("/proc/version", 1); })})
    EXPECT_EQ(mistake, "/proc/version: the size of this file cannot be found out");
}

#endif

TEST_F(PosixFiles, SayWhichFolderCannotBeWritten)
{
  if (geteuid() != 0) {
    std::cout << "not tried: only the administrator can become another user\n";
    return;
  }
  fs::permissions(m_folder.path(),
                  fs::perms::owner_all | fs::perms::others_exec | fs::perms::others_read);
  fs::permissions(m_file, fs::perms::all);
  const ActingAsUser user;

  EXPECT_THAT(mistakeInWriting(m_file, "new"),
              HasSubstr("file: the file cannot be saved, because nothing can be written in the "
                        "folder " +
                        m_folder.path().string() + " (Permission denied); save it in another one"));
}

TEST_F(PosixFiles, AreFreeAgainWhenTheProgramThatSavesInThemIsKilled)
{
  const auto lock = m_folder.path() / "lock";
  std::array<int, 2> ends{};
  ASSERT_EQ(pipe(ends.data()), 0);
  const pid_t other = fork();
  if (other == 0) {
    const auto held = DiskLock::tryTake(lock);
    static_cast<void>(::write(ends[1], "x", 1) == 1);
    pause();
  }
  char c = 0;
  ASSERT_EQ(read(ends[0], &c, 1), 1);
  EXPECT_EQ(DiskLock::tryTake(lock), nullptr);
  EXPECT_THAT(holderOf(lock), HasSubstr("process " + std::to_string(other) + " ("));

  kill(other, SIGKILL);
  waitpid(other, nullptr, 0);

  EXPECT_NE(DiskLock::tryTake(lock), nullptr);
  close(ends[0]);
  close(ends[1]);
}

/// The lock of another user may be in a folder that all may write to.
TEST_F(PosixFiles, AreLockedByAFileThatCanOnlyBeRead)
{
  if (geteuid() != 0) {
    std::cout << "not tried: only the administrator can become another user\n";
    return;
  }
  const auto lock = m_folder.write("lock", "");
  fs::permissions(lock, fs::perms::owner_all | fs::perms::others_read);
  fs::permissions(m_folder.path(), fs::perms::all);
  const ActingAsUser user;

  const auto held = DiskLock::tryTake(lock);

  EXPECT_NE(held, nullptr);
  EXPECT_EQ(DiskLock::tryTake(lock), nullptr);
}

TEST_F(PosixFiles, LeaveTheSignalOfTheFileSizeAsItWas)
{
  const auto before = std::signal(SIGXFSZ, SIG_DFL);
  write(m_file, "new");
  EXPECT_EQ(std::signal(SIGXFSZ, before), SIG_DFL);
}

TEST_F(PosixFiles, KeepTheirMode)
{
  for (const mode_t mode : {0600U, 0640U, 0604U, 0664U, 0777U, 0222U}) {
    chmod(m_file.c_str(), mode);
    write(m_file, "new");
    EXPECT_EQ(modeOf(m_file), mode);
  }
}

TEST_F(PosixFiles, HaveTheModeOfAnyNewFileWhenTheyAreNew)
{
  const FileMask mask(0027);
  write(m_folder.path() / "other", "new");

  EXPECT_EQ(modeOf(m_folder.path() / "other"), 0640U);
}

TEST_F(PosixFiles, KeepTheirOwner)
{
  const bool isAdministrator = geteuid() == 0;
  if (isAdministrator) {
    ASSERT_EQ(chown(m_file.c_str(), 12345, 23456), 0);
  }
  const auto before = statusOf(m_file);

  write(m_file, "new");

  EXPECT_EQ(statusOf(m_file).st_uid, before.st_uid);
  EXPECT_EQ(statusOf(m_file).st_gid, before.st_gid);
  EXPECT_NE(statusOf(m_file).st_ino, before.st_ino);
}

/// Only the administrator can make a file that belongs to a group without its owner.
TEST_F(PosixFiles, GiveTheirNewGroupNoMoreRightsThanAllOthersWhenTheyCannotKeepTheOldOne)
{
  if (geteuid() != 0) {
    std::cout << "not tried: this user cannot give a file to a group of others\n";
    return;
  }
  fs::permissions(m_folder.path(), fs::perms::all);
  for (const auto& [before, after] :
       {std::pair<mode_t, mode_t>(0664, 0644), {0660, 0600}, {0676, 0666}, {0604, 0644}}) {
    ASSERT_EQ(chown(m_file.c_str(), someUser, foreignGroup), 0);
    ASSERT_EQ(chmod(m_file.c_str(), before), 0);
    {
      const ActingAsUser user;
      write(m_file, "new");
    }
    EXPECT_EQ(statusOf(m_file).st_gid, groupOfUser);
    EXPECT_EQ(modeOf(m_file), after) << std::oct << "before: " << before;
  }
}

TEST_F(PosixFiles, AreReplacedAtTheEndOfALink)
{
  fs::create_directory(m_folder.path() / "folder");
  fs::create_symlink("../file", m_folder.path() / "folder" / "one");
  fs::create_symlink("folder/one", m_folder.path() / "two");

  write(m_folder.path() / "two", "new");

  EXPECT_EQ(contentOf(m_file), "new");
  EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(m_file)));
  EXPECT_TRUE(fs::is_symlink(m_folder.path() / "folder" / "one"));
  EXPECT_TRUE(fs::is_symlink(m_folder.path() / "two"));
}

TEST_F(PosixFiles, AreMadeAtTheEndOfALink)
{
  fs::create_symlink("other", m_folder.path() / "link");
  EXPECT_TRUE(m_files->exists(m_folder.path() / "link"));

  write(m_folder.path() / "link", "new");

  EXPECT_EQ(contentOf(m_folder.path() / "other"), "new");
  EXPECT_TRUE(fs::is_symlink(m_folder.path() / "link"));
}

TEST_F(PosixFiles, AreNotLookedForInACircle)
{
  fs::create_symlink("two", m_folder.path() / "one");
  fs::create_symlink("one", m_folder.path() / "two");

  EXPECT_THAT(mistakeInWriting(m_folder.path() / "one", "new"),
              HasSubstr("one: the file cannot be saved (Too many levels of symbolic links)"));
}

/// A pipe serves as an example of what is neither file nor folder. Never try this with a device of
/// the computer, least of all as its administrator.
TEST_F(PosixFiles, DoNotReplaceSomethingElse)
{
  const auto pipe = m_folder.path() / "pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);

  EXPECT_THAT(mistakeInWriting(pipe, "new"), HasSubstr("pipe: the file cannot be saved ("));

  EXPECT_TRUE(fs::is_fifo(pipe));
}

#if defined(__linux__)

constexpr auto accessList = "system.posix_acl_access";

/// The owner reads and writes, user 1234 reads, the group and others have no rights. This is the
/// system's own format, the lowest byte first.
constexpr std::array<std::uint32_t, 11> listOfRights{
    2,                      // version
    0x00060001, 0xFFFFFFFF, // owner: rw-
    0x00040002, 1234,       // user 1234: r--
    0x00000004, 0xFFFFFFFF, // group: ---
    0x00040010, 0xFFFFFFFF, // at most: r--
    0x00000020, 0xFFFFFFFF  // others: ---
};

std::string rightsListedFor(const fs::path& file)
{
  std::array<char, 1024> list{};
  const auto size = getxattr(file.c_str(), accessList, list.data(), list.size());
  return {list.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0))};
}

TEST_F(PosixFiles, KeepTheListOfThoseWhoHaveRights)
{
  const bool isSet =
      setxattr(m_file.c_str(), accessList, listOfRights.data(), sizeof listOfRights, 0) == 0;
  ASSERT_TRUE(isSet || errno == ENOTSUP) << "some kinds of disks have no such lists";
  const auto before = rightsListedFor(m_file);

  write(m_file, "new");

  EXPECT_EQ(contentOf(m_file), "new");
  EXPECT_EQ(rightsListedFor(m_file), before);
}

TEST_F(PosixFiles, LeaveNothingWhenThereIsNotEnoughMemoryForTheirRights)
{
  setxattr(m_file.c_str(), accessList, listOfRights.data(), sizeof listOfRights, 0);
  bool hasFailed = true;
  for (std::size_t failing = 0; hasFailed; ++failing) {
    try {
      const AllocationWatch watch(failing);
      write(m_file, "new");
    } catch (const std::bad_alloc&) {
    }
    hasFailed = AllocationWatch::hasFailed();
    ASSERT_THAT(namesInFolder(), UnorderedElementsAre("file")) << failing;
  }
}

#endif

TEST_F(PosixFiles, AreNotReadFromADevice)
{
  for (const char* const device : {"/dev/zero", "/dev/null"})
    for (const auto& mistake : {mistakeIn([&] { m_files->readBytes(device); }),
                                mistakeIn([&] { m_files->readStart(device, 1); }),
                                mistakeIn([&] { m_files->readText(device); })})
      EXPECT_THAT(mistake, HasSubstr("this is a device or the like; expected a file"));
}

TEST_F(PosixFiles, AreReadOnceIfTheyArePipes)
{
  const auto pipe = m_folder.path() / "pipe.csv";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  std::thread writer([&] { std::ofstream(pipe) << "collection,x,y,z\na,1,2,3\n"; });

  const auto opened = openDocument(*m_files, pipe); // would wait for ever if it read again
  writer.join();

  EXPECT_EQ(namesOf(*opened.document, opened.document->order()), std::vector<std::string>{"a"});
  EXPECT_EQ(opened.title, pipe.string());
  EXPECT_EQ(opened.file, "");
  EXPECT_TRUE(m_files->isReadOnce(pipe));
  EXPECT_FALSE(m_files->isReadOnce(m_folder.write("file.csv", "")));
}

TEST_F(PosixFiles, AreNotWaitedForWhenTheUserStopsThat)
{
  const auto pipe = m_folder.path() / "pipe.csv";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const Interruptible work;
  std::thread user([] {
    std::this_thread::sleep_for(std::chrono::milliseconds(150));
    Interruptible::request();
  });

  EXPECT_THROW(m_files->readText(pipe), Interrupted);
  user.join();
}

TEST_F(PosixFiles, AreNotReadWhenNoArchiveIsThatLarge)
{
  const auto file = m_folder.write("a.tkpc", "");
  fs::resize_file(file, std::uintmax_t(1) << 32U); // takes no space on the disk

  EXPECT_THAT(mistakeIn([&] { m_files->readBytes(file); }),
              HasSubstr("a.tkpc: a file of 4294967296 bytes; expected 4294967295 at most"));
}

TEST_F(PosixFiles, AreRefusedByTheirStartHoweverLargeTheyAre)
{
  const auto file = m_folder.write("a.tkpc", "");
  for (const auto size : {std::uintmax_t(1) << 31U, std::uintmax_t(1) << 40U}) {
    fs::resize_file(file, size); // takes no space on the disk

    EXPECT_EQ(m_files->readStart(file, 20).bytes, std::vector<std::byte>(20));
    EXPECT_EQ(m_files->readStart(file, 20).size, size);
    EXPECT_THAT(mistakeIn([&] { openDocument(*m_files, file); }),
                HasSubstr("a.tkpc, byte 0: expected "));
  }
}

TEST_F(PosixFiles, SayWhyTheyCannotBeWritten)
{
  EXPECT_THAT(mistakeInWriting(m_folder.path() / "none" / "a.tkpc", "new"),
              HasSubstr("a.tkpc: the file cannot be saved (No such file or directory)"));
  EXPECT_THAT(mistakeInWriting(m_folder.path(), "new"),
              HasSubstr("cannot be saved (Is a directory)"));
}

TEST_F(PosixFiles, AreNotWrittenWhereNothingCanBe)
{
  EXPECT_THAT(mistakeInWriting("/proc/file", "new"), HasSubstr("/proc/file: the file cannot be"));
  EXPECT_THAT(mistakeInWriting("/proc/version", "new"), HasSubstr("the file cannot be saved"));
}

TEST_F(PosixFiles, MayHaveTheLongestName)
{
  const auto file = m_folder.path() / std::string(255, 'x');
  write(file, "new");

  EXPECT_EQ(contentOf(file), "new");
}

}
}
