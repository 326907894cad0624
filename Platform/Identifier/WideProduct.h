// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace Tarvik {

/// The product of two words, which has 128 bits.
struct WideProduct {
  std::uint64_t high; ///< the upper 64 bits
  std::uint64_t low;  ///< the lower 64 bits

  /// The product, computed with the processor's own instruction where the compiler offers it.
  static constexpr WideProduct of(std::uint64_t a, std::uint64_t b)
  {
#if defined(__SIZEOF_INT128__)
    __extension__ using Wide = unsigned __int128;
    const auto product = static_cast<Wide>(a) * b;
    return {static_cast<std::uint64_t>(product >> 64U), static_cast<std::uint64_t>(product)};
#else
    return ofHalves(a, b);
#endif
  }

  /// The same, computed from the products of half words, as in long multiplication.
  static constexpr WideProduct ofHalves(std::uint64_t a, std::uint64_t b)
  {
    constexpr std::uint64_t half = 0xFFFFFFFF;
    const auto low = (a & half) * (b & half);
    const auto first = (a >> 32U) * (b & half) + (low >> 32U);
    const auto second = (a & half) * (b >> 32U) + (first & half);
    return {(a >> 32U) * (b >> 32U) + (first >> 32U) + (second >> 32U),
            (second << 32U) | (low & half)};
  }
};

}
