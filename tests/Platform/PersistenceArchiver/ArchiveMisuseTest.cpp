// SPDX-License-Identifier: MIT
// Mistakes of the program are std::logic_errors, unlike wrong bytes.

#include "PersistenceArchiver/PersistenceArchiver.h"

#include "Platform/Support/ArchivedClasses.h"
#include "Platform/Support/Archives.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace Tarvik {
namespace {

TEST(ArchiveMisuse, IsToReadWhatIsWritten)
{
  PersistenceArchiver archive;
  archive << 7U << std::string("A") << Point();
  unsigned int number = 1;
  bool truth = true;
  std::array<double, 2> fractions{3, 4};
  std::string text = "before";
  std::vector<std::uint32_t> list = {5};
  Point point{6, 7};
  std::shared_ptr<Point> shared;
  const std::string complaint = "this archive was opened for writing";

  EXPECT_EQ(complaintOf([&] { archive >> number; }), complaint);
  EXPECT_EQ(complaintOf([&] { archive >> truth; }), complaint);
  EXPECT_EQ(complaintOf([&] { archive >> fractions; }), complaint);
  EXPECT_EQ(complaintOf([&] { archive >> text; }), complaint);
  EXPECT_EQ(complaintOf([&] { archive >> list; }), complaint);
  EXPECT_EQ(complaintOf([&] { archive >> point; }), complaint);
  EXPECT_EQ(complaintOf([&] { archive >> shared; }), complaint);
  EXPECT_EQ(complaintOf([&] { archive.read_to_address_header(number, number); }), complaint);
  EXPECT_EQ(complaintOf([&] { archive.end_read_to_address(0); }), complaint);
  EXPECT_EQ(complaintOf([&] { archive.check_container_size(0); }), complaint);

  EXPECT_EQ(number, 1U);
  EXPECT_EQ(text, "before");
  const auto bytes = archive.finish();
  EXPECT_EQ(Bytes(bytes.begin(), bytes.end()), archived(7U, std::string("A"), Point()));
}

TEST(ArchiveMisuse, IsToWriteWhatIsRead)
{
  const auto bytes = archiveAround("07 00 00 00 04 00 00 00 78 56 34 12");
  PersistenceArchiver archive(bytes);
  const std::string complaint = "this archive was opened for reading";

  EXPECT_EQ(complaintOf([&] { archive << 1U; }), complaint);
  EXPECT_EQ(complaintOf([&] { archive << true; }), complaint);
  EXPECT_EQ(complaintOf([&] { archive << std::array<double, 2>(); }), complaint);
  EXPECT_EQ(complaintOf([&] { archive << std::string(); }), complaint);
  EXPECT_EQ(complaintOf([&] { archive << std::vector<bool>(); }), complaint);
  EXPECT_EQ(complaintOf([&] { archive << Point(); }), complaint);
  EXPECT_EQ(complaintOf([&] { archive << std::shared_ptr<Point>(); }), complaint);
  EXPECT_EQ(complaintOf([&] { archive << std::make_shared<Point>(); }), complaint);
  EXPECT_EQ(complaintOf([&] { archive.mark_object_start(4, 0); }), complaint);
  EXPECT_EQ(complaintOf([&] { archive.mark_object_end(4, 0); }), complaint);
  EXPECT_EQ(complaintOf([&] { archive.finish(); }), complaint);
  EXPECT_EQ(complaintOf([&] { archive.limitSize(100); }), complaint);
  EXPECT_EQ(complaintOf([&] { archive.clear(); }), complaint);

  EXPECT_EQ(archive.tellp(), 0U);
  EXPECT_EQ(loadedFrom<unsigned int>(archived(7U)), 7U);
  unsigned int number = 0;
  archive >> number;
  EXPECT_EQ(number, 7U);
}

TEST(ArchiveMisuse, IsToCloseAFrameThatIsRead)
{
  const auto bytes = archiveAround("04 00 00 00 78 56 34 12");
  PersistenceArchiver archive(bytes);
  unsigned int address = 0;
  unsigned int marker = 0;
  archive.read_to_address_header(address, marker);

  EXPECT_EQ(complaintOf([&] { archive.mark_object_end(address, 0); }),
            "this archive was opened for reading");
}

TEST(ArchiveMisuse, IsToFinishInTheMiddleOfAnObject)
{
  PersistenceArchiver archive;
  archive.mark_object_start(bodyStart + 4, 0);

  EXPECT_EQ(complaintOf([&] { archive.finish(); }),
            "the archive cannot be finished in the middle of an object");
}

TEST(ArchiveMisuse, IsToWriteAfterTheEnd)
{
  PersistenceArchiver archive;
  archive << 7U;
  archive.finish();
  const std::string complaint = "this archive is finished; clear() begins another one";

  EXPECT_EQ(complaintOf([&] { archive << 1U; }), complaint);
  EXPECT_EQ(complaintOf([&] { archive << std::string(); }), complaint);
  EXPECT_EQ(complaintOf([&] { archive << Point(); }), complaint);
  EXPECT_EQ(complaintOf([&] { archive.mark_object_start(4, 0); }), complaint);
  EXPECT_EQ(complaintOf([&] { archive.mark_object_end(4, 0); }), complaint);

  const auto bytes = archive.finish();
  EXPECT_EQ(Bytes(bytes.begin(), bytes.end()), archived(7U));
}

TEST(ArchiveMisuse, IsToOpenAFrameElsewhere)
{
  for (const unsigned int place : {0U, 20U, 23U, 25U, 0xffffffffU}) {
    PersistenceArchiver archive;
    EXPECT_EQ(complaintOf([&] { archive.mark_object_start(place, 0); }),
              "a frame starts 4 bytes after the write position");
  }
}

TEST(ArchiveMisuse, IsToCloseFramesOutOfOrder)
{
  const std::string complaint = "frames are closed at the write position, the last one first";
  PersistenceArchiver archive;
  EXPECT_EQ(complaintOf([&] { archive.mark_object_end(24, 20); }), complaint) << "none is open";

  archive.mark_object_start(24, 1);
  archive.mark_object_start(32, 2);
  EXPECT_EQ(complaintOf([&] { archive.mark_object_end(24, 36); }), complaint) << "the outer one";
  EXPECT_EQ(complaintOf([&] { archive.mark_object_end(32, 35); }), complaint) << "elsewhere";
  EXPECT_EQ(complaintOf([&] { archive.mark_object_end(32, 37); }), complaint) << "elsewhere";

  archive.mark_object_end(32, 36);
  EXPECT_EQ(complaintOf([&] { archive.mark_object_end(32, 36); }), complaint) << "twice";
  archive.mark_object_end(24, 36);
  EXPECT_EQ(bodyOf(archive), "0c 00 00 00 01 00 00 00 04 00 00 00 02 00 00 00");
}

TEST(ArchiveMisuse, IsToLeaveFramesOutOfOrder)
{
  const auto bytes = archiveAround("0c 00 00 00 01 00 00 00 04 00 00 00 02 00 00 00");
  const std::string complaint = "frames are left with their own marker, the last one first";
  PersistenceArchiver archive(bytes);
  EXPECT_EQ(complaintOf([&] { archive.end_read_to_address(36); }), complaint) << "none is entered";

  unsigned int address = 0;
  unsigned int marker = 0;
  unsigned int hash = 0;
  archive.read_to_address_header(address, marker);
  archive >> hash;
  EXPECT_EQ(complaintOf([&] { archive.end_read_to_address(marker - 1); }), complaint);
  archive.end_read_to_address(marker);
  EXPECT_EQ(complaintOf([&] { archive.end_read_to_address(marker); }), complaint) << "twice";
  EXPECT_TRUE(archive.isAtEnd());
}

TEST(ArchiveMisuse, IsForgivenByClear)
{
  PersistenceArchiver archive;
  archive << std::string("A");
  archive.mark_object_start(static_cast<unsigned int>(archive.tellp() + 4), 1);
  EXPECT_NE(complaintOf([&] { archive.mark_object_start(0, 2); }), "no complaint");

  archive.clear();
  archive << 7U;

  const auto bytes = archive.finish();
  EXPECT_EQ(Bytes(bytes.begin(), bytes.end()), archived(7U));
}

}
}
