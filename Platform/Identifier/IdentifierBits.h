// SPDX-License-Identifier: MIT
#pragma once

#include "Identifier/WideProduct.h"
#include "PlatformExport.h"

#include <bit>
#include <compare>
#include <cstddef>
#include <cstdint>

namespace Tarvik {

/// The 128 bits of an identifier, as one number in two words.
struct IdentifierBits {
  std::uint64_t high = 0; ///< the half that is written first
  std::uint64_t low = 0;  ///< the half that differs within a block of new identifiers

  /// New bits. No other call returns the same ones: not in this process, nor in any other,
  /// including other threads and forked processes. They are never all zero. They are a valid UUID
  /// of version 8 (RFC 9562).
  ///
  /// A thread reads `high` and the start of `low` from the system's source of randomness, then
  /// counts `low` up; after 65,535 identifiers it reads again. Two such blocks share an identifier
  /// with a probability of 2^-106.
  ///
  /// A process forked without the C library (with `_Fork` or the bare system call) continues the
  /// parent's block. Create no identifiers there.
  /// @throws std::system_error when the system has no randomness to give
  TKM_IDENTIFIER_API static IdentifierBits unique();

  /// Compares the low words first: within a block only those differ.
  friend constexpr bool operator==(const IdentifierBits& a, const IdentifierBits& b)
  {
    return a.low == b.low && a.high == b.high;
  }

  /// The order of the numbers, and of their text forms.
  // NOLINTNEXTLINE(modernize-use-nullptr): found in the code that the compiler generates
  friend constexpr auto operator<=>(const IdentifierBits& a, const IdentifierBits& b) = default;

  /// Whether no bit is set, as in the invalid identifier.
  constexpr bool isZero() const { return (high | low) == 0; }

  /// A hash in which every bit counts, even for hash tables that use only its lowest bits. It
  /// depends on the random seed of this process, so never save it. Without the seed nobody can
  /// prepare a file whose identifiers all have the same hash.
  std::size_t hash() const { return hash({seedHigh, seedLow}); }

  /// The same with a given seed. Folding the product of both words is how wyhash mixes
  /// (https://github.com/wangyi-fudan/wyhash).
  constexpr std::size_t hash(const IdentifierBits& ofSeed) const
  {
    constexpr std::uint64_t goldenRatio = 0x9e3779b97f4a7c15; // 2^64 divided by it, made odd
    const auto product = WideProduct::of(low ^ ofSeed.low, high ^ ofSeed.high);
    const auto mixed = (product.high ^ product.low) * goldenRatio;
    return static_cast<std::size_t>(std::rotl(mixed, 32)); // the upper half is the better mixed one
  }

  /// A hash that costs nothing: the word that differs within a block. Anybody can predict it, so
  /// use it only where equal hashes cost a little time.
  constexpr std::size_t quickHash() const { return static_cast<std::size_t>(low); }

  /// One half of the random seed of this process, which is set while the library is loaded.
  TKM_IDENTIFIER_API static const std::uint64_t seedHigh;
  /// The other half.
  TKM_IDENTIFIER_API static const std::uint64_t seedLow;
};

}
