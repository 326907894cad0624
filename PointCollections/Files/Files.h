// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace Tarvik::PointCollections {

/// Where documents come from and go to: the disk, or something else in tests. Failures are
/// UserErrors that name the file.
class Files {
public:
  Files() = default;
  Files(const Files&) = delete;
  Files& operator=(const Files&) = delete;
  virtual ~Files() = default;

  /// All bytes of a text file, which holds no NUL.
  virtual std::string readText(const std::filesystem::path& file) = 0;

  /// All bytes of a file.
  virtual std::vector<std::byte> readBytes(const std::filesystem::path& file) = 0;

  /// Makes these the bytes of a file, which need not exist. When that fails, the file is as it was;
  /// only where the disk fails in noting its name at last, it may be the new one already, whole.
  virtual void write(const std::filesystem::path& file, std::span<const std::byte> bytes) = 0;

  virtual bool exists(const std::filesystem::path& file) = 0;

  /// Whether both paths lead to the same file, which exists.
  virtual bool areSame(const std::filesystem::path& one, const std::filesystem::path& other) = 0;

  /// The names of all files and folders in a folder, those of folders with a slash behind them;
  /// none when it cannot be read.
  virtual std::vector<std::string> namesIn(const std::filesystem::path& folder) = 0;
};

/// The files of the computer.
std::shared_ptr<Files> diskFiles();

}
