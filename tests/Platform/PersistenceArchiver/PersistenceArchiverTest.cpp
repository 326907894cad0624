// SPDX-License-Identifier: MIT
#include "PersistenceArchiver/PersistenceArchiver.h"

#include "PersistenceArchiver/ArchiveError.h"
#include "Platform/Support/Bytes.h"
#include "Support/Allocations.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <new>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace Tarvik {
namespace {

/// The bytes of an archive into which the values are written one after the other.
template <class... Values>
std::string written(const Values&... values)
{
  PersistenceArchiver archive;
  (archive << ... << values);
  return hex(archive.bytes());
}

/// What is read from bytes: `read<unsigned int>("04 03 02 01")`.
template <class Value>
Value read(std::string_view hexBytes)
{
  const auto bytes = fromHex(hexBytes);
  PersistenceArchiver archive(bytes);
  Value value{};
  archive >> value;
  return value;
}

TEST(Archive, IsEmptyAtFirst)
{
  const PersistenceArchiver archive;

  EXPECT_EQ(archive.bytes().size(), 0U);
  EXPECT_EQ(archive.tellp(), 0U);
}

TEST(Archive, KeepsAnUnsignedNumberInFourBytesLowestFirst)
{
  EXPECT_EQ(written(0U), "00 00 00 00");
  EXPECT_EQ(written(1U), "01 00 00 00");
  EXPECT_EQ(written(0x01020304U), "04 03 02 01");
  EXPECT_EQ(written(0xfffefdfcU), "fc fd fe ff");
}

TEST(Archive, KeepsALongNumberInEightBytesLowestFirst)
{
  EXPECT_EQ(written(std::uint64_t(0)), "00 00 00 00 00 00 00 00");
  EXPECT_EQ(written(std::uint64_t(0x0102030405060708)), "08 07 06 05 04 03 02 01");
  EXPECT_EQ(written(std::uint64_t(0xfffefdfcfbfaf9f8)), "f8 f9 fa fb fc fd fe ff");
}

TEST(Archive, KeepsATextAsItsLengthAndBytes)
{
  EXPECT_EQ(written(std::string()), "00 00 00 00");
  EXPECT_EQ(written(std::string("Az")), "02 00 00 00 41 7a");
  EXPECT_EQ(written(std::string("\xc3\xbc\0\xff", 4)), "04 00 00 00 c3 bc 00 ff");
  EXPECT_EQ(written(std::string(258, 'x')).substr(0, 14), "02 01 00 00 78");
}

TEST(Archive, KeepsValuesOneBehindTheOther)
{
  PersistenceArchiver archive;

  auto& result = archive << 7U << std::string("A") << std::uint64_t(8);

  EXPECT_EQ(&result, &archive);
  EXPECT_EQ(hex(archive.bytes()), "07 00 00 00 " // the unsigned number
                                  "01 00 00 00 " // the length of the text
                                  "41 "          // the text
                                  "08 00 00 00 00 00 00 00");
}

TEST(Archive, CountsWhatIsWritten)
{
  PersistenceArchiver archive;

  archive << 7U;
  EXPECT_EQ(archive.tellp(), 4U);
  archive << std::uint64_t(8);
  EXPECT_EQ(archive.tellp(), 12U);
  archive << std::string("abc");
  EXPECT_EQ(archive.tellp(), 19U);
  EXPECT_EQ(archive.bytes().size(), 19U);
}

TEST(Archive, ReadsNumbersFromTheirBytes)
{
  EXPECT_EQ(read<unsigned int>("04 03 02 01"), 0x01020304U);
  EXPECT_EQ(read<unsigned int>("ff ff ff ff"), 0xffffffffU);
  EXPECT_EQ(read<unsigned int>("00 00 00 80"), 0x80000000U);
  EXPECT_EQ(read<std::uint64_t>("08 07 06 05 04 03 02 01"), 0x0102030405060708U);
  EXPECT_EQ(read<std::uint64_t>("ff ff ff ff ff ff ff ff"), 0xffffffffffffffffU);
  EXPECT_EQ(read<std::uint64_t>("00 00 00 80 00 00 00 80"), 0x8000000080000000U);
}

TEST(Archive, ReadsTextsFromTheirBytes)
{
  EXPECT_EQ(read<std::string>("00 00 00 00"), "");
  EXPECT_EQ(read<std::string>("02 00 00 00 41 7a"), "Az");
  EXPECT_EQ(read<std::string>("02 00 00 00 41 7a 7a"), "Az");
  EXPECT_EQ(read<std::string>("04 00 00 00 c3 bc 00 ff"), std::string("\xc3\xbc\0\xff", 4));
}

TEST(Archive, ReadsBackWhatWasWritten)
{
  const std::string text(100'000, '\xe4');
  PersistenceArchiver archive;
  archive << 5U << text << std::uint64_t(6) << std::string() << 7U;

  PersistenceArchiver source(archive.bytes());
  unsigned int first = 0;
  std::string second = "a text that was there before";
  std::uint64_t third = 0;
  std::string fourth = "another";
  unsigned int fifth = 0;
  auto& result = source >> first >> second >> third >> fourth >> fifth;

  EXPECT_EQ(&result, &source);
  EXPECT_EQ(first, 5U);
  EXPECT_EQ(second, text);
  EXPECT_EQ(third, 6U);
  EXPECT_EQ(fourth, "");
  EXPECT_EQ(fifth, 7U);
  EXPECT_THROW(source >> fifth, ArchiveError) << "something is left behind the last value";
}

TEST(Archive, IsNotCopied)
{
  static_assert(!std::is_copy_constructible_v<PersistenceArchiver>);
  static_assert(!std::is_copy_assignable_v<PersistenceArchiver>);
  static_assert(!std::is_convertible_v<std::span<const std::byte>, PersistenceArchiver>);
}

// Damage

TEST(Archive, TellsWhereItEndsTooEarly)
{
  const auto complete = fromHex("07 00 00 00 "             // an unsigned number
                                "08 00 00 00 00 00 00 00 " // a long one
                                "03 00 00 00 41 42 43");   // a text
  struct Value {
    std::size_t first; ///< where it starts
    std::size_t needs;
  };
  const std::vector<Value> parts = {{0, 4}, {4, 8}, {12, 4}, {16, 3}};

  for (std::size_t length = 0; length < complete.size(); ++length) {
    PersistenceArchiver archive{std::span(complete).first(length)};
    Value cutOff{};
    for (const auto& part : parts)
      if (part.first <= length)
        cutOff = part;
    const auto expected = "archive, byte " + std::to_string(cutOff.first) + ": expected " +
                          std::to_string(cutOff.needs) + " more bytes, found " +
                          std::to_string(length - cutOff.first) +
                          " before the end; the archive is cut off or damaged";

    unsigned int number = 101;
    std::uint64_t longNumber = 102;
    std::string text = "before";
    try {
      archive >> number >> longNumber >> text;
      ADD_FAILURE() << "read to the end of " << length << " bytes";
    } catch (const ArchiveError& error) {
      EXPECT_EQ(error.position(), cutOff.first) << length << " bytes";
      EXPECT_EQ(error.what(), expected) << length << " bytes";
    }

    EXPECT_EQ(number, length >= 4 ? 7U : 101U) << length << " bytes";
    EXPECT_EQ(longNumber, length >= 12 ? 8U : 102U) << length << " bytes";
    EXPECT_EQ(text, "before") << length << " bytes";
  }
}

TEST(Archive, RefusesALengthBeyondItsEnd)
{
  for (const auto* const bytes : {"ff ff ff ff 41 42 43 44", "fe ff ff ff 41 42 43 44",
                                  "00 00 00 80 41 42 43 44", "05 00 00 00 41 42 43 44"})
    EXPECT_THROW(read<std::string>(bytes), ArchiveError) << bytes;
}

#if !defined(_MSC_VER) // the watch does not reach into DLLs there

TEST(Archive, TakesNoMemoryForALengthBeyondItsEnd)
{
  const auto bytes = fromHex("ff ff ff ff 41 42 43 44");
  PersistenceArchiver archive(bytes);
  std::string text;
  std::size_t largest = 0;
  {
    const AllocationWatch watch;
    EXPECT_THROW(archive >> text, ArchiveError);
    largest = watch.largest();
  }

  EXPECT_LT(largest, 4'096U);
  EXPECT_EQ(text, "");
}

TEST(Archive, LeavesTheTextAsItIsWhenThereIsNoMemoryForTheNewOne)
{
  const auto bytes = fromHex(written(std::string(1000, 'x')));
  PersistenceArchiver archive(bytes);
  std::string text = "before";
  {
    const AllocationWatch watch(0);
    EXPECT_THROW(archive >> text, std::bad_alloc);
  }

  EXPECT_EQ(text, "before");
}

#endif

// The wrong direction

TEST(Archive, DoesNotReadWhatItWrites)
{
  PersistenceArchiver archive;
  archive << 7U << std::uint64_t(8) << std::string("A");
  const auto before = hex(archive.bytes());
  unsigned int number = 1;
  std::uint64_t longNumber = 2;
  std::string text = "before";

  EXPECT_THROW(archive >> number, std::logic_error);
  EXPECT_THROW(archive >> longNumber, std::logic_error);
  EXPECT_THROW(archive >> text, std::logic_error);

  EXPECT_EQ(number, 1U);
  EXPECT_EQ(longNumber, 2U);
  EXPECT_EQ(text, "before");
  EXPECT_EQ(hex(archive.bytes()), before);
}

TEST(Archive, DoesNotWriteWhatItReads)
{
  const auto bytes = fromHex("07 00 00 00");
  PersistenceArchiver archive(bytes);

  EXPECT_THROW(archive << 1U, std::logic_error);
  EXPECT_THROW(archive << std::uint64_t(2), std::logic_error);
  EXPECT_THROW(archive << std::string("A"), std::logic_error);
  EXPECT_THROW(archive << std::string(), std::logic_error);

  EXPECT_EQ(archive.bytes().size(), 0U);
  EXPECT_EQ(archive.tellp(), 0U);
  unsigned int number = 0;
  archive >> number;
  EXPECT_EQ(number, 7U);
}

TEST(Archive, TellsWhatItWasOpenedFor)
{
  PersistenceArchiver writing;
  PersistenceArchiver reading{std::span<const std::byte>()};
  unsigned int number = 0;
  const auto messageOf = [](auto action) -> std::string {
    try {
      action();
    } catch (const std::logic_error& error) {
      return error.what();
    }
    return "allowed";
  };

  EXPECT_EQ(messageOf([&] { writing >> number; }),
            "PersistenceArchiver: this archive was opened for writing");
  EXPECT_EQ(messageOf([&] { reading << number; }),
            "PersistenceArchiver: this archive was opened for reading");
}

}
}
