// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Recovery/RecoveryFile.h"
#include "PointCollections/Recovery/RecoveryRecord.h"
#include "PointCollections/Recovery/StateFolder.h"

#include <filesystem>
#include <string>
#include <vector>

namespace Tarvik::PointCollections {

/// Work that a program could not save before it ended, found on the disk. While this lives, no
/// other program finds it. Unless remove() is called, or a Recovery adopts it, it can be found
/// again.
struct UnsavedWork {
  /// What has become of the document's file since the work was written.
  enum class FileSince {
    Same,
    Changed, ///< whoever goes on with the work loses sight of those changes
    Gone
  };

  RecoveryFile file;
  RecoveryRecord record;
  FileSince fileSince = FileSince::Same;

  void remove() { file.remove(); }
};

/// What was found for a file.
struct FoundWork {
  std::vector<UnsavedWork> works;    ///< the newest first
  std::vector<std::string> mistakes; ///< why others could not be read; they stay on the disk
};

/// Looks for unsaved work on the document in a file. Work of programs that still run is not found.
/// @param files  where the document's own file is read
FoundWork findUnsavedWork(Files& files,
                          const std::filesystem::path& file,
                          const std::filesystem::path& stateFolder = defaultStateFolder());

/// The work in a few words: "2 elements with 4 points in 1 group, written on 2026-02-28 at
/// 13:59:00; the file has been changed since".
std::string summaryOf(const UnsavedWork& work);

}
