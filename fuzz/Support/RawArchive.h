// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

/// Archives out of any bytes. Their checksums are right: a fuzzer would hardly ever guess one, and
/// so never get behind it.
namespace Tarvik::RawArchive {

using Bytes = std::vector<std::byte>;

/// Whether the bytes begin as an archive does and are long enough to be one.
bool looksLikeOne(std::span<const std::byte> bytes);

/// The archive with the size and the checksum that its bytes ask for; all else is as it was.
/// @param archive  one that looks like one
Bytes mended(std::span<const std::byte> archive);

/// The bytes as the body of an archive.
/// @param classes  the names of those in the class table, which are registered
Bytes around(std::span<const std::byte> body, const std::vector<std::string>& classes);

/// What is not the header, the class table or the checksum.
std::span<const std::byte> bodyOf(std::span<const std::byte> archive);

}
