// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

/// The numbers of archive format version 1. docs/archive-format.md describes the bytes: change
/// both together.
namespace Tarvik::ArchiveFormat {

/// The first bytes of every archive.
inline constexpr std::array<unsigned char, 8> magic = {0x89, 'T', 'K', 'M', '\r', '\n', 0x1A, '\n'};

/// The only format version so far.
inline constexpr unsigned int version = 1;

/// Lengths, counts, positions, hashes and the numbers of shared objects are words.
inline constexpr std::size_t wordSize = 4;
inline constexpr std::size_t greatestWord = 0xFFFFFFFF; ///< a word has no sign

inline constexpr std::size_t versionPlace = magic.size();         ///< of the format version
inline constexpr std::size_t sizePlace = versionPlace + wordSize; ///< of the archive's size
inline constexpr std::size_t tablePlace = sizePlace + wordSize;   ///< of the table's position
inline constexpr std::size_t headerSize = tablePlace + wordSize;  ///< the body follows

inline constexpr std::size_t frameHeaderSize = 2 * wordSize;     ///< length and class hash
inline constexpr std::size_t leastTableEntrySize = 3 * wordSize; ///< one with an empty name
inline constexpr std::size_t checksumSize = wordSize;            ///< the archive ends with it

inline constexpr std::size_t leastArchiveSize =
    headerSize + wordSize + checksumSize; ///< one with an empty body and class table
inline constexpr std::size_t greatestArchiveSize = greatestWord; ///< positions are words
inline constexpr std::size_t greatestCount = greatestWord; ///< of a list's elements, a text's bytes
inline constexpr std::size_t greatestDepth = 250; ///< of frames in frames: each uses some stack

/// The number of the shared object that a null pointer points to.
inline constexpr std::uint32_t noObject = 0;

}
