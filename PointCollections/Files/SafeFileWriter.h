// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Files/NewFile.h"

#include <cstddef>
#include <filesystem>
#include <span>
#include <system_error>

namespace Tarvik::PointCollections {

/// Writes a file so that nothing is lost, whatever happens: at any time the file has its complete
/// old content or its complete new content.
///
/// The bytes are written to a new file in the same folder, and flushed to the disk. Only then does
/// the new file replace the old one. Failures are std::system_errors; the destructor then removes
/// the new file. Only a program that is killed leaves it there. It is never in the way of another
/// one, and SideFiles::removeUnfinished() removes it.
///
/// A symbolic link stays; the file that it leads to is replaced. The new file gets the access
/// rights of the old one. Other names of the old file (hard links) keep the old content. MinGW's
/// standard library does not see links on Windows: there the new file replaces the link.
class SafeFileWriter {
public:
  /// Makes the new file.
  /// @throws std::system_error if that is not possible, or the file must not be replaced: it is
  ///         read-only, a folder, a device or the like; FolderNotWritable
  explicit SafeFileWriter(const std::filesystem::path& file);

  /// As above, with the access rights of another file.
  /// @param model  not written, but the user must have the right to; may be missing
  SafeFileWriter(const std::filesystem::path& file, const std::filesystem::path& model);

  SafeFileWriter(const SafeFileWriter&) = delete;
  SafeFileWriter& operator=(const SafeFileWriter&) = delete;
  ~SafeFileWriter() = default;

  /// Appends to the new file.
  void write(std::span<const std::byte> bytes);

  /// Returns when the new file is complete on the disk. Nothing can be written after this.
  void close();

  /// Replaces the old file with the new one, and closes this before, if need be. Call it once, at
  /// the end.
  /// @return why flushing the folder failed, as NewFile::replace() describes
  std::error_code commit();

private:
  std::filesystem::path m_file; ///< with all links followed
  NewFile m_newFile;
  bool m_isClosed = false;
};

}
