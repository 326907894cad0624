// SPDX-License-Identifier: MIT
// Forged bytes with a right checksum do no harm, whatever they are.

#include "PersistenceArchiver/PersistenceArchiver.h"

#include "Platform/Support/ArchivedClasses.h"
#include "Platform/Support/Archives.h"
#include "Support/Allocations.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <vector>

#if !defined(_MSC_VER) // the watch does not reach into DLLs there

namespace Tarvik {
namespace {

/// Every kind of value that an archive may hold.
struct Contents {
  unsigned int number = 7;
  bool truth = true;
  double fraction = 2.5;
  std::string text = "text";
  std::vector<std::uint16_t> numbers = {1, 2};
  std::vector<bool> truths = {true, false};
  std::vector<std::string> texts = {"A", "B"};
  Point point = {1, 2};
  std::vector<Point> points = {{3, 4}, {5, 6}};
  std::shared_ptr<Figure> figure = std::make_shared<Ring>();
  std::vector<std::shared_ptr<Circle>> circles = {std::make_shared<Sign>(), nullptr};
  std::shared_ptr<Labelled> labelled = std::make_shared<Sign>();
};

Bytes archiveOf(const Contents& contents)
{
  return archived(contents.number, contents.truth, contents.fraction, contents.text,
                  contents.numbers, contents.truths, contents.texts, contents.point,
                  contents.points, contents.figure, contents.circles, contents.labelled);
}

void readContents(const Bytes& archive)
{
  PersistenceArchiver source(archive);
  Contents contents;
  source >> contents.number >> contents.truth >> contents.fraction >> contents.text >>
      contents.numbers >> contents.truths >> contents.texts >> contents.point >> contents.points >>
      contents.figure >> contents.circles >> contents.labelled;
}

/// The largest allocation while the action succeeds or refuses the bytes.
template <class Action>
std::size_t memoryFor(Action action)
{
  const AllocationWatch watch;
  try {
    action();
  } catch (const ArchiveError&) {
    EXPECT_GT(AllocationWatch::count(), 0U) << "the error's text";
  }
  return AllocationWatch::largest();
}

TEST(HostileArchive, DoesNoHarmWhicheverBitIsOther)
{
  const auto intact = archiveOf({});
  ASSERT_NO_THROW(readContents(intact));
  const auto figures = Figure::s_count;

  for (std::size_t place = 0; place + 4 < intact.size(); ++place)
    for (unsigned int bit = 0; bit < 8; ++bit) {
      auto archive = intact;
      archive[place] ^= static_cast<std::byte>(1U << bit);
      setChecksum(archive);

      const auto memory = memoryFor([&] { readContents(archive); });

      EXPECT_LE(memory, 8 * intact.size()) << "byte " << place << ", bit " << bit;
      EXPECT_EQ(Figure::s_count, figures) << "byte " << place << ", bit " << bit;
    }
}

TEST(HostileArchive, DoesNoHarmWhicheverWordIsOther)
{
  const auto intact = archiveOf({});
  for (std::size_t place = 0; place + 8 <= intact.size(); ++place)
    for (const std::uint32_t word : {0U, 1U, 2U, 3U, 0x7fffffffU, 0x80000000U, 0xffffffffU,
                                     0xfffffffcU, static_cast<std::uint32_t>(intact.size())}) {
      auto archive = intact;
      setWordAt(archive, place, word);
      setChecksum(archive);

      const auto memory = memoryFor([&] { readContents(archive); });

      EXPECT_LE(memory, 8 * intact.size()) << "byte " << place << ", " << word;
    }
}

TEST(HostileArchive, DoesNoHarmWhereverItsBodyEnds)
{
  const auto intact = archiveOf({});
  const auto table = wordAt(intact, 16);
  for (std::size_t length = bodyStart; length < table; ++length) {
    Bytes archive(intact.begin(), intact.begin() + static_cast<std::ptrdiff_t>(length));
    archive.insert(archive.end(), intact.begin() + static_cast<std::ptrdiff_t>(table),
                   intact.end());
    setWordAt(archive, 12, static_cast<std::uint32_t>(archive.size()));
    setWordAt(archive, 16, static_cast<std::uint32_t>(length));
    setChecksum(archive);

    EXPECT_NE(refusalOf([&] { readContents(archive); }), "nothing was refused") << length;
  }
}

TEST(HostileArchive, DoesNoHarmWithAnyBytes)
{
  std::mt19937 random(17);
  std::uniform_int_distribution<int> anyByte(0, 255);
  for (int round = 0; round < 2'000; ++round) {
    Bytes body(random() % 200);
    for (auto& byte : body)
      byte = static_cast<std::byte>(random() % 3 == 0 ? anyByte(random) : anyByte(random) % 3);
    const auto archive = archiveAround(body, {{"Test.Point"}, {"Test.Ring"}, {"Test.Sign"}});

    EXPECT_LE(memoryFor([&] { readContents(archive); }), 8 * archive.size()) << hex(body);
  }
}

// Counts

/// Larger in memory than in an archive.
struct Wide {
  std::array<char, 1000> room{};

