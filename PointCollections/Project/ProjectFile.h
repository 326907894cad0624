// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Document/PointDocument.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <vector>

/// Project files (.tkpc): the whole of a document in an archive, as one object of the class
/// "PointProject". Version 1 of it holds
///
///     number of elements, in the document's order
///       id, name, number of points
///         x, y, z
///     the list of groups
///
/// Ids are valid and stand for one element or group each. Names are UTF-8 without NUL; those of
/// elements are not empty, and each is the name of one element. Coordinates are finite.
namespace Tarvik::PointCollections {

/// What the names of project files end in.
constexpr auto projectExtension = ".tkpc";

/// Whether the name ends in the extension, in whatever case.
bool isProjectName(const std::filesystem::path& file);

/// The bytes of a project file with the document in it.
/// @throws UserError when the document is not one that loadProject() would take, or too large
std::vector<std::byte> saveProject(PointDocument& document);

/// The document in the bytes of a project file; they may be any.
/// @param name  what error messages call the file
/// @throws UserError "name, byte 12: ..." when anything is not as it must be, or the memory does
///         not suffice
std::shared_ptr<PointDocument> loadProject(std::span<const std::byte> bytes,
                                           const std::string& name);

}
