// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>

namespace Tarvik::PointCollections {

/// A file that is being written, for SafeFileWriter: what differs between operating systems, one
/// source file for each. Failures are std::system_errors.
class NewFile {
public:
  /// Makes a file where there is none.
  /// @param model  the file whose owner and access rights it gets, as far as the user may give
  ///               them, and never more; when there is none, it gets those of any new file
  /// @throws std::system_error also when there is a model that the user may not write to
  NewFile(std::filesystem::path path, const std::filesystem::path& model);

  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  /// Removes the file, unless replace() has given it another name.
  ~NewFile();

  void write(std::span<const std::byte> bytes);

  /// Returns when all that was written is on the disk. Nothing can be written behind.
  void close();

  /// Gives the closed file another name, in one step that also takes the name from a file that has
  /// it, and returns when that is on the disk.
  void replace(const std::filesystem::path& file);

private:
  std::filesystem::path m_path; ///< empty once it has another one
  std::intptr_t m_handle;
};

}
