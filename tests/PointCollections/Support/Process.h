// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <vector>

/// Starting programs: one source file for each operating system.
namespace Tarvik::PointCollections {

/// The files that a program's standard streams are connected to.
struct Streams {
  std::filesystem::path input;
  std::filesystem::path output;
  std::filesystem::path errors;
};

/// Runs a program to its end.
/// @param arguments  any texts in UTF-8
/// @return its exit status; -1 when it did not end by itself
int runProcess(const std::filesystem::path& program,
               const std::vector<std::string>& arguments,
               const Streams& streams);

}
