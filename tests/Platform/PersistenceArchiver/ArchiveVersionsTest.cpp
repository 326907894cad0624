// SPDX-License-Identifier: MIT
// Archives that older and newer programs wrote, and wrong class tables.

#include "PersistenceArchiver/PersistenceArchiver.h"

#include "PersistenceArchiver/ClassRegistration.h"
#include "Platform/Support/ArchivedClasses.h"
#include "Platform/Support/Archives.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>

namespace Tarvik {
namespace {

/// Got a weight in version 2, and a label in version 3.
struct Parcel {
  std::uint32_t number = 0;
  std::uint32_t weight = 0;
  std::string label;
  unsigned int versionOfLoad = 0;

  static void load(PersistenceArchiver& archive, Parcel& parcel, unsigned int version)
  {
    parcel.versionOfLoad = version;
    archive >> parcel.number;
    if (version >= 2)
      archive >> parcel.weight;
    if (version >= 3)
      archive >> parcel.label;
  }

  static void save(PersistenceArchiver& archive, const Parcel& parcel, unsigned int version)
  {
    EXPECT_EQ(version, 3U);
    archive << parcel.number << parcel.weight << parcel.label;
  }

  static void serialization_register(void* out)
  {
    *static_cast<BaseClassRegister*>(out) = *registerClass<Parcel, load, save>("Test.Parcel", 3);
  }
};

[[maybe_unused]] const bool isParcelRegistered = [] {
  BaseClassRegister record;
  Parcel::serialization_register(&record);
  return true;
}();

constexpr unsigned int parcelEntry = 24; ///< place of the first entry of the table, with no body

TEST(ClassVersions, AreWrittenWithTheClass)
{
  Parcel parcel;
  parcel.number = 5;
  const auto archive = archived(parcel);

  EXPECT_EQ(hex(archive), hex(archiveAround("10 00 00 00 " + hashText("Test.Parcel") +
                                                " 05 00 00 00 00 00 00 00 00 00 00 00",
                                            {{"Test.Parcel", 3}})));
}

TEST(ClassVersions, ThatAreOlderArePassedToTheLoadEntry)
{
  const auto load = [](unsigned int version, const std::string& fields) {
    const auto length = fields.empty() ? 4U : 4U + static_cast<unsigned int>(fields.size()) / 3;
    const auto archive = archiveAround(wordText(length) + " " + hashText("Test.Parcel") + fields,
                                       {{"Test.Parcel", version}});
    return loadedFrom<Parcel>(archive);
  };

  const auto first = load(1, " 05 00 00 00");
  EXPECT_EQ(first.versionOfLoad, 1U);
  EXPECT_EQ(first.number, 5U);

  const auto second = load(2, " 05 00 00 00 06 00 00 00");
  EXPECT_EQ(second.versionOfLoad, 2U);
  EXPECT_EQ(second.weight, 6U);

  const auto third = load(3, " 05 00 00 00 06 00 00 00 01 00 00 00 41");
  EXPECT_EQ(third.versionOfLoad, 3U);
  EXPECT_EQ(third.label, "A");
}

TEST(ClassVersions, ThatAreOlderArePassedForSharedObjectsToo)
{
  const auto archive = archiveAround(
      "01 00 00 00 08 00 00 00 " + hashText("Test.Parcel") + " 05 00 00 00", {{"Test.Parcel", 1}});

  const auto parcel = loadedFrom<std::shared_ptr<Parcel>>(archive);

  ASSERT_NE(parcel, nullptr);
  EXPECT_EQ(parcel->versionOfLoad, 1U);
  EXPECT_EQ(parcel->number, 5U);
}

TEST(ClassVersions, ThatAreNewerAreRefused)
{
  for (const unsigned int version : {4U, 0x80000000U, 0xffffffffU})
    EXPECT_EQ(refusalToOpen(archiveAround("", {{"Test.Parcel", version}})),
              "archive, byte " + std::to_string(parcelEntry) +
                  ": expected the class \"Test.Parcel\" in version 3 at most, found version " +
                  std::to_string(version) +
                  "; use the version of the program that wrote it, or a newer one");
}

TEST(ClassVersions, OfUnknownClassesAreRefused)
{
  EXPECT_EQ(refusalToOpen(archiveAround("07 00 00 00", {{"Test.Parcel", 1}, {"Pipe", 12}})),
            "archive, byte " + std::to_string(parcelEntry + 4 + 12 + 11) +
                ": expected classes that the program knows, found \"Pipe\" in version 12; use the "
                "version of the program that wrote it, or a newer one");
}

TEST(ClassVersions, OfAnotherClassWithTheSameHashAreRefused)
{
  ASSERT_EQ(PersistenceArchiver::getHashForName("altarage"),
            PersistenceArchiver::getHashForName("zinke"));
  ASSERT_NE(PersistenceArchiver::registerFactory("altarage", {.writeVersion = 1}, 1), nullptr);

  EXPECT_EQ(refusalToOpen(archiveAround("", {{"altarage", 1}})), "nothing was refused");
  EXPECT_EQ(refusalToOpen(archiveAround("", {{"zinke", 1}})),
            "archive, byte 24: expected classes that the program knows, found \"zinke\" in version "
            "1; use the version of the program that wrote it, or a newer one");
}

TEST(FormatVersions, ThatAreOthersAreRefused)
{
  for (const unsigned int version : {0U, 2U, 0xffffffffU}) {
    auto archive = archived(7U);
    setWordAt(archive, 8, version);
    setChecksum(archive);

    EXPECT_EQ(refusalToOpen(archive),
              "archive, byte 8: expected format version 1, found " + std::to_string(version) +
                  "; use the version of the program that wrote it, or a newer one");
  }
}

TEST(FormatVersions, AreCheckedBeforeTheRestOfTheArchive)
{
  auto archive = archived(7U);
  setWordAt(archive, 8, 2);
  setWordAt(archive, 12, 0);

  EXPECT_EQ(refusalToOpen(archive).substr(0, 55),
            "archive, byte 8: expected format version 1, found 2; us");
}

// Wrong class tables

TEST(ClassTables, HaveTheHashOfEachName)
{
  EXPECT_EQ(refusalToOpen(archiveAround("", {{"Test.Parcel", 3, 5}})),
            "archive, byte 24: expected the hash of the class \"Test.Parcel\", " +
                std::to_string(PersistenceArchiver::getHashForName("Test.Parcel")) +
                ", found 5; the archive is damaged");
}

TEST(ClassTables, NameEachClassOnce)
{
  EXPECT_EQ(refusalToOpen(archiveAround("", {{"Test.Parcel", 3}, {"Test.Parcel", 2}})),
            "archive, byte 47: expected each class once in the table, found \"Test.Parcel\" again; "
            "the archive is damaged");
}

TEST(ClassTables, HaveNoMoreEntriesThanFit)
{
  for (const unsigned int count : {2U, 0x15555556U, 0x80000000U, 0xffffffffU}) {
    auto archive = archiveAround("", {{"Test.Parcel", 3}});
    setWordAt(archive, bodyStart, count);
    setChecksum(archive);

    EXPECT_EQ(refusalToOpen(archive), "archive, byte 20: expected a count of at most 1, found " +
                                          std::to_string(count) +
                                          " with 23 bytes left; the archive is damaged");
  }
}

TEST(ClassTables, HaveNamesThatFit)
{
  auto archive = archiveAround("", {{"Test.Parcel", 3}});
  setWordAt(archive, parcelEntry + 8, 12);
  setChecksum(archive);

  EXPECT_EQ(refusalToOpen(archive),
            "archive, byte 32: expected a count of at most 11, found 12 with 11 bytes left; the "
            "archive is damaged");
}

TEST(ClassTables, EndWithTheirLastEntry)
{
  auto archive = archiveAround("", {{"Test.Parcel", 3}});
  setWordAt(archive, bodyStart, 0);
  setChecksum(archive);

  EXPECT_EQ(refusalToOpen(archive),
            "archive, byte 24: expected the end of the class table, found 23 bytes more; the "
            "archive is damaged");
}

TEST(ClassTables, AreAfterTheHeaderAndBeforeTheChecksum)
{
  const auto intact = archived(7U, 8U); // the checksum is at 32
  for (const unsigned int position : {0U, 19U, 33U, 36U, 0x80000000U, 0xffffffffU}) {
    auto archive = intact;
    setWordAt(archive, 16, position);
    setChecksum(archive);

    EXPECT_EQ(refusalToOpen(archive),
              "archive, byte 16: expected the position of the class table, found " +
                  std::to_string(position) + "; the archive is damaged");
  }
}

TEST(ClassTables, HaveRoomForTheirCount)
{
  for (const unsigned int position : {29U, 30U, 31U, 32U}) {
    auto archive = archived(7U, 8U);
    setWordAt(archive, 16, position);
    setChecksum(archive);

    EXPECT_EQ(refusalToOpen(archive),
              "archive, byte " + std::to_string(position) + ": expected 4 bytes more, found " +
                  std::to_string(32 - position) + (position == 31 ? " byte" : " bytes") +
                  " before the end of the archive; the archive is damaged");
  }
}

}
}
