// SPDX-License-Identifier: MIT
#include "PointCollections/Project/ProjectFile.h"

#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"
#include "PersistenceArchiver/PersistenceArchiver.h"
#include "PointCollections/Support/Documents.h"

#include <gmock/gmock.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>

namespace Tarvik::PointCollections {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::StartsWith;

using Bytes = std::vector<std::byte>;
using Group = TKGroup<GUIdentifier>;

/// All that a document is, bit by bit.
std::string everythingIn(PointDocument& document)
{
  std::string text;
  for (const auto& id : document.order()) {
    const auto& collection = *document.find(id);
    text += id.toString() + ' ' + collection.name + '\n';
    for (const auto& [x, y, z] : collection.points) {
      for (const double number : {x, y, z})
        text += ' ' + std::to_string(std::bit_cast<std::uint64_t>(number));
      text += '\n';
    }
  }
  for (const auto& group : document.getGroups()) {
    text += group.getId().toString() + ' ' + group.getName() + '\n';
    for (const auto& member : group.getGroupMembers())
      text += ' ' + member.toString() + '\n';
  }
  return text;
}

std::shared_ptr<PointDocument> load(std::span<const std::byte> bytes)
{
  return loadProject(bytes, "p.tkpc");
}

std::string mistakeInBytes(std::span<const std::byte> bytes)
{
  return mistakeIn([&] { load(bytes); });
}

/// The document that is loaded from what another one is saved as.
std::string everythingKept(PointDocument& document)
{
  return everythingIn(*load(saveProject(document)));
}

std::shared_ptr<PointDocument> smallDocument()
{
  auto document = PointDocument::create(
      {{.id = GUIdentifier(), .name = "a", .points = {{1, -2.5, 1e300}, {-0.0, 5e-324, 0.1}}},
       {.id = GUIdentifier(), .name = "b c", .points = {}},
       {.id = GUIdentifier(), .name = "Größe \"都市\"\n", .points = {{7, 8, 9}}}});
  Group members("first");
  members.addGroupMembersAtIndex({document->order()[2], document->order()[0]}, 0);
  document->setGroups({members, Group("first"), Group("")});
  document->setOrder({document->order()[2], document->order()[0], document->order()[1]});
  return document;
}

/// The checksum at the end of an archive (CRC-32C), written here once more: what is broken below
/// must get past it.
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

void mendChecksum(Bytes& bytes)
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

/// An archive with a project in it whose content the test writes.
Bytes projectWith(const std::function<void(PersistenceArchiver&)>& writeContent)
{
  PersistenceArchiver archive;
  const auto start = static_cast<unsigned int>(archive.tellp() + 4);
  archive.mark_object_start(start, PersistenceArchiver::getHashForName("PointProject"));
  writeContent(archive);
  archive.mark_object_end(start, static_cast<unsigned int>(archive.tellp()));
  const auto bytes = archive.finish();
  return {bytes.begin(), bytes.end()};
}

void writeCount(PersistenceArchiver& archive, std::uint32_t count)
{
  archive << count;
}

void writeElement(PersistenceArchiver& archive,
                  std::uint64_t id,
                  const std::string& name,
                  const std::vector<double>& coordinates = {})
{
  archive << std::array<std::uint64_t, 2>{0, id} << name
          << static_cast<std::uint32_t>(coordinates.size() / 3);
  for (const double coordinate : coordinates)
    archive << coordinate;
}

Bytes projectWithElements(const std::function<void(PersistenceArchiver&)>& writeSecond)
{
  return projectWith([&](PersistenceArchiver& archive) {
    writeCount(archive, 2);
    writeElement(archive, 1, "a", {1, 2, 3});
    writeSecond(archive);
    writeCount(archive, 0);
  });
}

TEST(ProjectFile, KeepsEverything)
{
  const auto document = smallDocument();

  EXPECT_EQ(everythingKept(*document), everythingIn(*document));
}

TEST(ProjectFile, KeepsAnEmptyDocument)
{
  EXPECT_EQ(everythingKept(*PointDocument::create()), "");
}

TEST(ProjectFile, KeepsElementsInMoreThanOneGroupAndThoseOfOtherDocuments)
{
  const auto document = smallDocument();
  Group group("strange");
  group.addGroupMembersAtIndex({document->order()[0], document->order()[0], GUIdentifier()}, 0);
  document->setGroups({group, group = Group("other")});
  document->getGroups()[1].addGroupMember(document->order()[0]);

  EXPECT_EQ(everythingKept(*document), everythingIn(*document));
}

TEST(ProjectFile, KeepsManyElements)
{
  std::vector<PointCollection> collections(20000);
  for (std::size_t i = 0; i < collections.size(); ++i) {
    collections[i].name = "element " + std::to_string(i);
    collections[i].points = {Point{static_cast<double>(i), 0.5, -1}};
  }
  const auto document = PointDocument::create(collections);

  EXPECT_EQ(everythingKept(*document), everythingIn(*document));
}

TEST(ProjectFile, IsTheSameForTheSameDocument)
{
  const auto document = smallDocument();

  const auto bytes = saveProject(*document);

  EXPECT_EQ(bytes, saveProject(*document));
  EXPECT_EQ(bytes, saveProject(*load(bytes)));
}

TEST(ProjectFile, IsRefusedWhenItIsCutOffAnywhere)
{
  const auto bytes = saveProject(*smallDocument());

  for (std::size_t size = 0; size < bytes.size(); ++size)
    EXPECT_THAT(mistakeInBytes(std::span(bytes).first(size)), StartsWith("p.tkpc, byte ")) << size;
}

TEST(ProjectFile, IsRefusedWhenAnyBitIsWrong)
{
  auto bytes = saveProject(*smallDocument());

  for (std::size_t bit = 0; bit < bytes.size() * 8; ++bit) {
    flip(bytes, bit);
    EXPECT_THAT(mistakeInBytes(bytes), StartsWith("p.tkpc, byte ")) << "bit " << bit;
    flip(bytes, bit);
  }
  EXPECT_EQ(mistakeInBytes(bytes), "no mistake");
}

TEST(ProjectFile, IsRefusedOrAGoodDocumentWhenTheChecksumHidesAWrongBit)
{
  const auto good = saveProject(*smallDocument());

  std::size_t refused = 0;
  for (std::size_t bit = 0; bit < good.size() * 8; ++bit) {
    auto bytes = good;
    flip(bytes, bit);
    mendChecksum(bytes);
    const auto mistake = mistakeIn([&] {
      const auto document = load(bytes);
      EXPECT_EQ(everythingKept(*document), everythingIn(*document)) << "bit " << bit;
    });
    refused += mistake != "no mistake" ? 1U : 0U;
  }
  EXPECT_GT(refused, 0U);
  EXPECT_LT(refused, good.size() * 8); // most bits of ids and coordinates may have either value
}

TEST(ProjectFile, IsRefusedWithMoreBehindIt)
{
  auto bytes = saveProject(*smallDocument());
  bytes.resize(bytes.size() + 1);

  EXPECT_THAT(mistakeInBytes(bytes), StartsWith("p.tkpc, byte 12: expected an archive of "));
}

TEST(ProjectFile, IsRefusedWhenItIsSomethingElse)
{
  const std::string text = "collection,x,y,z\na,1,2,3\nb,4,5,6\n";
  PersistenceArchiver names;
  names << NameInterface("a");

  EXPECT_EQ(mistakeInBytes(std::as_bytes(std::span(text))),
            "p.tkpc, byte 0: expected the first 8 bytes of an archive, found others; it is no "
            "archive");
  EXPECT_THAT(mistakeInBytes(names.finish()), HasSubstr("expected an object of the class"));
}

TEST(ProjectFile, IsRefusedWithoutAProjectInIt)
{
  PersistenceArchiver archive;

  EXPECT_THAT(mistakeInBytes(archive.finish()), StartsWith("p.tkpc, byte 20: "));
}

TEST(ProjectFile, IsRefusedWithTwoProjectsInIt)
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

TEST(ProjectFile, IsRefusedWithMoreThanAProjectHas)
{
  const auto bytes =
      projectWith([](PersistenceArchiver& archive) { archive << 0U << 0U << std::uint8_t{1}; });

  EXPECT_EQ(mistakeInBytes(bytes), "p.tkpc, byte 36: expected the end of the project, found more; "
                                   "the archive is damaged");
}

TEST(ProjectFile, IsTakenWhenAllIsAsItMustBe)
{
  const auto bytes = projectWithElements([](auto& archive) {
    writeElement(archive, 2, "b", {4, 5, 6});
  });

  const auto document = load(bytes);

  EXPECT_EQ(namesOf(*document, document->order()), (std::vector<std::string>{"a", "b"}));
  EXPECT_EQ(document->findByName("b")->points, (std::vector<Point>{{4, 5, 6}}));
}

TEST(ProjectFile, HasEachIdOnce)
{
  const auto bytes = projectWithElements([](auto& archive) { writeElement(archive, 1, "b"); });

  EXPECT_EQ(mistakeInBytes(bytes), "p.tkpc, byte 81: expected each id once, found an element with "
                                   "00000000-0000-0000-0000-000000000001 again");
}

TEST(ProjectFile, HasNoInvalidId)
{
  const auto bytes = projectWithElements([](auto& archive) { writeElement(archive, 0, "b"); });

  EXPECT_EQ(mistakeInBytes(bytes),
            "p.tkpc, byte 81: expected the id of an element, found the invalid one");
}

TEST(ProjectFile, HasEachNameOnce)
{
  const auto bytes = projectWithElements([](auto& archive) { writeElement(archive, 2, "a"); });

  EXPECT_EQ(mistakeInBytes(bytes),
            "p.tkpc, byte 81: expected each name once, found a second element a");
}

TEST(ProjectFile, HasNamesThatArePlainText)
{
  const auto mistakeWithName = [](const std::string& name) {
    return mistakeInBytes(
        projectWithElements([&](auto& archive) { writeElement(archive, 2, name); }));
  };

  EXPECT_EQ(mistakeWithName(""),
            "p.tkpc, byte 81: expected the name of an element, found an empty one");
  EXPECT_EQ(mistakeWithName("\xFF"), "p.tkpc, byte 81: expected the name of an element in UTF-8 "
                                     "without NUL, found \"\\xFF\"");
  EXPECT_EQ(mistakeWithName(std::string("b\0", 2)),
            "p.tkpc, byte 81: expected the name of an element in UTF-8 without NUL, found "
            "\"b\\x00\"");
}

TEST(ProjectFile, HasFiniteCoordinates)
{
  for (const double wrong : {std::nan(""), std::numeric_limits<double>::infinity(),
                             -std::numeric_limits<double>::infinity()}) {
    for (const auto& point : {std::vector{wrong, 0., 0.}, {0., wrong, 0.}, {0., 0., wrong}}) {
      const auto bytes =
          projectWithElements([&](auto& archive) { writeElement(archive, 2, "b", point); });
      EXPECT_EQ(mistakeInBytes(bytes),
                "p.tkpc, byte 81: expected finite coordinates, found others in b");
    }
  }
}

TEST(ProjectFile, HasNoMoreElementsOrPointsThanItHasBytes)
{
  const auto elements =
      projectWith([](PersistenceArchiver& archive) { archive << 1'000'000U << 0U; });
  const auto points = projectWithElements([](auto& archive) {
    archive << std::array<std::uint64_t, 2>{0, 2} << std::string("b") << 1'000'000U;
  });

  EXPECT_THAT(mistakeInBytes(elements), HasSubstr("byte 28: expected at most 0 elements"));
  EXPECT_THAT(mistakeInBytes(points), HasSubstr("byte 102: expected at most 0 elements"));
}

TEST(ProjectFile, HasGroupsWithValidIdsAndNamesThatAreText)
{
  const auto mistakeWithGroups = [](const std::vector<Group>& groups) {
    return mistakeInBytes(
        projectWith([&](PersistenceArchiver& archive) { archive << 0U << groups; }));
  };
  const Group group("a");

  EXPECT_EQ(mistakeWithGroups({group, Group("a")}), "no mistake");
  EXPECT_THAT(mistakeWithGroups({group, group}),
              AllOf(HasSubstr("expected each id once, found a group"),
                    HasSubstr(group.getId().toString())));
  EXPECT_THAT(mistakeWithGroups({Group("\xC3")}),
              HasSubstr("expected the name of a group in UTF-8 without NUL, found \"\\xC3\""));
}

TEST(ProjectFile, DoesNotFloodTheScreenWithWhatItQuotes)
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
  mendChecksum(bytes);

