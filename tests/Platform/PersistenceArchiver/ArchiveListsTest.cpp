// SPDX-License-Identifier: MIT
#include "PersistenceArchiver/PersistenceArchiver.h"

#include "Platform/Support/ArchivedClasses.h"
#include "Platform/Support/Archives.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace Tarvik {
namespace {

/// A class with its own stream operators, not registered.
struct StreamedWord {
  std::uint16_t value = 0;
  friend bool operator==(const StreamedWord&, const StreamedWord&) = default;
};

PersistenceArchiver& operator<<(PersistenceArchiver& archive, const StreamedWord& word)
{
  return archive << word.value;
}

PersistenceArchiver& operator>>(PersistenceArchiver& archive, StreamedWord& word)
{
  return archive >> word.value;
}

template <class Element>
void expectReadBack(const std::vector<Element>& list)
{
  EXPECT_EQ(loadedFrom<std::vector<Element>>(archived(list)), list);
}

TEST(ArchivedLists, AreTheirCountAndTheirElements)
{
  EXPECT_EQ(written(std::vector<std::uint32_t>{}), "00 00 00 00");
  EXPECT_EQ(written(std::vector<std::uint16_t>{1, 0x0203}), "02 00 00 00 01 00 03 02");
  EXPECT_EQ(written(std::vector<bool>{true, false, true}), "03 00 00 00 01 00 01");
  EXPECT_EQ(written(std::vector<std::string>{"A", "", "BC"}), "03 00 00 00 "
                                                              "01 00 00 00 41 "
                                                              "00 00 00 00 "
                                                              "02 00 00 00 42 43");
  EXPECT_EQ(written(std::vector<std::vector<std::uint8_t>>{{1, 2}, {}}), "02 00 00 00 "
                                                                         "02 00 00 00 01 02 "
                                                                         "00 00 00 00");
  EXPECT_EQ(written(std::vector<std::array<std::uint8_t, 2>>{{1, 2}, {3, 4}}),
            "02 00 00 00 01 02 03 04");
  EXPECT_EQ(written(std::vector<StreamedWord>{{1}, {2}}), "02 00 00 00 01 00 02 00");
  EXPECT_EQ(written(std::vector<Point>{{1, 2}}), "01 00 00 00 "
                                                 "0c 00 00 00 " +
                                                     hashText("Test.Point") +
                                                     " 01 00 00 00 02 00 00 00");
  EXPECT_EQ(written(std::vector<std::shared_ptr<Point>>{nullptr, nullptr}),
            "02 00 00 00 00 00 00 00 00 00 00 00");
}

TEST(ArchivedLists, AreReadBackWhateverTheirElements)
{
  expectReadBack<std::uint8_t>({0, 1, 255});
  expectReadBack<std::int64_t>({-1, 0, 1});
  expectReadBack<double>({0.5, -0.25});
  expectReadBack<bool>({true, false, false, true, true, true, false, true, true});
  expectReadBack<std::string>({"", "A", "a text that is too long to be kept within the string"});
  expectReadBack<std::vector<std::string>>({{}, {"A", "B"}, {""}});
  expectReadBack<std::vector<bool>>({{true}, {}, {false}});
  expectReadBack<StreamedWord>({{1}, {2}, {65535}});
  expectReadBack<Point>({{1, -2}, {}, {3, 4}});
  expectReadBack<std::uint32_t>({});
  expectReadBack<Point>({});
}

TEST(ArchivedLists, AreReadBackWhenTheirElementsAreShorterThanANumber)
{
  expectReadBack<std::array<std::uint8_t, 1>>({{1}, {2}, {3}});
  expectReadBack<std::array<std::uint8_t, 3>>({{1, 2, 3}});
  expectReadBack<std::array<bool, 2>>({{true, false}, {false, true}, {true, true}});
  expectReadBack<std::array<std::uint16_t, 1>>({{1}, {2}, {3}});
  expectReadBack<std::array<std::uint64_t, 2>>({{1, 2}, {3, 4}, {5, 6}});
}

TEST(ArchivedLists, BecomeShorter)
{
  const auto archive = archived(std::vector<std::uint32_t>{7}, std::vector<std::string>{"A"},
                                std::vector<bool>{true}, std::vector<Point>{});
  PersistenceArchiver source(archive);
  std::vector<std::uint32_t> numbers = {1, 2, 3};
  std::vector<std::string> texts = {"one", "two"};
  std::vector<bool> truths = {false, false, false};
  std::vector<Point> points = {{1, 2}};

  source >> numbers >> texts >> truths >> points;

  EXPECT_EQ(numbers, std::vector<std::uint32_t>{7});
  EXPECT_EQ(texts, std::vector<std::string>{"A"});
  EXPECT_EQ(truths, std::vector<bool>{true});
  EXPECT_TRUE(points.empty());
}

TEST(ArchivedLists, BecomeLonger)
{
  const auto archive =
      archived(std::vector<std::uint32_t>{7, 8}, std::vector<std::string>{"A", "B"},
               std::vector<bool>{true, true}, std::vector<Point>{{1, 2}, {3, 4}});
  PersistenceArchiver source(archive);
  std::vector<std::uint32_t> numbers = {1};
  std::vector<std::string> texts = {"one"};
  std::vector<bool> truths = {false};
  std::vector<Point> points = {{5, 6}};

  source >> numbers >> texts >> truths >> points;

  EXPECT_EQ(numbers, (std::vector<std::uint32_t>{7, 8}));
  EXPECT_EQ(texts, (std::vector<std::string>{"A", "B"}));
  EXPECT_EQ(truths, (std::vector<bool>{true, true}));
  EXPECT_EQ(points, (std::vector<Point>{{1, 2}, {3, 4}}));
}

TEST(ArchivedLists, LoadIntoTheElementsThatAreThere)
{
  const auto archive = archived(std::vector<Point>{{1, 2}, {3, 4}});
  PersistenceArchiver source(archive);
  std::vector<Point> points(3);
  const auto* const first = points.data();

  source >> points;

  EXPECT_EQ(points, (std::vector<Point>{{1, 2}, {3, 4}}));
  EXPECT_EQ(points.data(), first);
}

TEST(ArchivedLists, KeepWhatIsSharedWithinThem)
{
  const auto one = std::make_shared<Point>(Point{1, 2});
  const auto other = std::make_shared<Point>(Point{1, 2});

  const auto loaded = loadedFrom<std::vector<std::shared_ptr<Point>>>(
      archived(std::vector<std::shared_ptr<Point>>{one, nullptr, other, one}));

  ASSERT_EQ(loaded.size(), 4U);
  EXPECT_EQ(loaded[0], loaded[3]);
  EXPECT_EQ(loaded[1], nullptr);
  EXPECT_NE(loaded[0], loaded[2]);
  EXPECT_EQ(*loaded[0], *one);
  EXPECT_EQ(*loaded[2], *other);
}

TEST(ArchivedLists, AreNotLongerThanWhatFollows)
{
  const auto refusalToRead = [](auto list, const std::string& bytes) {
    const auto archive = archiveAround(bytes);
    PersistenceArchiver source(archive);
    return refusalOf([&] { source >> list; });
  };
  const auto text = [](int most, int found, int left) {
    return "archive, byte 20: expected a count of at most " + std::to_string(most) + ", found " +
           std::to_string(found) + " with " + std::to_string(left) +
           (left == 1 ? " byte" : " bytes") + " left; the archive is damaged";
  };

  EXPECT_EQ(refusalToRead(std::vector<std::uint8_t>(), "02 00 00 00 01"), text(1, 2, 1));
  EXPECT_EQ(refusalToRead(std::vector<bool>(), "02 00 00 00 01"), text(1, 2, 1));
  EXPECT_EQ(refusalToRead(std::vector<std::uint32_t>(), "02 00 00 00 01 02 03 04 05 06 07"),
            text(1, 2, 7));
  EXPECT_EQ(refusalToRead(std::vector<double>(), "01 00 00 00 01 02 03 04 05 06 07"),
            text(0, 1, 7));
  EXPECT_EQ(refusalToRead(std::vector<std::string>(), "02 00 00 00 00 00 00 00 00 00 00"),
            text(1, 2, 7));
  EXPECT_EQ(refusalToRead(std::vector<std::vector<bool>>(), "02 00 00 00 00 00 00 00 00 00 00"),
            text(1, 2, 7));
  EXPECT_EQ(refusalToRead(std::vector<std::array<std::uint8_t, 3>>(), "02 00 00 00 01 02 03 04 05"),
            text(1, 2, 5));
  EXPECT_EQ(refusalToRead(std::vector<Point>(), "02 00 00 00 00 00 00 00 00 00 00 00"),
            text(1, 2, 8));
  EXPECT_EQ(
      refusalToRead(std::vector<std::shared_ptr<Point>>(), "02 00 00 00 00 00 00 00 00 00 00"),
      text(1, 2, 7));
  EXPECT_EQ(refusalToRead(std::vector<StreamedWord>(), "03 00 00 00 00 00"), text(2, 3, 2));
}

TEST(ArchivedLists, KeepTheElementsThatWereReadWhenTheNextIsDamaged)
{
  const auto archive = archiveAround("02 00 00 00 "
                                     "01 00 00 00 41 "
                                     "09 00 00 00 42");
  PersistenceArchiver source(archive);
  std::vector<std::string> texts;

  EXPECT_EQ(refusalOf([&] { source >> texts; }),
            "archive, byte 29: expected a count of at most 1, found 9 with 1 byte left; the "
            "archive is damaged");
  EXPECT_EQ(texts, (std::vector<std::string>{"A", ""}));
}

}
}
