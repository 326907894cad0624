// SPDX-License-Identifier: MIT
#include "PersistenceArchiver/Crc32c.h"

#include "Platform/Support/Archives.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <random>
#include <span>
#include <string_view>

namespace Tarvik {
namespace {

std::uint32_t crcOfText(std::string_view text)
{
  return crc32c(std::as_bytes(std::span(text)));
}

TEST(Crc32c, IsThatOfTheExamplesOfRfc3720)
{
  Bytes rising;
  Bytes falling;
  for (int i = 0; i < 32; ++i) {
    rising.push_back(static_cast<std::byte>(i));
    falling.push_back(static_cast<std::byte>(31 - i));
  }
  const auto command = fromHex("01 c0 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                               "14 00 00 00 00 00 04 00 00 00 00 14 00 00 00 18 "
                               "28 00 00 00 00 00 00 00 02 00 00 00 00 00 00 00");

  EXPECT_EQ(crc32c(Bytes(32)), 0x8a9136aaU);
  EXPECT_EQ(crc32c(Bytes(32, std::byte{0xff})), 0x62a8ab43U);
  EXPECT_EQ(crc32c(rising), 0x46dd794eU);
  EXPECT_EQ(crc32c(falling), 0x113fdb5cU);
  EXPECT_EQ(crc32c(command), 0xd9963a56U);
}

TEST(Crc32c, IsThatOfKnownTexts)
{
  EXPECT_EQ(crcOfText(""), 0U);
  EXPECT_EQ(crcOfText("a"), 0xc1d04330U);
  EXPECT_EQ(crcOfText("abc"), 0x364b3fb7U);
  EXPECT_EQ(crcOfText("123456789"), 0xe3069283U);
}

TEST(Crc32c, IsThatOfTheDefinitionWhateverTheLengthAndThePlace)
{
  std::mt19937 random(3);
  Bytes bytes(64 + 16);
  for (auto& byte : bytes)
    byte = static_cast<std::byte>(random());

  for (std::size_t start = 0; start < 16; ++start)
    for (std::size_t length = 0; length <= 64; ++length) {
      const auto part = std::span(bytes).subspan(start, length);
      EXPECT_EQ(crc32c(part), bitwiseCrc32c(part)) << length << " bytes from " << start;
    }
}

TEST(Crc32c, IsThatOfTheDefinitionForManyBytes)
{
  std::mt19937 random(5);
  Bytes bytes(120'000);
  for (auto& byte : bytes)
    byte = static_cast<std::byte>(random());
  const auto expectEqual = [&](std::size_t start, std::size_t length) {
    const auto part = std::span(bytes).subspan(start, length);
    EXPECT_EQ(crc32c(part), bitwiseCrc32c(part)) << length << " bytes from " << start;
  };

  // around 4 times 209 blocks of 64 bytes, from which on longer inputs are folded
  for (std::size_t length = 53'504 - 2; length <= 53'504 + 66; ++length)
    expectEqual(length % 9, length);
  for (const std::size_t length : {1'000U, 10'000U, 53'000U, 65'536U, 100'001U, 119'999U})
    expectEqual(1, length);
}

TEST(Crc32c, ChangesWithEveryBitAndEveryRunOfBits)
{
  const Bytes intact(40, std::byte{0x5a});
  const auto crc = crc32c(intact);

  for (std::size_t bit = 0; bit + 32 <= intact.size() * 8; ++bit)
    for (const std::size_t length : {1U, 2U, 7U, 31U, 32U}) {
      auto damaged = intact;
      for (auto i = bit; i < bit + length; ++i)
        damaged[i / 8] ^= static_cast<std::byte>(1U << i % 8);
      EXPECT_NE(crc32c(damaged), crc) << length << " bits from " << bit;
    }
}

TEST(Crc32c, ChangesWithEveryBitOfManyBytes)
{
  Bytes bytes(60'000, std::byte{0x5a});
  const auto crc = crc32c(bytes);

  for (std::size_t place = 0; place < bytes.size(); place += 61)
    for (unsigned int bit = 0; bit < 8; ++bit) {
      bytes[place] ^= static_cast<std::byte>(1U << bit);
      EXPECT_NE(crc32c(bytes), crc) << "byte " << place << ", bit " << bit;
      bytes[place] ^= static_cast<std::byte>(1U << bit);
    }
}

}
}
