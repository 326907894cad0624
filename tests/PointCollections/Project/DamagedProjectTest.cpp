// SPDX-License-Identifier: MIT
#include "PointCollections/Project/ProjectFile.h"

#include "PersistenceArchiver/PersistenceArchiver.h"
#include "PointCollections/Support/Projects.h"

#include <gmock/gmock.h>

#include <cstdint>
#include <span>
#include <string>

namespace Tarvik::PointCollections {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

/// The checksum at the end of an archive (CRC-32C), for archives that are damaged but pass it.
std::uint32_t checksumOf(std::span<const std::byte> bytes)
{
  std::uint32_t remainder = ~0U;
  for (const std::byte byte : bytes) {
    remainder ^= std::to_integer<std::uint32_t>(byte);
    for (int bit = 0; bit < 8; ++bit)
      remainder = (remainder >> 1U) ^ ((remainder & 1U) * 0x82F63B78U);
  }
  return ~remainder;
}

void fixChecksum(Bytes& bytes)
{
  const auto place = bytes.size() - 4;
  const auto checksum = checksumOf(std::span(bytes).first(place));
  for (unsigned i = 0; i < 4; ++i)
    bytes[place + i] = static_cast<std::byte>(checksum >> (8 * i));
}

void flip(Bytes& bytes, std::size_t bit)
{
  bytes[bit / 8] ^= std::byte{1} << (bit % 8);
}

TEST(DamagedProject, IsRefusedWhenItIsCutOffAnywhere)
{
  const auto bytes = saveProject(*smallDocument());

  for (std::size_t size = 0; size < bytes.size(); ++size)
    EXPECT_THAT(mistakeInBytes(std::span(bytes).first(size)), StartsWith("p.tkpc, byte ")) << size;
}

TEST(DamagedProject, IsRefusedWhenAnyBitIsWrong)
{
  auto bytes = saveProject(*smallDocument());

  for (std::size_t bit = 0; bit < bytes.size() * 8; ++bit) {
    flip(bytes, bit);
    EXPECT_THAT(mistakeInBytes(bytes), StartsWith("p.tkpc, byte ")) << "bit " << bit;
    flip(bytes, bit);
  }
  EXPECT_EQ(mistakeInBytes(bytes), "no mistake");
}

TEST(DamagedProject, IsRefusedOrAGoodDocumentWhenTheChecksumHidesAWrongBit)
{
  const auto good = saveProject(*smallDocument());

  std::size_t refused = 0;
  for (std::size_t bit = 0; bit < good.size() * 8; ++bit) {
    auto bytes = good;
    flip(bytes, bit);
    fixChecksum(bytes);
    const auto mistake = mistakeIn([&] {
      const auto document = load(bytes);
      EXPECT_EQ(everythingKept(*document), everythingIn(*document)) << "bit " << bit;
    });
    refused += mistake != "no mistake" ? 1U : 0U;
  }
  EXPECT_GT(refused, 0U);
  EXPECT_LT(refused, good.size() * 8); // most bits of ids and coordinates may be 0 or 1
}

TEST(DamagedProject, IsRefusedWithMoreAfterIt)
{
  auto bytes = saveProject(*smallDocument());
  bytes.resize(bytes.size() + 1);

  EXPECT_THAT(mistakeInBytes(bytes), StartsWith("p.tkpc, byte 12: "));
}

TEST(DamagedProject, IsRefusedWhenItIsSomethingElse)
{
  const std::string text = "collection,x,y,z\na,1,2,3\nb,4,5,6\n";
  PersistenceArchiver names;
  names << NameInterface("a");

  EXPECT_THAT(mistakeInBytes(std::as_bytes(std::span(text))), StartsWith("p.tkpc, byte 0: "));
  EXPECT_THAT(mistakeInBytes(names.finish()), StartsWith("p.tkpc, byte "));
}

TEST(DamagedProject, IsRefusedWithoutAProjectInIt)
{
  PersistenceArchiver archive;

  EXPECT_THAT(mistakeInBytes(archive.finish()), StartsWith("p.tkpc, byte 20: "));
}

TEST(DamagedProject, IsRefusedWithTwoProjectsInIt)
{
  PersistenceArchiver archive;
  for (int i = 0; i < 2; ++i) {
    const auto start = static_cast<unsigned int>(archive.tellp() + 4);
    archive.mark_object_start(start, PersistenceArchiver::getHashForName("PointProject"));
    archive << 0U << 0U;
    archive.mark_object_end(start, static_cast<unsigned int>(archive.tellp()));
  }

  EXPECT_EQ(mistakeInBytes(archive.finish()),
            "p.tkpc, byte 36: expected a project and nothing else, found more; the archive is "
            "damaged");
}

TEST(DamagedProject, IsRefusedWithMoreThanAProjectHas)
{
  const auto bytes =
      projectWith([](PersistenceArchiver& archive) { archive << 0U << 0U << std::uint8_t{1}; });

  EXPECT_EQ(mistakeInBytes(bytes), "p.tkpc, byte 36: expected the end of the project, found more; "
                                   "the archive is damaged");
}

TEST(DamagedProject, DoesNotFloodTheScreenWithWhatItQuotes)
{
  PersistenceArchiver archive;
  archive << 0U;
  auto& unknown = archive.classTable();
  unknown.clear();
  const auto finished = archive.finish();
  Bytes bytes(finished.begin(), finished.end());
  const std::string name = "\x1B[2J" + std::string(100000, 'x');
  const auto append = [&bytes](std::uint32_t number) {
    for (unsigned i = 0; i < 4; ++i)
      bytes.push_back(static_cast<std::byte>(number >> (8 * i)));
  };
  bytes.resize(bytes.size() - 8); // the empty class table, and the checksum
  append(1);
  append(PersistenceArchiver::getHashForName(name));
  append(1);
  append(static_cast<std::uint32_t>(name.size()));
  for (const char c : name)
    bytes.push_back(static_cast<std::byte>(c));
  append(0);
  for (unsigned i = 0; i < 4; ++i)
    bytes[12 + i] = static_cast<std::byte>(bytes.size() >> (8 * i));
  fixChecksum(bytes);

  const auto mistake = mistakeInBytes(bytes);

  EXPECT_THAT(mistake, HasSubstr("found \"\\x1B[2Jxxx"));
  EXPECT_LT(mistake.size(), 600U);
}

}
}
