// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Files/Files.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

namespace Tarvik::PointCollections {

/// A lock between programs: a file that says which process holds it. When that process ends, also
/// by a kill, the system releases the lock. So a later process with the same number is not taken
/// for it. Each operating system has its own source file.
///
/// The destructor removes the file. A process that is killed may leave it; that is in nobody's way.
class DiskLock : public FileLock {
public:
  /// Takes the lock if it is free.
  /// @return null if it is held, perhaps elsewhere in this process
  /// @throws std::system_error if the file cannot be made, or the folder's disk has no locks
  static std::unique_ptr<DiskLock> tryTake(const std::filesystem::path& file);

  DiskLock(const DiskLock&) = delete;
  DiskLock& operator=(const DiskLock&) = delete;
  ~DiskLock() override;

private:
  static constexpr std::intptr_t none = -1;

  explicit DiskLock(std::filesystem::path file);

  std::filesystem::path m_file;
  std::intptr_t m_handle = none; ///< none: the lock is not held
};

/// Who holds the lock, safe to print: "process 123 (point-collections)"; "another program" if that
/// is not known.
std::string holderOf(const std::filesystem::path& file);

/// The number of this process.
std::uint64_t currentProcess();

}