  const auto mistake = mistakeInBytes(bytes);

  EXPECT_THAT(mistake, HasSubstr("found \"\\x1B[2Jxxx"));
  EXPECT_LT(mistake.size(), 600U);
}

TEST(ProjectFile, IsNotMadeOfWhatCouldNotBeLoaded)
{
  const auto mistakeWith = [](const PointCollection& collection) {
    return mistakeIn([&] { saveProject(*PointDocument::create({collection})); });
  };

  EXPECT_THAT(mistakeWith({.id = GUIdentifier(), .name = "\xFF", .points = {}}),
              AllOf(StartsWith("the document cannot be saved: "), HasSubstr("UTF-8")));
  EXPECT_THAT(mistakeWith({.id = GUIdentifier(), .name = "a", .points = {{0, std::nan(""), 0}}}),
              HasSubstr("expected finite coordinates, found others in a"));
  EXPECT_THAT(mistakeWith({.id = GUIdentifier::getInvalidId(), .name = "a", .points = {}}),
              HasSubstr("expected the id of an element"));
}

TEST(ProjectFile, HasANameThatEndsInTkpc)
{
  EXPECT_TRUE(isProjectName("a.tkpc"));
  EXPECT_TRUE(isProjectName("/b/a.b.TKPC"));
  EXPECT_FALSE(isProjectName("a.csv"));
  EXPECT_FALSE(isProjectName("a.tkpc.csv"));
  EXPECT_FALSE(isProjectName("tkpc"));
  EXPECT_FALSE(isProjectName(".tkpc"));
  EXPECT_FALSE(isProjectName(""));
}

}
}
