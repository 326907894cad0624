// SPDX-License-Identifier: MIT
#include "PointCollections/Project/ProjectFile.h"

#include "PersistenceArchiver/PersistenceArchiver.h"
#include "PointCollections/Support/Projects.h"

#include <gmock/gmock.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <limits>

namespace Tarvik::PointCollections {
namespace {

using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

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

TEST(ProjectContent, IsTakenWhenAllIsAsItMustBe)
{
  const auto bytes = projectWithElements([](auto& archive) {
    writeElement(archive, 2, "b", {4, 5, 6});
  });

  const auto document = load(bytes);

  EXPECT_EQ(namesOf(*document, document->order()), (std::vector<std::string>{"a", "b"}));
  EXPECT_EQ(document->findByName("b")->points, (std::vector<Point>{{4, 5, 6}}));
}

TEST(ProjectContent, HasEachIdOnce)
{
  const auto bytes = projectWithElements([](auto& archive) { writeElement(archive, 1, "b"); });

  EXPECT_EQ(mistakeInBytes(bytes), "p.tkpc, byte 81: expected each id once, found an element with "
                                   "00000000-0000-0000-0000-000000000001 again");
}

TEST(ProjectContent, HasNoInvalidId)
{
  const auto bytes = projectWithElements([](auto& archive) { writeElement(archive, 0, "b"); });

  EXPECT_EQ(mistakeInBytes(bytes),
            "p.tkpc, byte 81: expected the id of an element, found the invalid one");
}

TEST(ProjectContent, HasEachNameOnce)
{
  const auto bytes = projectWithElements([](auto& archive) { writeElement(archive, 2, "a"); });

  EXPECT_EQ(mistakeInBytes(bytes),
            "p.tkpc, byte 81: expected each name once, found a second element a");
}

TEST(ProjectContent, HasNamesThatArePlainText)
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

TEST(ProjectContent, HasFiniteCoordinates)
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

TEST(ProjectContent, HasNoMoreElementsOrPointsThanItHasBytes)
{
  const auto elements =
      projectWith([](PersistenceArchiver& archive) { archive << 1'000'000U << 0U; });
  const auto points = projectWithElements([](auto& archive) {
    archive << std::array<std::uint64_t, 2>{0, 2} << std::string("b") << 1'000'000U;
  });

  EXPECT_THAT(mistakeInBytes(elements), StartsWith("p.tkpc, byte 28: "));
  EXPECT_THAT(mistakeInBytes(points), StartsWith("p.tkpc, byte 102: "));
}

TEST(ProjectContent, HasGroupsWithValidIdsAndNamesThatAreText)
{
  const auto mistakeWithGroups = [](const std::vector<Group>& groups) {
    return mistakeInBytes(projectWith([&](PersistenceArchiver& archive) {
      archive << 0U << groups;
      for (std::size_t i = 0; i < groups.size(); ++i)
        archive << std::uint8_t{0};
    }));
  };
  const Group group("a");

  EXPECT_EQ(mistakeWithGroups({group, Group("a")}), "no mistake");
  EXPECT_THAT(mistakeWithGroups({group, group}),
              AllOf(HasSubstr("expected each id once, found a group"),
                    HasSubstr(group.getId().toString())));
  EXPECT_THAT(mistakeWithGroups({Group("\xC3")}),
              HasSubstr("expected the name of a group in UTF-8 without NUL, found \"\\xC3\""));
}

TEST(ProjectContent, SaysOfEachGroupWhetherItIsExpanded)
{
  const auto mistakeWith = [](std::uint8_t isExpanded) {
    return mistakeInBytes(projectWith([&](PersistenceArchiver& archive) {
      archive << 0U << std::vector{Group("a")} << isExpanded;
    }));
  };

  EXPECT_EQ(mistakeWith(0), "no mistake");
  EXPECT_EQ(mistakeWith(1), "no mistake");
  EXPECT_THAT(mistakeWith(2), EndsWith("expected 1 for an expanded group, or 0, found 2"));
}

}
}
