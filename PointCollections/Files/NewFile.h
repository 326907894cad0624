// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <system_error>
#include <utility>

namespace Tarvik::PointCollections {

/// No new file can be made in a folder: the user has no right to it, or it cannot be written.
class FolderNotWritable : public std::system_error {
public:
  FolderNotWritable(std::filesystem::path folder, std::error_code reason)
      : std::system_error(reason), m_folder(std::move(folder))
  {}

  /// Empty for the working folder.
  const std::filesystem::path& folder() const { return m_folder; }

private:
  std::filesystem::path m_folder;
};

/// A new file that is being written, for SafeFileWriter. Each operating system has its own source
/// file. Failures are std::system_errors.
class NewFile {
public:
  /// Makes the file, which must not exist.
  /// @param model  the file whose owner and access rights the new one gets, as far as the user may
  ///               give them, and never more rights; if it does not exist, the new file gets the
  ///               usual ones
  /// @throws std::system_error also if the model exists and the user may not write to it;
  ///         FolderNotWritable
  NewFile(std::filesystem::path path, const std::filesystem::path& model);

  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  /// Removes the file, unless replace() has given it another name.
  ~NewFile();

  void write(std::span<const std::byte> bytes);

  /// Returns when everything is on the disk. Nothing can be written after this.
  void close();

  /// Renames the closed file, and flushes that to the disk. A file that has the name is replaced in
  /// the same step.
  /// @return why the flush failed: the file is replaced, but a power cut may bring the old one
  /// back.
  ///         No error if all is well
  /// @throws std::system_error if the file cannot be replaced
  std::error_code replace(const std::filesystem::path& file);

private:
  NewFile();

  std::filesystem::path m_path; ///< empty before the file is made and after replace()
  std::intptr_t m_handle;
};

}
