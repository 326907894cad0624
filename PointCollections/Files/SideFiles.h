// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

/// The files that programs for point collections make beside a document's file F, and what they are
/// called. All names start with ".point-collections-" and 16 digits that stand for the name of F.
///
///     ….lock                 held while a program saves in F; see DiskLock
///     ….123-0a1b….tmp        what process 123 has not finished writing
///     ….123-0a1b….recovery   what process 123 has not saved; see Recovery
///
/// A program removes its own ones before it ends, unless it is killed.
namespace Tarvik::PointCollections::SideFiles {

/// The file that the links lead to; it need not exist.
/// @throws std::system_error if there are too many links or one cannot be read
std::filesystem::path followed(std::filesystem::path file);

/// The start of the names for a file. Upper and lower case ASCII letters are the same.
/// @param name  the name of the file; not its folders, unless files of several folders come
/// together
std::string startOfNames(std::string name);

/// The lock for saving in a file.
std::filesystem::path saveLock(const std::filesystem::path& file);

/// A new name for what will replace the file.
std::filesystem::path newUnfinished(const std::filesystem::path& file);

/// A new name in the folder, with this process and an ending.
/// @param start  of startOfNames()
std::filesystem::path
newName(const std::filesystem::path& folder, const std::string& start, const std::string& ending);

/// Removes what programs have not finished writing for the file. Call it while you hold the lock
/// for saving in the file: then those programs are gone. What cannot be removed stays.
void removeUnfinished(const std::filesystem::path& file);

/// Whether there is anything to remove.
bool hasUnfinished(const std::filesystem::path& file);

}
