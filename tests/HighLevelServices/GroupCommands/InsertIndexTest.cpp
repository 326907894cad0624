// SPDX-License-Identifier: MIT
// Where AddToTKGroupCmd inserts elements, and how it counts its insert index down.

#include "HighLevelServices/GroupCommands/AddTo.h"
#include "Support/Allocations.h"
#include "Support/RecordingHost.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <new>

namespace Tarvik {
namespace {

template <class T>
class InsertIndex : public ::testing::Test {};
TYPED_TEST_SUITE(InsertIndex, ElementIdentifiers, KindName);

TYPED_TEST(InsertIndex, PutsElementsBeforeTheMemberAtIt)
{
  const auto [a, b, x, y] = distinct<TypeParam, 4>();
  const auto host = hostWith(group("A", {a, b}));

  addTo(host, "A", {x, y}, 1);

  EXPECT_EQ(host->groups(), list(group("A", {a, x, y, b})));
}

TYPED_TEST(InsertIndex, StaysBeforeTheSameMemberWhenAnEarlierOneMoves)
{
  const auto [a, b, c, d] = distinct<TypeParam, 4>();
  const auto host = hostWith(group("A", {a, b, c, d}));

  addTo(host, "A", {b}, 3);

  EXPECT_EQ(host->groups(), list(group("A", {a, c, b, d})));
}

TYPED_TEST(InsertIndex, StaysForAMemberAfterIt)
{
  const auto [a, b, c, d] = distinct<TypeParam, 4>();
  const auto host = hostWith(group("A", {a, b, c, d}));

  addTo(host, "A", {d}, 1);

  EXPECT_EQ(host->groups(), list(group("A", {a, d, b, c})));
}

TYPED_TEST(InsertIndex, StaysForTheMemberAtIt)
{
  const auto [a, b, c] = distinct<TypeParam, 3>();
  const auto host = hostWith(group("A", {a, b, c}));

  addTo(host, "A", {b}, 1);

  EXPECT_EQ(host->groups(), list(group("A", {a, b, c})));
}

TYPED_TEST(InsertIndex, FallsOnceForEachMemberBeforeIt)
{
  const auto [a, b, c] = distinct<TypeParam, 3>();
  const auto host = hostWith(group("A", {a, b, c}));

  addTo(host, "A", {a, b}, 2);

  EXPECT_EQ(host->groups(), list(group("A", {a, b, c})));
}

TYPED_TEST(InsertIndex, FallsForMembersBeforeItAndNotForThoseAfterIt)
{
  const auto [a, b, c, d, e] = distinct<TypeParam, 5>();
  const auto host = hostWith(group("A", {a, b, c, d, e}));

  addTo(host, "A", {a, d, b}, 3); // the index falls to 2, where d is by then, and then to 1

  EXPECT_EQ(host->groups(), list(group("A", {c, a, d, b, e})));
}

TYPED_TEST(InsertIndex, OfZeroIsTheFront)
{
  const auto [a, b, c] = distinct<TypeParam, 3>();
  const auto host = hostWith(group("A", {a, b, c}));

  addTo(host, "A", {a, c}, 0);

  EXPECT_EQ(host->groups(), list(group("A", {a, c, b})));
}

TYPED_TEST(InsertIndex, OutsideTheGroupIsTheEnd)
{
  const auto [a, b, c] = distinct<TypeParam, 3>();

  for (const int index :
       {-1, -7, std::numeric_limits<int>::min(), 3, 4, std::numeric_limits<int>::max()}) {
    const auto host = hostWith(group("A", {a, b, c}));
    addTo(host, "A", {b}, index);
    EXPECT_EQ(host->groups(), list(group("A", {a, c, b}))) << "index " << index;
  }
}

TYPED_TEST(InsertIndex, FallsEvenWhenAnEarlierGroupGivesTheElement)
{
  const auto [a, b, c, z] = distinct<TypeParam, 4>();
  const auto host = hostWith(group("Earlier", {b}), group("Target", {a, b, c}));

  addTo(host, "Target", {b, z}, 2);

  EXPECT_EQ(host->groups(), list(group<TypeParam>("Earlier", {}), group("Target", {a, z, b, c})));
}

TYPED_TEST(InsertIndex, FallsWhenTheTargetGivesTheElementBeforeALaterGroup)
{
  const auto [a, b, x] = distinct<TypeParam, 3>();
  const auto host = hostWith(group("Target", {x, a, b}), group("Later", {x}));

  addTo(host, "Target", {x}, 2);

  EXPECT_EQ(host->groups(), list(group("Target", {a, x, b}), group("Later", {x})));
}

TYPED_TEST(InsertIndex, StaysLoweredForASecondExecute)
{
  const auto [a, b, c] = distinct<TypeParam, 3>();
  const auto host = hostWith(group("A", {a, b, c}));
  AddToTKGroupCmd<TypeParam> command(host, {a}, host->idOf("A"));
  command.setInsertIndex(2);
  command.execute();
  ASSERT_EQ(host->groups(), list(group("A", {b, a, c})));
  command.undo();

  command.execute(); // starts from index 1

  EXPECT_EQ(host->groups(), list(group("A", {a, b, c})));
}

TYPED_TEST(InsertIndex, IsNotLoweredByAnExecuteThatFails)
{
  const auto [a, b, c, d] = distinct<TypeParam, 4>();
  const auto target = group("A", {a, b, c, d});
  const auto later = group("B", {TypeParam()});
  for (std::size_t successes = 0; successes < 1000; ++successes) {
    const auto host = hostWith(target, later);
    AddToTKGroupCmd<TypeParam> command(host, {a, b}, host->idOf("A"));
    command.setInsertIndex(3);
    try {
      const AllocationWatch watch(successes);
      command.execute();
    } catch (const std::bad_alloc&) {
    }
    command.redo();
    if (host->groups() != list(target, later))
      return; // from here on, only the host's own allocations fail

    command.execute();

    ASSERT_EQ(host->groups(), list(group("A", {c, a, b, d}), later)) << successes;
  }
  FAIL() << "the command never succeeds";
}

}
}
