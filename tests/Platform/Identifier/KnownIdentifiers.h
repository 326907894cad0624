// SPDX-License-Identifier: MIT
#pragma once

#include "Identifier/IdentifierBits.h"

#include <cstdint>

/// Identifiers whose bits a test knows.
namespace Tarvik {

constexpr IdentifierBits knownBits{0x0123456789abcdef, 0xfedcba9876543210};

template <class T>
T withBits(std::uint64_t high, std::uint64_t low)
{
  return T(IdentifierBits{high, low});
}

}
