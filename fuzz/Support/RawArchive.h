// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

/// Archives from arbitrary bytes, with a right checksum: a fuzzer would hardly ever guess one, and
/// so never reach the rest.
namespace Tarvik::RawArchive {

using Bytes = std::vector<std::byte>;

/// Whether the bytes begin like an archive and are long enough to be one.
bool looksLikeOne(std::span<const std::byte> bytes);

/// The archive with the right size and checksum; the rest is unchanged.
/// @param archive  bytes that look like one
Bytes repaired(std::span<const std::byte> archive);

/// The bytes as the body of an archive.
/// @param classes  the names in the class table, all of registered classes
Bytes around(std::span<const std::byte> body, const std::vector<std::string>& classes);

/// The bytes between the header and the class table.
std::span<const std::byte> bodyOf(std::span<const std::byte> archive);

}
