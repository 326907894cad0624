// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik::PointCollections {

/// The lines that the user has typed, in a file for later runs of the program. Only the user can
/// read the file. Several programs may use it at the same time.
///
/// It is a convenience: if the file cannot be read or written, nothing happens.
class LineHistory {
public:
  /// How many lines are kept. The file may have twice as many for a while.
  static constexpr std::size_t mostLines = 1000;

  /// Longer lines are not kept.
  static constexpr std::size_t longestLine = 16384;

  /// @param file  is made, with its folders, when the first line comes. Empty if nothing is to be
  ///              kept
  explicit LineHistory(std::filesystem::path file) : m_file(std::move(file)) {}

  /// The last lines, the oldest first. Lines that nobody can have typed are left out.
  std::vector<std::string> read() const;

  /// Adds a line, unless it is too long.
  void add(const std::string& line) const;

private:
  std::filesystem::path m_file;
};

}
