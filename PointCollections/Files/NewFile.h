// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>

namespace Tarvik::PointCollections {

/// A new file that is being written, for SafeFileWriter. Each operating system has its own source
/// file. Failures are std::system_errors.
class NewFile {
public:
  /// Makes the file, which must not exist.
  /// @param model  the file whose owner and access rights the new one gets, as far as the user may
  ///               give them, and never more rights; if it does not exist, the new file gets the
  ///               usual ones
  /// @throws std::system_error also if the model exists and the user may not write to it
  NewFile(std::filesystem::path path, const std::filesystem::path& model);

  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  /// Removes the file, unless replace() has given it another name.
  ~NewFile();

  void write(std::span<const std::byte> bytes);

  /// Returns when everything is on the disk. Nothing can be written after this.
  void close();

  /// Renames the closed file, and returns when that is on the disk. A file that has the name is
  /// replaced in the same step.
  void replace(const std::filesystem::path& file);

private:
  std::filesystem::path m_path; ///< empty after replace()
  std::intptr_t m_handle;
};

}
