// SPDX-License-Identifier: MIT
// The bytes around the body: header, class table and checksum.

#include "PersistenceArchiver/PersistenceArchiver.h"

#include "Platform/Support/ArchivedClasses.h"
#include "Platform/Support/Archives.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace Tarvik {
namespace {

TEST(ArchiveLayout, OfAnEmptyArchiveIsHeaderTableAndChecksum)
{
  const auto archive = archived();

  EXPECT_EQ(hex(archive), "89 54 4b 4d 0d 0a 1a 0a " // magic
                          "01 00 00 00 "             // format version
                          "1c 00 00 00 "             // size: 28
                          "14 00 00 00 "             // position of the class table: 20
                          "00 00 00 00 " +           // no classes
                              wordText(bitwiseCrc32c(std::span(archive).first(24))));
}

TEST(ArchiveLayout, PutsWhatIsWrittenAfterTheHeader)
{
  const auto archive = archived(0x01020304U, std::string("Az"));

  EXPECT_EQ(hex(archive), hex(archiveAround("04 03 02 01 02 00 00 00 41 7a")));
  EXPECT_EQ(wordAt(archive, 12), archive.size());
  EXPECT_EQ(wordAt(archive, 16), bodyStart + 10);
}

TEST(ArchiveLayout, ListsTheClassesThatAreMet)
{
  const auto archive = archived(Point{1, 2}, Point{3, 4});

  EXPECT_EQ(hex(archive), hex(archiveAround("0c 00 00 00 " + hashText("Test.Point") +
                                                " 01 00 00 00 02 00 00 00 "
                                                "0c 00 00 00 " +
                                                hashText("Test.Point") + " 03 00 00 00 04 00 00 00",
                                            {{"Test.Point", 1}})));
}

TEST(ArchiveLayout, ListsClassesInTheOrderOfTheirHashes)
{
  const auto archive = archived(std::make_shared<Sign>(), Point(), std::make_shared<Node>());
  const auto table = std::span(archive).subspan(wordAt(archive, 16));

  std::map<unsigned int, std::string> classes;
  for (const auto* const name : {"Test.Node", "Test.Point", "Test.Sign"})
    classes[PersistenceArchiver::getHashForName(name)] = name;
  Bytes expected;
  appendWord(expected, 3);
  for (const auto& [hash, name] : classes) {
    appendWord(expected, hash);
    appendWord(expected, 1);
    appendText(expected, name);
  }
  EXPECT_EQ(hex(table.first(table.size() - 4)), hex(expected));
}

TEST(ArchiveLayout, LeavesOutClassesThatNobodyKnows)
{
  PersistenceArchiver archive;
  archive.mark_object_start(bodyStart + 4, 0x12345678);
  archive.mark_object_end(bodyStart + 4, bodyStart + 8);
  const auto bytes = archive.finish();

  EXPECT_EQ(hex(bytes), hex(archiveAround("04 00 00 00 78 56 34 12")));
}

TEST(ArchiveLayout, LeavesOutClassesThatTheProgramOnlyAskedFor)
{
  PersistenceArchiver archive;
  archive.classTable()[0x12345678];

  const auto bytes = archive.finish();

  EXPECT_EQ(hex(bytes), hex(archiveAround("")));
}

TEST(ArchiveLayout, IsTheSameHoweverOftenItIsAskedFor)
{
  PersistenceArchiver archive;
  archive << 7U << Point{1, 2};

  const auto first = archive.finish();
  const auto second = archive.finish();

  EXPECT_EQ(second.data(), first.data());
  EXPECT_EQ(second.size(), first.size());
  EXPECT_EQ(archive.tellp(), first.size());
}

TEST(ArchiveLayout, IsTheSameForTheSameValues)
{
  const auto node = std::make_shared<Node>();
  const auto sign = std::make_shared<Sign>();

  EXPECT_EQ(archived(node, Point{1, 2}, sign), archived(node, Point{1, 2}, sign));
}

TEST(ArchiveLayout, StartsAnewAfterClear)
{
  PersistenceArchiver archive;
  const auto shared = std::make_shared<Point>();
  archive << std::string(10'000, 'x') << shared << Node();
  archive.finish();

  archive.clear();
  EXPECT_EQ(archive.tellp(), bodyStart);
  archive << 7U << shared;

  const auto bytes = archive.finish();
  EXPECT_EQ(Bytes(bytes.begin(), bytes.end()), archived(7U, shared));
}

TEST(ArchiveLayout, CountsPositionsFromTheBeginning)
{
  PersistenceArchiver archive;
  EXPECT_EQ(archive.tellp(), bodyStart);
  archive << 7U << std::string("abc");
  EXPECT_EQ(archive.tellp(), bodyStart + 11);

  const auto bytes = archive.finish();
  PersistenceArchiver source(bytes);
  unsigned int number = 0;
  std::string text;
  EXPECT_EQ(source.tellg(), bodyStart);
  source >> number;
  EXPECT_EQ(source.tellg(), bodyStart + 4);
  EXPECT_FALSE(source.isAtEnd());
  source >> text;
  EXPECT_EQ(source.tellg(), bodyStart + 11);
  EXPECT_TRUE(source.isAtEnd());
}

TEST(ArchiveLayout, EndsTheReadingAtTheClassTable)
{
  const auto archive = archived(Point());
  PersistenceArchiver source(archive);
  Point point;
  unsigned int number = 5;
  source >> point;

  EXPECT_EQ(refusalOf([&] { source >> number; }),
            "archive, byte 36: expected 4 bytes more, found 0 bytes before the end of the archive; "
            "the archive is damaged");
  EXPECT_EQ(number, 5U);
}

TEST(ArchiveLayout, AllowsForClassesInAnyOrder)
{
  const std::vector<TableEntry> classes = {{"Test.Point"}, {"Test.Node"}, {"Test.Sign"}};
  const std::vector<TableEntry> others(classes.rbegin(), classes.rend());

  EXPECT_EQ(refusalToOpen(archiveAround("", classes)), "nothing was refused");
  EXPECT_EQ(refusalToOpen(archiveAround("", others)), "nothing was refused");
}

TEST(Archive, KnowsTheClassesThatItHolds)
{
  const auto hash = PersistenceArchiver::getHashForName("Test.Point");
  PersistenceArchiver archive;
  EXPECT_TRUE(archive.classTable().empty());
  archive << Point();
  ASSERT_EQ(archive.classTable().size(), 1U);
  EXPECT_EQ(archive.classTable().at(hash).writeVersion, 1U);

  const auto bytes = archive.finish();
  PersistenceArchiver source(bytes);
  ASSERT_EQ(source.classTable().size(), 1U);
  EXPECT_EQ(source.classTable().at(hash).classHash, hash);
  EXPECT_EQ(source.classTable().at(hash).readVersion, 1U);
}

TEST(Archive, HasTheVersionOfItsFormat)
{
  EXPECT_EQ(PersistenceArchiver::getCurrentVersion(0), 1U);
}

TEST(Archive, IsNotCopied)
{
  static_assert(!std::is_copy_constructible_v<PersistenceArchiver>);
  static_assert(!std::is_copy_assignable_v<PersistenceArchiver>);
  static_assert(!std::is_convertible_v<std::span<const std::byte>, PersistenceArchiver>);
}

}
}
