// SPDX-License-Identifier: MIT
#include "PersistenceArchiver/PersistenceArchiver.h"

#include "Platform/Support/Archives.h"
#include "Support/Allocations.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <iterator>
#include <new>
#include <string>

namespace Tarvik {
namespace {

TEST(ArchivedTexts, AreTheirLengthAndTheirBytes)
{
  EXPECT_EQ(written(std::string()), "00 00 00 00");
  EXPECT_EQ(written(std::string("Az")), "02 00 00 00 41 7a");
  EXPECT_EQ(written(std::string("\xc3\xbc\0\xff", 4)), "04 00 00 00 c3 bc 00 ff");
  EXPECT_EQ(written(std::string(258, 'x')).substr(0, 14), "02 01 00 00 78");
}

TEST(ArchivedTexts, AreReadByteForByte)
{
  EXPECT_EQ(loadedFrom<std::string>(archiveAround("00 00 00 00")), "");
  EXPECT_EQ(loadedFrom<std::string>(archiveAround("02 00 00 00 41 7a")), "Az");
  EXPECT_EQ(loadedFrom<std::string>(archiveAround("04 00 00 00 c3 bc 00 ff")),
            std::string("\xc3\xbc\0\xff", 4));
}

TEST(ArchivedTexts, AreReadBackWhateverTheirLength)
{
  for (const std::size_t length : {0U, 1U, 15U, 16U, 4095U, 4096U, 4097U, 1'000'000U}) {
    std::string text;
    for (std::size_t i = 0; i < length; ++i)
      text += static_cast<char>(i * 31 % 256);

    EXPECT_TRUE(loadedFrom<std::string>(archived(text)) == text) << length;
  }
}

TEST(ArchivedTexts, ReplaceWhatWasThere)
{
  const auto archive = archived(std::string("new"), std::string());
  PersistenceArchiver source(archive);
  std::string longer = "a text that was there before, too long to be kept within the string";
  std::string another = "another";

  source >> longer >> another;

  EXPECT_EQ(longer, "new");
  EXPECT_EQ(another, "");
}

TEST(ArchivedTexts, EndWhereTheirLengthSays)
{
  const auto archive = archiveAround("01 00 00 00 41 42");
  PersistenceArchiver source(archive);
  std::string text;

  source >> text;

  EXPECT_EQ(text, "A");
  EXPECT_EQ(source.tellg(), bodyStart + 5);
  EXPECT_FALSE(source.isAtEnd());
}

TEST(ArchivedTexts, StayAsTheyAreWhenTheirBytesAreMissing)
{
  const auto complete = fromHex("03 00 00 00 41 42 43");
  for (std::ptrdiff_t length = 0; length < std::ssize(complete); ++length) {
    const auto archive = archiveAround(Bytes(complete.begin(), complete.begin() + length));
    PersistenceArchiver source(archive);
    std::string text = "before";

    EXPECT_NE(refusalOf([&] { source >> text; }), "nothing was refused") << length;
    EXPECT_EQ(text, "before") << length;
  }
}

TEST(ArchivedTexts, AreNotLongerThanWhatFollows)
{
  for (const std::string length : {"05 00 00 00", "ff ff ff ff", "fe ff ff ff", "00 00 00 80"}) {
    const auto archive = archiveAround("07 00 00 00 " + length + " 41 42 43 44");
    PersistenceArchiver source(archive);
    unsigned int number = 0;
    std::string text = "before";
    source >> number;

    EXPECT_EQ(refusalOf([&] { source >> text; }),
              "archive, byte 24: expected a count of at most 4, found " +
                  std::to_string(wordAt(fromHex(length), 0)) +
                  " with 4 bytes left; the archive is damaged");
    EXPECT_EQ(text, "before");
  }
}

#if !defined(_MSC_VER) // the watch does not reach into DLLs there

TEST(ArchivedTexts, TakeNoMemoryForALengthThatIsWrong)
{
  const auto archive = archiveAround("ff ff ff ff 41 42 43 44");
  PersistenceArchiver source(archive);
  std::string text;
  std::size_t largest = 0;
  {
    const AllocationWatch watch;
    EXPECT_THROW(source >> text, ArchiveError);
    largest = AllocationWatch::largest();
  }

  EXPECT_LT(largest, 1'024U);
}

TEST(ArchivedTexts, StayAsTheyAreWhenThereIsNoMemoryForTheNewOne)
{
  const auto archive = archived(std::string(1000, 'x'));
  PersistenceArchiver source(archive);
  std::string text = "before";
  {
    const AllocationWatch watch(0);
    EXPECT_THROW(source >> text, std::bad_alloc);
  }

  EXPECT_EQ(text, "before");
}

#endif

}
}
