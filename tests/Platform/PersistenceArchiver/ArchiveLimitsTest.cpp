// SPDX-License-Identifier: MIT
#include "PersistenceArchiver/PersistenceArchiver.h"

#include "Platform/Support/ArchivedClasses.h"
#include "Platform/Support/Archives.h"
#include "Support/Allocations.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <new>
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

#if !defined(_MSC_VER) // the watch does not reach into DLLs there

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
