// SPDX-License-Identifier: MIT
// Archives of 4 GiB, for which 32-bit processors have no room.
#include "PersistenceArchiver/PersistenceArchiver.h"

#include "Platform/Support/Archives.h"
#include "Platform/Support/UntouchedMemory.h"
#include "Support/Allocations.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <new>
#include <vector>

namespace Tarvik {
namespace {

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

#endif

}
}
