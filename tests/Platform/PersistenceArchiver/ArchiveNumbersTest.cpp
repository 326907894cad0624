// SPDX-License-Identifier: MIT
#include "PersistenceArchiver/PersistenceArchiver.h"

#include "Platform/Support/Archives.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace Tarvik {
namespace {

/// Whether `archive << value` compiles.
template <class Value>
concept Writable = requires(PersistenceArchiver& archive, const Value& value)
{
  archive << value;
};

template <class Value>
concept Readable = requires(PersistenceArchiver& archive, Value& value)
{
  archive >> value;
};

template <class Number>
struct KnownNumber {
  Number number;
  std::string bytes;
};

/// Each number is written as these bytes, and they are read as this number.
template <class Number>
void expectBytes(const std::vector<KnownNumber<Number>>& known)
{
  for (const auto& [number, bytes] : known) {
    EXPECT_EQ(written(number), bytes) << +number;
    EXPECT_EQ(loadedFrom<Number>(archiveAround(bytes)), number) << bytes;
  }
}

TEST(ArchivedNumbers, OfOneByteAreWrittenAsTheyAre)
{
  expectBytes<std::uint8_t>({{0, "00"}, {1, "01"}, {0x7f, "7f"}, {0x80, "80"}, {0xff, "ff"}});
  expectBytes<std::int8_t>({{0, "00"}, {1, "01"}, {127, "7f"}, {-128, "80"}, {-1, "ff"}});
}

TEST(ArchivedNumbers, OfTwoBytesHaveTheirLowestByteFirst)
{
  expectBytes<std::uint16_t>(
      {{0, "00 00"}, {1, "01 00"}, {0x0102, "02 01"}, {0x8000, "00 80"}, {0xffff, "ff ff"}});
  expectBytes<std::int16_t>(
      {{0, "00 00"}, {0x0102, "02 01"}, {32767, "ff 7f"}, {-32768, "00 80"}, {-2, "fe ff"}});
}

TEST(ArchivedNumbers, OfFourBytesHaveTheirLowestByteFirst)
{
  expectBytes<std::uint32_t>({{0, "00 00 00 00"},
                              {1, "01 00 00 00"},
                              {0x01020304, "04 03 02 01"},
                              {0x80000000, "00 00 00 80"},
                              {0xfffefdfc, "fc fd fe ff"},
                              {0xffffffff, "ff ff ff ff"}});
  expectBytes<std::int32_t>({{0, "00 00 00 00"},
                             {0x01020304, "04 03 02 01"},
                             {2147483647, "ff ff ff 7f"},
                             {std::numeric_limits<std::int32_t>::min(), "00 00 00 80"},
                             {-2, "fe ff ff ff"}});
}

TEST(ArchivedNumbers, OfEightBytesHaveTheirLowestByteFirst)
{
  expectBytes<std::uint64_t>({{0, "00 00 00 00 00 00 00 00"},
                              {1, "01 00 00 00 00 00 00 00"},
                              {0x0102030405060708, "08 07 06 05 04 03 02 01"},
                              {0x8000000000000000, "00 00 00 00 00 00 00 80"},
                              {0xfffefdfcfbfaf9f8, "f8 f9 fa fb fc fd fe ff"},
                              {0xffffffffffffffff, "ff ff ff ff ff ff ff ff"}});
  expectBytes<std::int64_t>({{0, "00 00 00 00 00 00 00 00"},
                             {0x0102030405060708, "08 07 06 05 04 03 02 01"},
                             {std::numeric_limits<std::int64_t>::max(), "ff ff ff ff ff ff ff 7f"},
                             {std::numeric_limits<std::int64_t>::min(), "00 00 00 00 00 00 00 80"},
                             {-2, "fe ff ff ff ff ff ff ff"}});
}

TEST(ArchivedNumbers, AreBooleansInOneByte)
{
  expectBytes<bool>({{false, "00"}, {true, "01"}});
}

TEST(ArchivedNumbers, AreNoBooleansBeyondZeroAndOne)
{
  for (int value = 2; value < 256; ++value) {
    const auto archive = archiveAround(Bytes{std::byte{1}, static_cast<std::byte>(value)});
    PersistenceArchiver source(archive);
    bool first = false;
    bool second = false;

    EXPECT_EQ(refusalOf([&] { source >> first >> second; }),
              "archive, byte 21: expected 0 or 1, found " + std::to_string(value) +
                  "; the archive is damaged");
    EXPECT_TRUE(first);
    EXPECT_FALSE(second);
  }
}

TEST(ArchivedNumbers, WithAFractionAreTheBitsOfIeee754)
{
  expectBytes<double>({{0.0, "00 00 00 00 00 00 00 00"},
                       {1.0, "00 00 00 00 00 00 f0 3f"},
                       {-2.5, "00 00 00 00 00 00 04 c0"},
                       {0.1, "9a 99 99 99 99 99 b9 3f"},
                       {std::numeric_limits<double>::max(), "ff ff ff ff ff ff ef 7f"},
                       {std::numeric_limits<double>::denorm_min(), "01 00 00 00 00 00 00 00"},
                       {std::numeric_limits<double>::infinity(), "00 00 00 00 00 00 f0 7f"},
                       {-std::numeric_limits<double>::infinity(), "00 00 00 00 00 00 f0 ff"}});
}

TEST(ArchivedNumbers, KeepTheBitsThatComparisonsDoNotSee)
{
  for (const std::uint64_t bits : {0x8000000000000000U, 0x7ff8000000000000U, 0xfff8000000000001U,
                                   0x7fffffffffffffffU, 0x7ff8123456789abcU}) {
    const auto bytes = written(bits);

    EXPECT_EQ(written(std::bit_cast<double>(bits)), bytes);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(loadedFrom<double>(archiveAround(bytes))), bits);
  }
}

