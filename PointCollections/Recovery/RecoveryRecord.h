// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Editor/Editor.h"

#include <chrono>
#include <cstddef>
#include <span>
#include <string>
#include <vector>

/// Recovery files: unsaved work, as one object of the class "PointRecovery" in an archive. Version
/// 1 contains
///
///     the file that the document was read from, from the root; its title; whether it is a project
///     size and hash of the file then
///     when this was written, in milliseconds since 1970
///     the document as the bytes of a project file, as a text
namespace Tarvik::PointCollections {

/// Unsaved work, and what it belongs to.
struct RecoveryRecord {
  OpenedDocument opened;
  std::chrono::system_clock::time_point written;
};

/// The record as the bytes of a recovery file.
/// @throws UserError as saveProject() does; std::bad_alloc if there is not enough memory
std::vector<std::byte> saveRecovery(const RecoveryRecord& record);

/// The record in a recovery file.
/// @param bytes  of the file; may be anything
/// @param name   what error messages call the file
/// @throws UserError "name, byte 12: ..." if anything is wrong with them, or there is not enough
///         memory
RecoveryRecord loadRecovery(std::span<const std::byte> bytes, const std::string& name);

}
