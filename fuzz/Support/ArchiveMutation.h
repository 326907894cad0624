// SPDX-License-Identifier: MIT
#pragma once

#include "Support/RawArchive.h"

#include <cstdint>
#include <random>

/// Changes archives where their structure is: in the numbers that say how long something is, how
/// often it comes, what class it has and what it points to.
namespace Tarvik::ArchiveMutation {

using RawArchive::Bytes;

/// The archive with a few changes, and with the right size and checksum.
/// @param archive  bytes that look like an archive
/// @param other    another one, parts of which may be inserted
Bytes mutated(const Bytes& archive, const Bytes& other, std::mt19937_64& random);

}