TEST(ArchivedNumbers, FollowOneAnotherWithoutGaps)
{
  PersistenceArchiver archive;

  auto& result = archive << true << std::uint32_t{0x01020304} << std::int8_t{-1} << std::uint64_t{5}
                         << std::uint16_t{0x0607};

  EXPECT_EQ(&result, &archive);
  EXPECT_EQ(archive.tellp(), bodyStart + 16);
  EXPECT_EQ(bodyOf(archive), "01 04 03 02 01 ff 05 00 00 00 00 00 00 00 07 06");
}

TEST(ArchivedNumbers, AreReadBackInTheirOrder)
{
  const auto archive = archived(false, 7U, std::int64_t{-8}, 2.5, std::uint8_t{9});
  PersistenceArchiver source(archive);
  bool truth = true;
  unsigned int number = 0;
  std::int64_t longNumber = 0;
  double fraction = 0;
  std::uint8_t byte = 0;

  auto& result = source >> truth >> number >> longNumber >> fraction >> byte;

  EXPECT_EQ(&result, &source);
  EXPECT_FALSE(truth);
  EXPECT_EQ(number, 7U);
  EXPECT_EQ(longNumber, -8);
  EXPECT_EQ(fraction, 2.5);
  EXPECT_EQ(byte, 9);
  EXPECT_TRUE(source.isAtEnd());
}

TEST(ArchivedNumbers, OfAFixedCountAreWrittenWithoutIt)
{
  EXPECT_EQ(written(std::array<std::uint64_t, 2>{1, 2}),
            "01 00 00 00 00 00 00 00 02 00 00 00 00 00 00 00");
  EXPECT_EQ(written(std::array<std::int16_t, 3>{-1, 2, 3}), "ff ff 02 00 03 00");
  EXPECT_EQ(written(std::array<bool, 2>{true, false}), "01 00");
  EXPECT_EQ(written(std::array<double, 1>{1.0}), "00 00 00 00 00 00 f0 3f");

  EXPECT_EQ((loadedFrom<std::array<std::int16_t, 3>>(archiveAround("ff ff 02 00 03 00"))),
            (std::array<std::int16_t, 3>{-1, 2, 3}));
  EXPECT_EQ((loadedFrom<std::array<bool, 2>>(archiveAround("01 00"))),
            (std::array<bool, 2>{true, false}));
}

TEST(ArchivedNumbers, StayAsTheyAreWhenTheArchiveEndsBefore)
{
  const auto expectUnchanged = [](auto before) {
    for (std::size_t length = 0; length < sizeof before; ++length) {
      const auto archive = archiveAround(Bytes(length));
      PersistenceArchiver source(archive);
      auto number = before;

      EXPECT_EQ(refusalOf([&] { source >> number; }),
                "archive, byte 20: expected " + std::to_string(sizeof before) +
                    (sizeof before == 1 ? " byte" : " bytes") + " more, found " +
                    std::to_string(length) + (length == 1 ? " byte" : " bytes") +
                    " before the end of the archive; the archive is damaged");
      EXPECT_EQ(number, before);
    }
  };

  expectUnchanged(std::uint8_t{5});
  expectUnchanged(std::int16_t{5});
  expectUnchanged(5U);
  expectUnchanged(std::int64_t{5});
  expectUnchanged(true);
  expectUnchanged(2.5);
  expectUnchanged(std::array<std::uint64_t, 2>{5, 6});
}

TEST(ArchivedNumbers, AreOfTheSameSizeOnEveryMachine)
{
  static_assert(Writable<std::int8_t> && Writable<std::uint8_t> && Writable<std::int16_t> &&
                Writable<std::uint16_t> && Writable<std::int32_t> && Writable<std::uint32_t> &&
                Writable<std::int64_t> && Writable<std::uint64_t> && Writable<bool> &&
                Writable<double> && Writable<unsigned int>);

  enum Plain : std::uint8_t { One };
  enum class Scoped : std::uint8_t { One };
  static_assert(!Writable<char> && !Writable<wchar_t> && !Writable<float> &&
                !Writable<long double> && !Writable<Plain> && !Writable<Scoped>);
  static_assert(!Readable<char> && !Readable<wchar_t> && !Readable<float> &&
                !Readable<long double> && !Readable<Plain> && !Readable<Scoped>);
  // the one of long and long long that is not std::int64_t, though perhaps of the same size
  using Other = std::conditional_t<std::is_same_v<std::int64_t, long>, long long, long>;
  static_assert(!Writable<Other> && !Readable<Other>);
  static_assert(!Writable<std::make_unsigned_t<Other>>);
}

}
}
