// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace Tarvik::PointCollections {

/// The beginning of a file.
struct FileStart {
  std::vector<std::byte> bytes; ///< the first ones
  std::uint64_t size = 0;       ///< of the whole file, in bytes
};

/// What is to be said about a file that was written.
struct WriteResult {
  std::string warning = {}; ///< for the user: a sentence; empty if there is none
};

/// Keeps other programs from something while it lives.
class FileLock {
public:
  FileLock() = default;
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;
  virtual ~FileLock() = default;
};

/// Where documents are read and saved: the disk, or something else in tests. Failures are
/// UserErrors that name the file, std::bad_alloc when there is not enough memory, or Interrupted when
/// the user stops it.
class Files {
public:
  Files() = default;
  Files(const Files&) = delete;
  Files& operator=(const Files&) = delete;
  virtual ~Files() = default;

  /// All bytes of a text file, or of a pipe (FIFO). A NUL byte is an error.
  virtual std::string readText(const std::filesystem::path& file) = 0;

  /// Whether the file can be read only once, as a pipe can: another time there would be nothing
  /// more in it, and the program would wait for ever.
  virtual bool isReadOnce(const std::filesystem::path& /*file*/) { return false; }

  /// All bytes of a file.
  virtual std::vector<std::byte> readBytes(const std::filesystem::path& file) = 0;

  /// The first bytes of a file; all when there are fewer.
  virtual FileStart readStart(const std::filesystem::path& file, std::size_t count) = 0;

  /// Replaces the content of a file, or makes the file. If that fails, the file is as it was.
  /// @return a warning if the file is written, but a power cut may still undo that
  virtual WriteResult write(const std::filesystem::path& file,
                            std::span<const std::byte> bytes) = 0;

  /// Keeps other programs that ask for this lock from saving in the file. Removes what programs
  /// that were killed while they saved in it have left. Null where there are no locks.
  /// @throws UserError if another program saves in the file now
  virtual std::unique_ptr<FileLock> lockForSaving(const std::filesystem::path& file) = 0;

  /// Whether there is anything with that name, even a link that leads nowhere.
  /// @throws UserError if that cannot be found out
  virtual bool exists(const std::filesystem::path& file) = 0;

  /// Whether both paths lead to the same existing file.
  /// @throws UserError if that cannot be found out
  virtual bool areSame(const std::filesystem::path& one, const std::filesystem::path& other) = 0;

  /// The names of all files and folders in a folder. Those of folders end in a slash. Empty if the
  /// folder cannot be read.
  virtual std::vector<std::string> namesIn(const std::filesystem::path& folder) = 0;
};

/// The files on the disk.
std::shared_ptr<Files> diskFiles();

}
