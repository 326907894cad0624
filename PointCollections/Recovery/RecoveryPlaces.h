// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Editor/Editor.h"

#include <filesystem>
#include <string>
#include <vector>

namespace Tarvik::PointCollections {

/// A folder for recovery files, and how the names of those of a document start there.
struct RecoveryPlace {
  std::filesystem::path folder;
  std::string start;
  bool isOwn = false; ///< the folder is only for programs of this kind, and may have to be made
};

/// How the names of recovery files end, and those of the locks that their owners hold.
constexpr auto recoveryEnding = ".recovery";
constexpr auto recoveryLockEnding = ".lock";

/// The places for a document that was read from the file, the best one first: beside the file, if
/// it is a project, and then in the state folder.
/// @param file         may be empty
/// @param stateFolder  empty if there is none
std::vector<RecoveryPlace> recoveryPlaces(const std::filesystem::path& file,
                                          const std::filesystem::path& stateFolder);

}
