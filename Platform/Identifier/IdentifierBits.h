// SPDX-License-Identifier: MIT
#pragma once

#include "PlatformExport.h"

#include <compare>
#include <cstddef>
#include <cstdint>

namespace Tarvik {

/// The 128 bits of an identifier, as one number in two words.
struct IdentifierBits {
  std::uint64_t high = 0; ///< what is written first
  std::uint64_t low = 0;  ///< what differs within a block of new identifiers

  /// Bits that no other call in this or any other process gives, other threads and forked
  /// processes included. They are never all zero, and they carry the version (8) and the variant of
  /// RFC 9562, so that they are a valid UUID as well.
  ///
  /// A thread draws `high` and the start of `low` from the system's source of randomness and then
  /// counts `low` up; after 65,535 identifiers it draws again. Two such blocks share an identifier
  /// with a probability of 2^-106. (A process that is forked past the C library, with `_Fork` or
  /// the bare system call, goes on with the parent's block; start another program there, or none.)
  /// @throws std::system_error when the system has no randomness to give
  TKM_IDENTIFIER_API static IdentifierBits unique();

  /// Compares the low words first: those are the ones that differ within a block.
  friend constexpr bool operator==(const IdentifierBits& a, const IdentifierBits& b)
  {
    return a.low == b.low && a.high == b.high;
  }

  /// The order of the numbers, which is also the order of their text forms.
  // NOLINTNEXTLINE(modernize-use-nullptr): of the code that the compiler writes
  friend constexpr auto operator<=>(const IdentifierBits& a, const IdentifierBits& b) = default;

  /// Whether no bit is set, as in invalid identifiers.
  constexpr bool isZero() const { return (high | low) == 0; }

  /// Spreads all 128 bits over a hash, as hash tables that use its lowest bits need it.
  constexpr std::size_t hash() const
  {
    auto mixed = low ^ (high * 0x9e3779b97f4a7c15U);
    mixed = (mixed ^ mixed >> 32U) * 0xbf58476d1ce4e5b9U;
    mixed ^= mixed >> 32U;
    return static_cast<std::size_t>(mixed);
  }
};

}
