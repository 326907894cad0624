// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Document/PointDocument.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <vector>

/// Project files (.tkpc): a whole document in an archive, as one object of the class
/// "PointProject". Version 2 contains
///
///     number of elements, in the document's order
///       id, name, number of points
///         x, y, z
///     the list of groups
///     for each group, a byte: 1 if the user left it expanded in a tree, else 0
///
/// Version 1 ends after the list of groups.
///
/// Ids are valid and unique. Names are UTF-8 without NUL; the names of elements are unique and not
/// empty. Coordinates are finite.
namespace Tarvik::PointCollections {

/// How the names of project files end.
constexpr auto projectExtension = ".tkpc";

/// Whether the name ends in the extension, in upper or lower case.
bool isProjectName(const std::filesystem::path& file);

/// The document as the bytes of a project file.
/// @throws UserError if loadProject() would refuse the document, or it is too large; std::bad_alloc
///         if there is not enough memory
std::vector<std::byte> saveProject(PointDocument& document);

/// How many bytes checkProjectStart() needs.
constexpr std::size_t projectStartSize = 20;

/// Refuses by its first bytes what cannot be a project file, before the others are read.
/// @param start  the first projectStartSize bytes; all of them when there are fewer
/// @param size   of the whole file, in bytes
/// @param name   what error messages call the file
/// @throws UserError as loadProject() does
void checkProjectStart(std::span<const std::byte> start,
                       std::uint64_t size,
                       const std::string& name);

/// How many bytes the elements, or the groups, take in a project at most.
std::size_t savedSizeOfElements(const PointDocument& document) noexcept;
std::size_t savedSizeOfGroups(PointDocument& document) noexcept;

/// The document in a project file.
/// @param bytes  of the file; may be anything
/// @param name   what error messages call the file
/// @throws UserError "name, byte 12: ..." if anything is wrong with them, or there is not enough
///         memory
std::shared_ptr<PointDocument> loadProject(std::span<const std::byte> bytes,
                                           const std::string& name);

}
