// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Files/DiskLock.h"
#include "PointCollections/Recovery/RecoveryPlaces.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <span>
#include <vector>

namespace Tarvik::PointCollections {

/// A recovery file that belongs to this process: it holds the file's lock. If the process ends,
/// also by a kill, the lock is free and the file stays. Movable; usable until it is moved from.
class RecoveryFile {
public:
  /// A file with a new name in the place. It is there after the first write().
  /// @throws std::system_error if nothing can be written there, or there are no locks
  static RecoveryFile make(const RecoveryPlace& place);

  /// The files in the place that belong to no living process; from now on they belong to this one.
  /// Removes what remains of those that were never written.
  static std::vector<RecoveryFile> takeAbandoned(const RecoveryPlace& place);

  const std::filesystem::path& path() const { return m_path; }

  /// Replaces the content in one step.
  /// @param model  the file whose access rights it gets; may be missing
  /// @throws std::system_error if that fails; the old content is there then
  void write(std::span<const std::byte> bytes, const std::filesystem::path& model);

  /// Removes the file.
  void remove();

private:
  RecoveryFile(std::filesystem::path path, std::unique_ptr<DiskLock> lock);

  std::filesystem::path m_path;
  std::unique_ptr<DiskLock> m_lock;
};

}
