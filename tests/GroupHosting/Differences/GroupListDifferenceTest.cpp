// SPDX-License-Identifier: MIT
#include "GroupHosting/Differences/GroupListDifference.h"
#include "GroupHosting/Support/BothWays.h"
#include "GroupHosting/Support/RandomLists.h"
#include "GroupHosting/Support/Steps.h"
#include "Support/Allocations.h"
#include "Support/Groups.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <new>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace Tarvik {
namespace {

template <class T>
class Difference : public ::testing::Test {
protected:
  using Groups = std::vector<TKGroup<T>>;

  /// The steps from one list to another, as a text with a step in each line.
  static std::vector<std::string> steps(const Groups& before, const Groups& after)
  {
    std::vector<std::string> texts;
    for (const auto& step : GroupListDifference<T>(before, after).steps())
      texts.push_back(textOf(step));
    return texts;
  }

  /// The same group with other members.
  static TKGroup<T> with(TKGroup<T> group, const std::vector<T>& members)
  {
    group.clear();
    group.addGroupMembersAtIndex(members, -1);
    return group;
  }

  static TKGroup<T> named(TKGroup<T> group, const std::string& name)
  {
    group.setName(name, true);
    return group;
  }

  std::vector<T> elements = std::vector<T>(10);
  TKGroup<T> a = group("A", {elements[0], elements[1]});
  TKGroup<T> b = group("B", {elements[2], elements[3], elements[4]});
  TKGroup<T> c = group("C", {elements[5]});
  TKGroup<T> d = group<T>("D", {});
};
TYPED_TEST_SUITE(Difference, ElementIdentifiers, KindName);

using Texts = std::vector<std::string>;

TYPED_TEST(Difference, LeadsFromAnyListToAnyOtherAndBack)
{
  expectDifferencesToLeadBothWays<TypeParam>(3000);
}

TYPED_TEST(Difference, OfEqualListsIsEmpty)
{
  const GroupListDifference<TypeParam> difference({this->a, this->b}, {this->a, this->b});

  EXPECT_TRUE(difference.empty());
  EXPECT_TRUE(difference.steps().empty());
  EXPECT_TRUE(GroupListDifference<TypeParam>().empty());
}

TYPED_TEST(Difference, TellsWhichGroupsCome)
{
  EXPECT_EQ(this->steps({this->b}, {this->a, this->b, this->c, this->d}),
            (Texts{"A come to 0", "C D come to 2"}));
}

TYPED_TEST(Difference, TellsWhichGroupsLeaveFromTheLastToTheFirst)
{
  EXPECT_EQ(this->steps({this->a, this->b, this->c, this->d}, {this->b}),
            (Texts{"C D leave 2", "A leave 0"}));
}

TYPED_TEST(Difference, TellsThatConsecutiveGroupsMove)
{
  EXPECT_EQ(this->steps({this->a, this->b, this->c, this->d}, {this->c, this->d, this->a, this->b}),
            (Texts{"2 groups move from 2 to 0"}));
  EXPECT_EQ(this->steps({this->a, this->b, this->c, this->d}, {this->b, this->c, this->d, this->a}),
            (Texts{"1 groups move from 0 to 3"}));
}

TYPED_TEST(Difference, TellsTheNewNameOfAGroupAtItsNewPosition)
{
  EXPECT_EQ(this->steps({this->a, this->b}, {this->c, this->a, this->named(this->b, "New")}),
            (Texts{"C come to 0", "2: B is New"}));
}

TYPED_TEST(Difference, TellsWhichMembersComeAndLeave)
{
  const auto& ids = this->elements;

  EXPECT_EQ(this->steps({this->a, this->b}, {this->with(this->a, {ids[1], ids[3]}),
                                             this->with(this->b, {ids[2], ids[4]})}),
            (Texts{"0: 1 members leave 0", "0: 1 members come to 1", "1: 1 members leave 1"}));
}

TYPED_TEST(Difference, TellsThatMembersMove)
{
  const auto& ids = this->elements;

  EXPECT_EQ(this->steps({this->with(this->a, ids)},
                        {this->with(this->a, {ids[0], ids[2], ids[3], ids[4], ids[5], ids[1],
                                              ids[8], ids[9], ids[6], ids[7]})}),
            (Texts{"0: 1 members move from 1 to 5", "0: 2 members move from 8 to 6"}));
}

TYPED_TEST(Difference, TellsANewOrderWhereThatIsSmallerThanMoves)
{
  const auto& ids = this->elements;
  const std::vector<TypeParam> reversed(ids.rbegin(), ids.rend());

  EXPECT_EQ(this->steps({this->with(this->a, ids)}, {this->with(this->a, reversed)}),
            (Texts{"0: order 9 8 7 6 5 4 3 2 1 0"}));
}

TYPED_TEST(Difference, TellsANewOrderOfGroupsWhereThatIsSmallerThanMoves)
{
  std::vector<TKGroup<TypeParam>> groups(8);
  const std::vector<TKGroup<TypeParam>> reversed(groups.rbegin(), groups.rend());

  EXPECT_EQ(this->steps(groups, reversed), (Texts{"order 7 6 5 4 3 2 1 0"}));
}

TYPED_TEST(Difference, TellsStepsOfAllKindsInOneOrder)
{
  const auto& ids = this->elements;

  EXPECT_EQ(this->steps({this->a, this->b, this->c},
                        {this->with(this->named(this->c, "New"), {}), this->d,
                         this->with(this->b, {ids[4], ids[2], ids[9]})}),
            (Texts{"A leave 0", "1 groups move from 1 to 0", "D come to 1", "0: C is New",
                   "0: 1 members leave 0", "2: 1 members leave 1", "2: 1 members move from 1 to 0",
                   "2: 1 members come to 2"}));
}

TYPED_TEST(Difference, TakesTheFirstOfTwoGroupsWithTheSameIdForTheFirstOne)
{
  const auto other = this->with(this->a, {this->elements[7]});

  EXPECT_EQ(this->steps({this->a, this->b, other}, {other, this->b, this->a}),
            (Texts{"0: 2 members leave 0", "0: 1 members come to 0", "2: 1 members leave 0",
                   "2: 2 members come to 0"}));
}

/// The number of entries in the longest list that is in both lists in order: found by trying all.
template <class T>
std::size_t longestCommon(const std::vector<T>& a, const std::vector<T>& b)
{
  std::vector<std::vector<std::size_t>> lengths(a.size() + 1,
                                                std::vector<std::size_t>(b.size() + 1));
  for (std::size_t i = 0; i < a.size(); ++i) {
    for (std::size_t j = 0; j < b.size(); ++j)
      lengths[i + 1][j + 1] =
          a[i] == b[j] ? lengths[i][j] + 1 : std::max(lengths[i][j + 1], lengths[i + 1][j]);
  }
  return lengths.back().back();
}

TYPED_TEST(Difference, MovesInsertsAndRemovesAsFewMembersAsPossible)
{
  std::mt19937 random(1);
  for (int i = 0; i < 2000; ++i) {
    auto before = this->elements;
    auto after = this->elements;
    std::shuffle(before.begin(), before.end(), random);
    std::shuffle(after.begin(), after.end(), random);
    before.resize(random() % 11);
    after.resize(random() % 11);
    const auto numberKept = static_cast<std::size_t>(
        std::count_if(before.begin(), before.end(), [&after](const auto& id) {
          return std::find(after.begin(), after.end(), id) != after.end();
        }));

    const auto found = membersOf(
        GroupListDifference<TypeParam>({this->with(this->a, before)}, {this->with(this->a, after)})
            .steps());

    ASSERT_EQ(found.removed, before.size() - numberKept);
    ASSERT_EQ(found.inserted, after.size() - numberKept);
    ASSERT_TRUE(found.isReordered || found.moved == numberKept - longestCommon(before, after));
  }
}

TYPED_TEST(Difference, InsertsAndRemovesAsFewMembersAsPossibleWhenSomeAreThereTwice)
{
  std::mt19937 random(1);
  const auto some = [&] {
    std::vector<TypeParam> members;
    for (auto count = random() % 9; count > 0; --count)
      members.push_back(this->elements[random() % 4]);
    return members;
  };
  for (int i = 0; i < 2000; ++i) {
    const auto before = some();
    const auto after = some();
    std::size_t numberKept = 0;
    for (const auto& id : this->elements)
      numberKept += static_cast<std::size_t>(std::min(std::count(before.begin(), before.end(), id),
                                                      std::count(after.begin(), after.end(), id)));

    const auto found = membersOf(
        GroupListDifference<TypeParam>({this->with(this->a, before)}, {this->with(this->a, after)})
            .steps());

    ASSERT_EQ(found.removed, before.size() - numberKept);
    ASSERT_EQ(found.inserted, after.size() - numberKept);
  }
}

TYPED_TEST(Difference, IsRefusedByAnotherList)
{
  const auto& ids = this->elements;
  const std::vector<TKGroup<TypeParam>> before{this->a, this->b, this->c};
  const std::vector<TKGroup<TypeParam>> after{
      this->a, this->with(this->named(this->b, "New"), {ids[2], ids[3], ids[9]})};
  const GroupListDifference<TypeParam> difference(before, after);
  const std::vector<std::vector<TKGroup<TypeParam>>> others{
      {},
      {this->a, this->b},
      {this->a, this->b, this->d},
      {this->a, this->b, this->named(this->c, "D")},
      {this->a, this->b, this->with(this->c, {ids[1]})},
      {this->a, this->named(this->b, "Other"), this->c},
      {this->a, this->with(this->b, {ids[2], ids[3]}), this->c},
      {this->a, this->with(this->b, {ids[2], ids[3], ids[5]}), this->c},
      after};

  for (const auto& other : others) {
    auto list = other;
    EXPECT_THROW(difference.applyTo(list), std::invalid_argument);
    EXPECT_TRUE(identical(list, other));
  }
  auto list = before;
  EXPECT_THROW(difference.revertOn(list), std::invalid_argument);
  EXPECT_TRUE(identical(list, before));
}

TYPED_TEST(Difference, LeavesTheListAloneWhicheverAllocationFails)
{
  const std::vector<TKGroup<TypeParam>> before{this->a, this->b, this->c};
  const std::vector<TKGroup<TypeParam>> after{this->with(this->b, this->elements), this->a,
                                              this->d};
  const GroupListDifference<TypeParam> difference(before, after);
  auto list = before;
  bool succeeded = false;
  for (std::size_t successes = 0; !succeeded; ++successes) {
    ASSERT_LT(successes, 1'000U);
    try {
      const AllocationWatch watch(successes);
      difference.applyTo(list);
      succeeded = !watch.hasFailed();
    } catch (const std::bad_alloc&) {
      EXPECT_TRUE(identical(list, before)) << successes;
    }
  }
  EXPECT_TRUE(identical(list, after));
}

TYPED_TEST(Difference, IsAValue)
{
  const std::vector<TKGroup<TypeParam>> before{this->a, this->b};
  const std::vector<TKGroup<TypeParam>> after{this->b, this->c};
  const GroupListDifference<TypeParam> difference(before, after);
  auto copy = difference;
  GroupListDifference<TypeParam> moved(std::move(copy));
  GroupListDifference<TypeParam> assigned;
  assigned = difference;
  GroupListDifference<TypeParam> moveAssigned;
  moveAssigned = std::move(assigned);

  for (const auto& each : {moved, moveAssigned}) {
    auto list = before;
    each.applyTo(list);
    EXPECT_TRUE(identical(list, after));
  }
}

TYPED_TEST(Difference, TakesMemoryForWhatChangesOnly)
{
  const std::string longName(1000, 'n');
  std::vector<TKGroup<TypeParam>> groups(100);
  for (auto& group : groups)
    group.addGroupMembersAtIndex(std::vector<TypeParam>(100), -1);
  auto withANewGroup = groups;
  withANewGroup.push_back(this->with(this->named(this->a, longName), this->elements));
  auto renamed = groups;
  renamed.front().setName(longName, true);
  const auto bytes = [&groups](const auto& after) {
    return GroupListDifference<TypeParam>(groups, after).sizeInBytes();
  };

  EXPECT_LT(bytes(groups), 300U);
  EXPECT_GT(bytes(withANewGroup), 1000 + 10 * sizeof(TypeParam));
  EXPECT_LT(bytes(withANewGroup), 2000U);
  EXPECT_GT(bytes(renamed), 1000U);
  EXPECT_LT(bytes(renamed), 2000U);
}

TYPED_TEST(Difference, OfManyScatteredMembersIsQuicklyDone)
{
  constexpr std::size_t size = GroupLists::Hashable<TypeParam> ? 100'000 : 3'000;
  const std::vector<TypeParam> members(size);
  std::vector<TypeParam> changed;
  std::vector<TypeParam> moved;
  for (std::size_t i = 0; i < size; ++i)
    (i % 10 == 0 ? moved : changed).push_back(members[i]);
  changed.insert(changed.begin() + 20, moved.begin(), moved.end());
  std::vector<TKGroup<TypeParam>> list{this->with(this->a, members)};
  const std::vector<TKGroup<TypeParam>> after{this->with(this->a, changed)};

  const GroupListDifference<TypeParam> difference(list, after);
  difference.applyTo(list);

  EXPECT_TRUE(identical(list, after));
  EXPECT_LT(difference.sizeInBytes(), 300'000U);
}

}
}
