// SPDX-License-Identifier: MIT
#include "PersistenceArchiver/LittleEndian.h"

#include "Platform/Support/Bytes.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace Tarvik {
namespace {

/// Stores and loads a number at every place of a word; the bytes beside it are unchanged.
template <class Number>
void expectBytes(Number number, const std::string& bytes)
{
  constexpr std::byte before{0xee};
  for (std::size_t place = 1; place < 9; ++place) {
    Bytes room(24, before);

    storeLittleEndian(room.data() + place, number);

    EXPECT_EQ(hex(std::span(room).subspan(place, sizeof number)), bytes) << place;
    EXPECT_EQ(loadLittleEndian<Number>(room.data() + place), number) << place;
    EXPECT_EQ(room[place + sizeof number], before) << place;
    EXPECT_EQ(room[place - 1], before) << place;
  }
}

TEST(LittleEndian, PutsTheLowestByteFirst)
{
  expectBytes<std::uint8_t>(0xfe, "fe");
  expectBytes<std::int8_t>(-2, "fe");
  expectBytes<std::uint16_t>(0x0102, "02 01");
  expectBytes<std::int16_t>(-2, "fe ff");
  expectBytes<std::uint32_t>(0x01020304, "04 03 02 01");
  expectBytes<std::uint32_t>(0xfffefdfc, "fc fd fe ff");
  expectBytes<std::int32_t>(-0x01020304, "fc fc fd fe");
  expectBytes<std::uint64_t>(0x0102030405060708, "08 07 06 05 04 03 02 01");
  expectBytes<std::int64_t>(-2, "fe ff ff ff ff ff ff ff");
}

}
}