  [[maybe_unused]] friend PersistenceArchiver& operator<<(PersistenceArchiver& archive, const Wide&)
  {
    return archive << std::uint32_t{0};
  }

  friend PersistenceArchiver& operator>>(PersistenceArchiver& archive, Wide&)
  {
    std::uint32_t found = 0;
    archive >> found;
    if (found != 0)
      throw ArchiveError(static_cast<std::size_t>(archive.tellg() - 4), "expected 0");
    return archive;
  }
};

/// The largest allocation while a list is read that claims this many elements, and whose body is
/// one byte repeated.
template <class Element>
std::size_t memoryForList(std::uint32_t count, std::size_t bodySize, std::byte filling)
{
  Bytes body;
  appendWord(body, count);
  body.resize(bodySize, filling);
  const auto archive = archiveAround(body, {{"Test.Point"}});
  return memoryFor([&] {
    PersistenceArchiver source(archive);
    std::vector<Element> list;
    source >> list;
  });
}

template <class Element>
class HostileCount : public ::testing::Test {};

using Elements = ::testing::Types<std::uint8_t,
                                  std::uint64_t,
                                  bool,
                                  std::string,
                                  std::vector<std::uint8_t>,
                                  std::array<std::uint8_t, 3>,
                                  Point,
                                  std::shared_ptr<Point>,
                                  Wide>;

struct ElementName {
  template <class Element>
  static std::string GetName(int index)
  {
    return std::to_string(index);
  }
};

TYPED_TEST_SUITE(HostileCount, Elements, ElementName);

TYPED_TEST(HostileCount, TakesNoMemoryWhenItCannotBeTrue)
{
  for (const std::uint32_t count : {100'001U, 0x10000000U, 0x80000000U, 0xffffffffU})
    EXPECT_LT(memoryForList<TypeParam>(count, 100'000, std::byte{0xff}), 1'024U) << count;
}

TYPED_TEST(HostileCount, TakesAsMuchMemoryAsTheArchiveWhenItMightBeTrue)
{
  constexpr std::size_t size = 200'000;
  for (const std::uint32_t count : {10U, 1'000U, 24'999U, 49'999U, 199'996U})
    EXPECT_LE(memoryForList<TypeParam>(count, size, std::byte{0xff}), size + 1'024U) << count;
}

TEST(HostileCount, TakesASmallMultipleWhenTheElementsAreReallyThere)
{
  constexpr std::size_t size = 200'000;
  constexpr std::uint32_t words = size / 4 - 1;
  // Each element takes a word, and the list may have room for twice as many.
  const auto mostFor = [](std::size_t sizeOfElement) { return sizeOfElement / 2 * size; };

  EXPECT_LE(memoryForList<std::string>(words, size, std::byte{0}), mostFor(sizeof(std::string)));
  EXPECT_LE(memoryForList<std::vector<std::uint8_t>>(words, size, std::byte{0}),
            mostFor(sizeof(std::vector<std::uint8_t>)));
  EXPECT_LE(memoryForList<std::shared_ptr<Point>>(words, size, std::byte{0}),
            mostFor(sizeof(std::shared_ptr<Point>)));
}

}
}

#endif
