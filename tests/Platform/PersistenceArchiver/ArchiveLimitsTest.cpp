// SPDX-License-Identifier: MIT
#include "PersistenceArchiver/PersistenceArchiver.h"

#include "Platform/Support/ArchivedClasses.h"
#include "Platform/Support/Archives.h"
#include "Platform/Support/UntouchedMemory.h"
#include "Support/Allocations.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <new>
#include <span>
#include <string>
#include <vector>

namespace Tarvik {
namespace {

constexpr std::uint32_t overhead = 28; ///< header, empty class table and checksum

TEST(ArchiveLimit, IsTheSizeOfTheWholeArchive)
{
  PersistenceArchiver archive;
  archive.limitSize(overhead + 5);

  archive << std::string("A");

  const auto bytes = archive.finish();
  EXPECT_EQ(bytes.size(), overhead + 5);
  EXPECT_EQ(Bytes(bytes.begin(), bytes.end()), archived(std::string("A")));
}

TEST(ArchiveLimit, RefusesWhatIsBeyond)
{
  PersistenceArchiver archive;
  archive.limitSize(bodyStart + 6);
  archive << std::uint32_t{1};

  EXPECT_EQ(refusalOf([&] { archive << std::uint32_t{2}; }),
            "archive, byte 24: expected an archive of at most 26 bytes, found 4 bytes more to "
            "write; save less in one archive");
}

TEST(ArchiveLimit, CountsTheClassTableAndTheChecksum)
{
  PersistenceArchiver archive;
  archive.limitSize(overhead + 3);
  archive << std::uint32_t{1};

  EXPECT_EQ(refusalOf([&] { archive.finish(); }),
            "archive, byte 28: expected an archive of at most 31 bytes, found 4 bytes more to "
            "write; save less in one archive");
}

TEST(ArchiveLimit, MayBeBelowWhatWasWritten)
{
  PersistenceArchiver archive;
  archive << std::string(10'000, 'x');
  archive.limitSize(100);

  EXPECT_EQ(refusalOf([&] { archive << true; }),
            "archive, byte 10024: expected an archive of at most 100 bytes, found 1 byte more to "
            "write; save less in one archive");
}

TEST(ArchiveLimit, MayBeRaised)
{
  const std::string text(5'000, 'x');
  PersistenceArchiver archive;
  archive.limitSize(40);
  archive.limitSize(20'000);

  archive << text << text;

  const auto bytes = archive.finish();
  EXPECT_EQ(Bytes(bytes.begin(), bytes.end()), archived(text, text));
}

TEST(ArchiveLimit, StaysAfterClear)
{
  PersistenceArchiver archive;
  archive << std::string(10'000, 'x');
  archive.limitSize(100);

  archive.clear();
  archive << std::string(50, 'x');

  EXPECT_THROW(archive << std::string(50, 'x'), ArchiveError);
}

TEST(ArchiveLimit, MayLeaveNoRoomForAnArchive)
{
  PersistenceArchiver archive;
  archive.limitSize(overhead - 1);
  EXPECT_THROW(archive.finish(), ArchiveError);

  archive.limitSize(overhead);
  archive.clear();
  EXPECT_EQ(archive.finish().size(), overhead);
}

TEST(ArchiveLimit, KeepsAnArchiveWithAGapFromBeingFinished)
{
  PersistenceArchiver archive;
  archive.limitSize(1'000);
  EXPECT_THROW(archive << std::string(1'000, 'x'), ArchiveError);
  archive.limitSize(10'000);

  EXPECT_EQ(complaintOf([&] { archive << 7U; }),
            "writing to this archive has failed; clear() begins another one");
  EXPECT_EQ(complaintOf([&] { archive.finish(); }),
            "writing to this archive has failed; clear() begins another one");
  archive.clear();
  archive << 7U;
  const auto bytes = archive.finish();
  EXPECT_EQ(Bytes(bytes.begin(), bytes.end()), archived(7U));
}

constexpr std::size_t greatestSize = 0xffffffff;

#if !defined(_MSC_VER) // it takes no arrays of more than 2 GiB

TEST(ArchiveLimit, IsWherePositionsOf32BitsEnd)
{
  const UntouchedMemory memory;
  PersistenceArchiver archive;

  EXPECT_EQ(refusalOf([&] { archive << memory.numbers<greatestSize - bodyStart + 1>(); }),
            "archive, byte 20: expected an archive of at most 4294967295 bytes, found 4294967276 "
            "bytes more to write; save less in one archive");
}

#endif

TEST(ArchiveLimit, HoldsForReadingToo)
{
  const UntouchedMemory memory;

  EXPECT_EQ(refusalToOpen(memory.bytes()),
            "archive, byte 0: expected an archive of 28 to 4294967295 bytes, found 4294967296 "
            "bytes; it is no archive, or cut off");
  EXPECT_EQ(refusalToOpen(memory.bytes().first(greatestSize)),
            "archive, byte 0: expected the first 8 bytes of an archive, found others; it is no "
            "archive");
}

TEST(ArchiveLimit, HoldsForTheNumberOfElements)
{
  const std::vector<bool> truths(std::size_t{1} << 32U); // a bit each
  PersistenceArchiver archive;
  archive << 7U;

  EXPECT_EQ(refusalOf([&] { archive << truths; }),
            "archive, byte 24: expected at most 4294967295 elements or bytes in a list or text, "
            "found 4294967296");
}

#if !defined(_MSC_VER) // the watch does not reach into DLLs there

TEST(ArchiveLimit, IsNotBelow)
{
  const UntouchedMemory memory;
  PersistenceArchiver archive;
  std::size_t asked = 0;
  {
    const AllocationWatch watch(0); // or it would take the memory
    EXPECT_THROW(archive << memory.numbers<greatestSize - bodyStart>(), std::bad_alloc);
    asked = AllocationWatch::largest();
  }

  EXPECT_EQ(asked, greatestSize);
}

TEST(ArchiveMemory, IsKeptByClear)
{
  const std::string text(100'000, 'x');
  PersistenceArchiver archive;
  archive << text;
  archive.finish();
  std::size_t count = 0;
  {
    const AllocationWatch watch;
    archive.clear();
    archive << text;
    archive.finish();
    count = AllocationWatch::count();
  }

  EXPECT_EQ(count, 0U);
}

TEST(ArchiveMemory, GrowsInAFewSteps)
{
  PersistenceArchiver archive;
  std::size_t count = 0;
  std::size_t largest = 0;
  {
    const AllocationWatch watch;
    for (std::uint64_t i = 0; i < 1'000'000; ++i)
      archive << i;
    count = AllocationWatch::count();
    largest = AllocationWatch::largest();
  }

  EXPECT_LE(count, 12U);
  EXPECT_LE(largest, 2U * 8'000'020U);
}

TEST(ArchiveMemory, ThatIsMissingKeepsAnArchiveWithAGapFromBeingFinished)
{
  const std::string text(10'000, 'x');
  PersistenceArchiver archive;
  {
    const AllocationWatch watch(0);
    EXPECT_THROW(archive << text, std::bad_alloc);
  }

  EXPECT_EQ(complaintOf([&] { archive.finish(); }),
            "writing to this archive has failed; clear() begins another one");
  archive.clear();
  archive << text;
  const auto bytes = archive.finish();
  EXPECT_EQ(Bytes(bytes.begin(), bytes.end()), archived(text));
}

#endif

}
}
