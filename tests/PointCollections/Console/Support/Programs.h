// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Support/Files.h"

#include <filesystem>
#include <string>
#include <vector>

/// Running the real program.
namespace Tarvik::PointCollections {

/// The result of a program.
struct Outcome {
  int status = -1; ///< its exit status; -1 if it did not end by itself
  std::string output;
  std::string errors;
};

/// Runs point-collections to its end.
/// @param folder     for the files that its streams are connected to
/// @param arguments  any texts without line breaks
/// @param input      what it reads from standard input
Outcome runProgram(const TemporaryFolder& folder,
                   const std::vector<std::string>& arguments,
                   const std::string& input = {});

/// The folders of the program's samples and of the expected transcripts.
std::filesystem::path samples();
std::filesystem::path transcripts();

}
