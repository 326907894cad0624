// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Files/NewFile.h"

#include <cstddef>
#include <filesystem>
#include <span>

namespace Tarvik::PointCollections {

/// Writes a file in such a way that nothing is lost, whatever happens: under its name stands the
/// old content or the new one, whole.
///
/// The bytes go to a new file in the same folder, `.point-collections-` with 32 digits and `.tmp`,
/// reach the disk, and only then take the place of the old file. What goes wrong on the way is a
/// std::system_error, and the new file is removed by the destructor. Only a program that is killed
/// leaves it behind, and it is never in the way of another one.
///
/// A symbolic link stays, and the file that it leads to is replaced. The new file gets the access
/// rights of the old one. Its other names (hard links) keep the old content. MinGW's standard
/// library sees no links on Windows: there the new file takes the place of the link.
class SafeFileWriter {
public:
  /// Makes the new file.
  /// @throws std::system_error when that is not possible, or the file must not be replaced: it is
  ///         read-only, a folder, a device or the like
  explicit SafeFileWriter(const std::filesystem::path& file);

  SafeFileWriter(const SafeFileWriter&) = delete;
  SafeFileWriter& operator=(const SafeFileWriter&) = delete;
  ~SafeFileWriter() = default;

  /// Appends to the new file.
  void write(std::span<const std::byte> bytes);

  /// Puts the new file in the place of the old one. To be called once, at the end.
  void commit();

private:
  std::filesystem::path m_file; ///< where the links lead
  NewFile m_newFile;
};

}
