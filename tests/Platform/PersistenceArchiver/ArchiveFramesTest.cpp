// SPDX-License-Identifier: MIT
#include "PersistenceArchiver/PersistenceArchiver.h"

#include "Platform/Support/ArchivedClasses.h"
#include "Platform/Support/Archives.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace Tarvik {
namespace {

constexpr std::size_t greatestDepth = 250;
constexpr unsigned int someHash = 0x12345678;

/// Opens a frame at the write position.
unsigned int start(PersistenceArchiver& archive, unsigned int classHash = someHash)
{
  const auto place = static_cast<unsigned int>(archive.tellp() + 4);
  archive.mark_object_start(place, classHash);
  return place;
}

void end(PersistenceArchiver& archive, unsigned int place)
{
  archive.mark_object_end(place, static_cast<unsigned int>(archive.tellp()));
}

/// What is known of a frame that was entered.
struct Entered {
  unsigned int address = 0;
  unsigned int marker = 0;
  unsigned int classHash = 0;
};

Entered enter(PersistenceArchiver& archive)
{
  Entered entered;
  archive.read_to_address_header(entered.address, entered.marker);
  archive >> entered.classHash;
  return entered;
}

TEST(ArchiveFrames, AreTheirLengthAndClassHash)
{
  PersistenceArchiver archive;

  const auto place = start(archive);
  archive << std::uint16_t{0x0506};
  end(archive, place);

  EXPECT_EQ(bodyOf(archive), "06 00 00 00 78 56 34 12 06 05");
}

TEST(ArchiveFrames, MayBeInFramesAndBesideThem)
{
  PersistenceArchiver archive;

  const auto outer = start(archive, 1);
  archive << std::uint8_t{0xa1};
  const auto inner = start(archive, 2);
  archive << std::uint8_t{0xa2};
  end(archive, inner);
  archive << std::uint8_t{0xa3};
  end(archive, outer);
  const auto next = start(archive, 3);
  end(archive, next);

  EXPECT_EQ(bodyOf(archive), "0f 00 00 00 01 00 00 00 a1 "
                             "05 00 00 00 02 00 00 00 a2 "
                             "a3 "
                             "04 00 00 00 03 00 00 00");
}

TEST(ArchiveFrames, AreReadFromWithin)
{
  const auto archive = archiveAround("09 00 00 00 78 56 34 12 01 00 00 00 a1 07 00 00 00");
  PersistenceArchiver source(archive);
  unsigned int number = 0;
  std::uint8_t byte = 0;

  const auto frame = enter(source);
  EXPECT_EQ(frame.address, bodyStart + 4);
  EXPECT_EQ(frame.classHash, someHash);
  source >> number >> byte;
  EXPECT_EQ(number, 1U);
  EXPECT_EQ(byte, 0xa1);
  EXPECT_TRUE(source.isAtEnd());
  source.end_read_to_address(frame.marker);

  EXPECT_FALSE(source.isAtEnd());
  source >> number;
  EXPECT_EQ(number, 7U);
  EXPECT_TRUE(source.isAtEnd());
}

TEST(ArchiveFrames, AreSkippedToTheirEnd)
{
  const auto archive = archiveAround("14 00 00 00 01 00 00 00 a1 "
                                     "07 00 00 00 02 00 00 00 a2 a2 a2 "
                                     "a3 a4 a5 a6 "
                                     "07 00 00 00");
  for (const bool alsoInner : {false, true}) {
    PersistenceArchiver source(archive);
    unsigned int number = 0;

    const auto outer = enter(source);
    if (alsoInner) {
      std::uint8_t byte = 0;
      source >> byte;
      const auto inner = enter(source);
      EXPECT_EQ(inner.classHash, 2U);
      source.end_read_to_address(inner.marker);
      source >> byte;
      EXPECT_EQ(byte, 0xa3);
    }
    source.end_read_to_address(outer.marker);
    source >> number;

    EXPECT_EQ(number, 7U);
  }
}

TEST(ArchiveFrames, AreNotReadBeyondTheirEnd)
{
  const auto archive = archiveAround("06 00 00 00 78 56 34 12 a1 a2 07 00 00 00");
  PersistenceArchiver source(archive);
  unsigned int number = 5;

  enter(source);

  EXPECT_EQ(refusalOf([&] { source >> number; }),
            "archive, byte 28: expected 4 bytes more, found 2 bytes before the end of the object; "
            "the archive is damaged");
  EXPECT_EQ(number, 5U);
}

TEST(ArchiveFrames, DoNotReachBeyondWhatContainsThem)
{
  for (const std::uint32_t length : {0U, 1U, 3U, 9U, 0x7fffffffU, 0x80000000U, 0xffffffffU}) {
    const auto archive = archiveAround(wordText(length) + " 78 56 34 12 a1 a2 a3 a4");
    PersistenceArchiver source(archive);

    EXPECT_EQ(refusalOf([&] { enter(source); }),
              "archive, byte 20: expected the length of an object, 4 to 8 bytes, found " +
                  std::to_string(length) + "; the archive is damaged");
  }
}

TEST(ArchiveFrames, DoNotReachBeyondTheFrameAround)
{
  const auto archive = archiveAround("0c 00 00 00 01 00 00 00 "
                                     "05 00 00 00 02 00 00 00 "
                                     "a1 a2 a3");
  PersistenceArchiver source(archive);

  enter(source);

  EXPECT_EQ(refusalOf([&] { enter(source); }),
            "archive, byte 28: expected the length of an object, 4 to 4 bytes, found 5; the "
            "archive is damaged");
}

TEST(ArchiveFrames, MayBeNestedToADepthThatEveryStackCanTake)
{
  PersistenceArchiver archive;
  std::vector<unsigned int> starts;
  for (std::size_t i = 0; i < greatestDepth; ++i)
    starts.push_back(start(archive));
  archive << std::uint8_t{0xa1};
  for (; !starts.empty(); starts.pop_back())
    end(archive, starts.back());

  const auto bytes = archive.finish();
  PersistenceArchiver source(bytes);
  std::vector<unsigned int> markers;
  for (std::size_t i = 0; i < greatestDepth; ++i)
    markers.push_back(enter(source).marker);
  std::uint8_t byte = 0;
  source >> byte;
  for (; !markers.empty(); markers.pop_back())
    source.end_read_to_address(markers.back());

  EXPECT_EQ(byte, 0xa1);
  EXPECT_TRUE(source.isAtEnd());
}

TEST(ArchiveFrames, AreNotWrittenAnyDeeper)
{
  PersistenceArchiver archive;
  for (std::size_t i = 0; i < greatestDepth; ++i)
    start(archive);

  EXPECT_EQ(refusalOf([&] { start(archive); }),
            "archive, byte " + std::to_string(bodyStart + greatestDepth * 8 + 4) +
                ": expected objects in objects at most 250 deep, found one more");
}

TEST(ArchiveFrames, AreNotReadAnyDeeper)
{
  Bytes body;
  for (std::size_t depth = 0; depth <= greatestDepth; ++depth) {
    appendWord(body, static_cast<std::uint32_t>((greatestDepth - depth) * 8 + 4));
    appendWord(body, someHash);
  }
  const auto archive = archiveAround(body);
  PersistenceArchiver source(archive);
  for (std::size_t i = 0; i < greatestDepth; ++i)
    enter(source);

  EXPECT_EQ(refusalOf([&] { enter(source); }),
            "archive, byte " + std::to_string(bodyStart + greatestDepth * 8) +
                ": expected objects in objects at most 250 deep, found one more; the archive is "
                "damaged");
}

TEST(ArchiveFrames, MayBeAsDeepAgainAfterOthers)
{
  PersistenceArchiver archive;
  for (std::size_t round = 0; round < 2 * greatestDepth; ++round)
    end(archive, start(archive));

  const auto bytes = archive.finish();
  PersistenceArchiver source(bytes);
  for (std::size_t round = 0; round < 2 * greatestDepth; ++round)
    source.end_read_to_address(enter(source).marker);
  EXPECT_TRUE(source.isAtEnd());
}

// Counts of elements

TEST(ArchiveFrames, HoldAsManyElementsAsTheirClassNeedsRoomFor)
{
  for (const std::uint32_t room :
       {16U, 23U}) { // for two points of 8 bytes, exactly and with 7 bytes more
    Bytes body;
    appendWord(body, 8 + room);
    appendWord(body, PersistenceArchiver::getHashForName("Test.Point"));
    appendWord(body, 2);
    body.resize(body.size() + room);
    const auto archive = archiveAround(body, {{"Test.Point"}});
    PersistenceArchiver source(archive);
    unsigned int count = 0;
    enter(source);
    source >> count;

    for (const unsigned int fits : {0U, 1U, 2U})
      EXPECT_NO_THROW(source.check_container_size(fits)) << fits;
    for (const unsigned int tooMany : {3U, 4U, 0x20000000U, 0x80000000U, 0xffffffffU})
      EXPECT_EQ(refusalOf([&] { source.check_container_size(tooMany); }),
                "archive, byte 28: expected at most 2 elements in the " + std::to_string(room) +
                    " bytes that follow, found a count of " + std::to_string(tooMany) +
                    "; the archive is damaged");
  }
}

TEST(ArchiveFrames, HoldNoMoreElementsThanBytesWhateverTheirClass)
{
  const auto archive = archiveAround("0b 00 00 00 78 56 34 12 03 00 00 00 a1 a2 a3 "
                                     "a4 a5");
  PersistenceArchiver source(archive);
  unsigned int count = 0;
  const auto frame = enter(source);
  source >> count;

  EXPECT_NO_THROW(source.check_container_size(3));
  EXPECT_THROW(source.check_container_size(4), ArchiveError);
  source.end_read_to_address(frame.marker);
  EXPECT_NO_THROW(source.check_container_size(2)) << "outside of frames";
  EXPECT_THROW(source.check_container_size(3), ArchiveError) << "outside of frames";
}

}
}
