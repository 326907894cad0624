// SPDX-License-Identifier: MIT
// No damage of the bytes goes unnoticed.

#include "PersistenceArchiver/PersistenceArchiver.h"

#include "Platform/Support/ArchivedClasses.h"
#include "Platform/Support/Archives.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace Tarvik {
namespace {

/// A little of everything.
Bytes intactArchive()
{
  const auto shared = std::make_shared<Node>();
  return archived(7U, true, 2.5, std::string("text"), std::vector<std::uint16_t>{1, 2}, Point{1, 2},
                  shared, shared);
}

TEST(DamagedArchive, IsRefusedWhereverItIsCutOff)
{
  const auto intact = intactArchive();
  ASSERT_EQ(refusalToOpen(intact), "nothing was refused");

  for (std::size_t length = 0; length < intact.size(); ++length) {
    // exactly as long: sanitizers notice what reads beyond its end
    const Bytes cutOff(intact.begin(), intact.begin() + static_cast<std::ptrdiff_t>(length));
    const auto size = std::to_string(length) + (length == 1 ? " byte" : " bytes");

    EXPECT_EQ(refusalToOpen(cutOff),
              length < 28
                  ? "archive, byte 0: expected an archive of 28 to 4294967295 bytes, found " +
                        size + "; it is no archive, or cut off"
                  : "archive, byte 12: expected an archive of " + std::to_string(intact.size()) +
                        " bytes, found " + size + "; it is cut off or damaged");
  }
}

TEST(DamagedArchive, IsRefusedWhenSomethingFollows)
{
  auto archive = intactArchive();
  const auto size = archive.size();
  for (int i = 0; i < 20; ++i) {
    archive.push_back(std::byte{0});

    EXPECT_EQ(refusalToOpen(archive), "archive, byte 12: expected an archive of " +
                                          std::to_string(size) + " bytes, found " +
                                          std::to_string(archive.size()) +
                                          " bytes; it is cut off or damaged");
  }
}

TEST(DamagedArchive, IsRefusedWhicheverBitIsWrong)
{
  const auto intact = intactArchive();
  for (std::size_t place = 0; place < intact.size(); ++place)
    for (unsigned int bit = 0; bit < 8; ++bit) {
      auto archive = intact;
      archive[place] ^= static_cast<std::byte>(1U << bit);

      const auto refusal = refusalToOpen(archive);

      const std::string part = place < 8    ? "archive, byte 0: expected the first 8 bytes of an "
                               : place < 12 ? "archive, byte 8: expected format version 1, found "
                               : place < 16 ? "archive, byte 12: expected an archive of "
                                            : "archive, byte " + std::to_string(intact.size() - 4) +
                                                  ": expected the checksum ";
      EXPECT_EQ(refusal.substr(0, part.size()), part) << "byte " << place << ", bit " << bit;
    }
}

TEST(DamagedArchive, IsRefusedWhenTwoBytesAreSwapped)
{
  const auto intact = intactArchive();
  for (std::size_t place = 0; place + 1 < intact.size(); ++place) {
    auto archive = intact;
    std::swap(archive[place], archive[place + 1]);
    EXPECT_EQ(refusalToOpen(archive) == "nothing was refused", archive == intact) << place;
  }
}

TEST(DamagedArchive, IsDistinguishedFromOtherFiles)
{
  const std::string text(100, 'x');
  const Bytes zeros(100);

  EXPECT_EQ(refusalToOpen(std::as_bytes(std::span(text))),
            "archive, byte 0: expected the first 8 bytes of an archive, found others; it is no "
            "archive");
  EXPECT_EQ(refusalToOpen(zeros),
            "archive, byte 0: expected the first 8 bytes of an archive, found others; it is no "
            "archive");
  EXPECT_EQ(refusalToOpen({}),
            "archive, byte 0: expected an archive of 28 to 4294967295 bytes, found 0 bytes; it is "
            "no archive, or cut off");
}

/// The text of the ArchiveError for the start of an archive.
std::string refusalOfStart(const Bytes& archive, std::size_t length = 20)
{
  const auto start = std::span(archive).first(std::min(length, archive.size()));
  return refusalOf([&] { PersistenceArchiver::checkStart(start, archive.size()); });
}

TEST(DamagedArchive, IsRefusedByItsStartIfThatIsWrong)
{
  const auto intact = intactArchive();
  for (std::size_t place = 0; place < 24; ++place) {
    auto archive = intact;
    archive[place] ^= std::byte{1};

    EXPECT_EQ(refusalOfStart(archive), place < 16 ? refusalToOpen(archive) : "nothing was refused")
        << "byte " << place;
  }
}

TEST(DamagedArchive, IsRefusedByItsStartIfItsSizeIsWrong)
{
  const auto intact = intactArchive();
  for (std::size_t length = 0; length < intact.size(); ++length) {
    const Bytes cutOff(intact.begin(), intact.begin() + static_cast<std::ptrdiff_t>(length));

    EXPECT_EQ(refusalOfStart(cutOff), refusalToOpen(cutOff));
  }
  EXPECT_EQ(refusalOf([&] { PersistenceArchiver::checkStart(intact, std::uint64_t{1} << 40U); }),
            "archive, byte 0: expected an archive of 28 to 4294967295 bytes, found 1099511627776 "
            "bytes; it is no archive, or cut off");
}

TEST(DamagedArchive, IsJudgedByAllOfItsHeader)
{
  const auto intact = intactArchive();
  for (const std::size_t length : {0U, 8U, 19U})
    EXPECT_EQ(complaintOf([&] {
                PersistenceArchiver::checkStart(std::span(intact).first(length), intact.size());
              }),
              "the first 20 bytes of an archive are needed to check its start");
}

TEST(DamagedArchive, NamesTheChecksumThatItShouldHave)
{
  auto archive = archived(7U);
  const auto intact = wordAt(archive, archive.size() - 4);
  setWordAt(archive, archive.size() - 4, 5);

  EXPECT_EQ(refusalToOpen(archive), "archive, byte 28: expected the checksum 5, found " +
                                        std::to_string(intact) + "; the archive is damaged");
}

}
}
