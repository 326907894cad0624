// SPDX-License-Identifier: MIT
#include "GroupHosting/Differences/ListComparison.h"
#include "GroupHosting/Differences/MoveSequence.h"
#include "GroupHosting/Support/Steps.h"
#include "Support/Identifiers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

namespace Tarvik {
namespace {

using namespace GroupLists;

template <class T>
class ListComparison : public ::testing::Test {
protected:
  /// A list whose runs are moved, removed and inserted at random.
  std::vector<T> edited(const std::vector<T>& entries, int changes)
  {
    EditedList<T> list(entries);
    for (; changes > 0; --changes) {
      const auto count = upTo(3);
      const auto from = upTo(list.entries().size() - count);
      const auto taken = list.remove(from, count);
      if (upTo(4) > 1)
        list.insert(upTo(list.entries().size()), taken);
      if (upTo(4) == 1)
        list.insert(upTo(list.entries().size()), std::vector<T>(count));
    }
    return list.entries();
  }

  std::size_t upTo(std::size_t most) { return random() % (most + 1); }

  std::mt19937 random{1};
};
TYPED_TEST_SUITE(ListComparison, ElementIdentifiers, KindName);

TYPED_TEST(ListComparison, FindsMovesThatCanBeMadeOneByOne)
{
  for (int i = 0; i < 500; ++i) {
    const std::vector<TypeParam> before(80 + this->upTo(100));
    const auto after = this->edited(before, 1 + static_cast<int>(this->upTo(20)));
    const auto edit = editBetween(before, after);

    EditedList<TypeParam> list(before);
    for (auto run = edit.removed.rbegin(); run != edit.removed.rend(); ++run)
      list.remove(run->position, run->count);
    for (const auto& run : oneByOne(edit.moved))
      list.move(run.from, run.count, run.to);
    if (!edit.order.empty())
      list.reorder(edit.order);
    for (const auto& run : edit.inserted)
      list.insert(run.position, entriesOf(after, run));

    ASSERT_EQ(list.entries(), after) << i;
  }
}

TYPED_TEST(ListComparison, IsReversedExactly)
{
  for (int i = 0; i < 500; ++i) {
    const std::vector<TypeParam> before(80 + this->upTo(100));
    const auto after = this->edited(before, 1 + static_cast<int>(this->upTo(20)));

    const auto edit = reversed(editBetween(before, after));

    const auto pieces = piecesOf(edit);
    ASSERT_EQ(pieces.size(), before.size());
    std::size_t position = 0;
    for (const auto& run : pieces.runs()) {
      if (run.position != nowhere) {
        ASSERT_EQ(entriesOf(after, run), entriesOf(before, Run{position, run.count})) << i;
      }
      position += run.count;
    }
  }
}

TEST(ANewOrder, IsTakenWhereItIsSmallerThanMovesAndItsPositionsFit)
{
  constexpr std::size_t most = (std::numeric_limits<std::uint32_t>::max)();

  EXPECT_FALSE(isSmallerAsOrder(1, 1));
  EXPECT_FALSE(isSmallerAsOrder(100, 10));
  EXPECT_TRUE(isSmallerAsOrder(100, 50));
  EXPECT_TRUE(isSmallerAsOrder(most, most));
  if constexpr (sizeof(std::size_t) > sizeof(std::uint32_t)) {
    EXPECT_FALSE(isSmallerAsOrder(most + 1, most));
  }
}

}
}
