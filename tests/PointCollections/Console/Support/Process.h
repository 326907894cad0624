// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

/// Starting programs. Each operating system has its own source file.
namespace Tarvik::PointCollections {

/// The files that a program's standard streams are connected to.
struct Streams {
  std::filesystem::path input;
  std::filesystem::path output;
  std::filesystem::path errors;
};

/// Runs a program to its end.
/// @param arguments  any texts in UTF-8
/// @return its exit status; -1 if it did not end by itself
int runProcess(const std::filesystem::path& program,
               const std::vector<std::string>& arguments,
               const Streams& streams);

/// A program that runs while this lives, unless it ends earlier by itself.
class RunningProcess {
public:
  /// Starts it.
  /// @param arguments  any texts in UTF-8
  RunningProcess(const std::filesystem::path& program, const std::vector<std::string>& arguments);

  RunningProcess(const RunningProcess&) = delete;
  RunningProcess& operator=(const RunningProcess&) = delete;

  /// Kills it: it cannot tidy up. Returns when its files are closed.
  ~RunningProcess();

  /// Waits for output.
  /// @return the output so far; empty if the program has ended
  std::string read() const;

private:
  std::intptr_t m_process;
  std::intptr_t m_output;
};

}
