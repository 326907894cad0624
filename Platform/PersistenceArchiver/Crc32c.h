// SPDX-License-Identifier: MIT
#pragma once

#include "PlatformExport.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace Tarvik {

/// The CRC-32C (Castagnoli) checksum of the bytes, as in RFC 3720: polynomial 0x1EDC6F41 reflected,
/// all ones at the start, inverted at the end. "123456789" has 0xE3069283.
///
/// It finds every change of up to 32 bits in a row, and every single flipped bit.
TKM_PERSISTENCEARCHIVER_API std::uint32_t crc32c(std::span<const std::byte> bytes) noexcept;

}
