// SPDX-License-Identifier: MIT
#include "PersistenceArchiver/Crc32c.h"

#include "PersistenceArchiver/LittleEndian.h"

#include <array>
#include <cstring>
#include <utility>

namespace Tarvik {

namespace {

constexpr std::uint32_t reflectedPolynomial = 0x82F63B78U;
constexpr std::size_t sliceCount = 16;

using Table = std::array<std::uint32_t, 256>;

/// tables[k][b]: what byte b contributes when k more bytes follow it in the same step.
constexpr std::array<Table, sliceCount> makeTables()
{
  std::array<Table, sliceCount> tables{};
  for (std::uint32_t byte = 0; byte < 256; ++byte) {
    auto remainder = byte;
    for (int bit = 0; bit < 8; ++bit)
      remainder = remainder >> 1U ^ ((remainder & 1U) != 0 ? reflectedPolynomial : 0U);
    tables[0][byte] = remainder;
  }
  for (std::size_t slice = 1; slice < sliceCount; ++slice)
    for (std::size_t byte = 0; byte < 256; ++byte) {
      const auto previous = tables[slice - 1][byte];
      tables[slice][byte] = previous >> 8U ^ tables[0][previous & 0xFFU];
    }
  return tables;
}

constexpr auto tables = makeTables();

/// What four bytes contribute when `following` more bytes follow them in the same step.
inline std::uint32_t slice(std::uint32_t word, std::size_t following)
{
  return tables[following + 3][word & 0xFFU] ^ tables[following + 2][word >> 8U & 0xFFU] ^
         tables[following + 1][word >> 16U & 0xFFU] ^ tables[following][word >> 24U];
}

std::uint32_t proceed(std::uint32_t crc, std::span<const std::byte> bytes)
{
  // Sixteen bytes in one step: the look-ups do not wait for one another.
  for (; bytes.size() >= sliceCount; bytes = bytes.subspan(sliceCount)) {
    const auto* const place = bytes.data();
    crc = slice(crc ^ loadLittleEndian<std::uint32_t>(place), 12) ^
          slice(loadLittleEndian<std::uint32_t>(place + 4), 8) ^
          slice(loadLittleEndian<std::uint32_t>(place + 8), 4) ^
          slice(loadLittleEndian<std::uint32_t>(place + 12), 0);
  }
  for (const auto byte : bytes)
    crc = crc >> 8U ^ tables[0][(crc ^ std::to_integer<std::uint32_t>(byte)) & 0xFFU];
  return crc;
}

// Long inputs are folded to a short one that has the same remainder, with nothing but exclusive
// ors (the method of Sam Russell, "Chorba: A novel CRC32 implementation", arXiv:2412.16398).
//
// The polynomial divides
//   x^209 + x^144 + x^54 + x^39 + x^14 + 1
// A search of all sums of powers up to 209 gave this one: no other sum of six powers or fewer with
// so low a degree is a multiple of the polynomial. Squaring a sum modulo 2 doubles its exponents,
// so the polynomial also divides the same sum of powers of x^512, and a block of 64 bytes shifts by
// x^512. A block can therefore be left out when it is added to the blocks that come 209, 209 - 14,
// 209 - 39, 209 - 54 and 209 - 144 places after it.
constexpr std::size_t foldDistance = 209;
constexpr std::array<std::size_t, 5> lowerPowers = {0, 14, 39, 54, 144};

constexpr std::uint32_t remainderOfPower(std::size_t exponent)
{
  std::uint32_t remainder = 0x80000000U; // 1: the highest bit is the lowest power
  for (; exponent > 0; --exponent)
    remainder = remainder >> 1U ^ ((remainder & 1U) != 0 ? reflectedPolynomial : 0U);
  return remainder;
}

constexpr bool isMultipleOfPolynomial()
{
  auto remainder = remainderOfPower(foldDistance);
  for (const auto power : lowerPowers)
    remainder ^= remainderOfPower(power);
  return remainder == 0;
}

static_assert(isMultipleOfPolynomial());

using Block = std::array<std::uint64_t, 8>;
constexpr std::size_t windowSize = 256; ///< a power of two above foldDistance
constexpr std::size_t leastFolded = 4 * foldDistance * sizeof(Block);

/// As proceed(), for whole blocks, more than foldDistance of them.
std::uint32_t proceedFolded(std::uint32_t crc, std::span<const std::byte> blocks)
{
  std::array<Block, windowSize> window{}; // the blocks that were left out, by place
  const auto count = blocks.size() / sizeof(Block);
  const auto end = count - foldDistance;
  for (std::size_t i = 0; i < count; ++i) {
    Block block;
    std::memcpy(&block, blocks.data() + i * sizeof block, sizeof block);
    if (i == 0)
      storeLittleEndian(std::as_writable_bytes(std::span(block)).data(),
                        std::exchange(crc, 0) ^ loadLittleEndian<std::uint32_t>(blocks.data()));

    const auto& a = window[(i - foldDistance + lowerPowers[0]) % windowSize];
    const auto& b = window[(i - foldDistance + lowerPowers[1]) % windowSize];
    const auto& c = window[(i - foldDistance + lowerPowers[2]) % windowSize];
    const auto& d = window[(i - foldDistance + lowerPowers[3]) % windowSize];
    const auto& e = window[(i - foldDistance + lowerPowers[4]) % windowSize];
    for (std::size_t k = 0; k < block.size(); ++k)
      block[k] ^= a[k] ^ b[k] ^ c[k] ^ d[k] ^ e[k];

    const bool isLeftOut = i < end;
    if (!isLeftOut)
      crc = proceed(crc, std::as_bytes(std::span(block)));
    window[i % windowSize] = isLeftOut ? block : Block{};
  }
  return crc;
}

}

std::uint32_t crc32c(std::span<const std::byte> bytes) noexcept
{
  auto crc = 0xFFFFFFFFU;
  if (bytes.size() >= leastFolded) {
    const auto blocks = bytes.first(bytes.size() - bytes.size() % sizeof(Block));
    crc = proceedFolded(crc, blocks);
    bytes = bytes.subspan(blocks.size());
  }
  return ~proceed(crc, bytes);
}

}
