// SPDX-License-Identifier: MIT
// Finding, adding and removing the members of a group.

#include "HighLevelServices/Groups/TKGroup.h"
#include "Support/Groups.h"
#include "Support/Identifiers.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>
#include <vector>

namespace Tarvik {
namespace {

template <class T>
class GroupMembers : public ::testing::Test {};
TYPED_TEST_SUITE(GroupMembers, ElementIdentifiers, KindName);

template <class T>
using Members = std::vector<T>;

TYPED_TEST(GroupMembers, AnswersTheMemberAtAPosition)
{
  const auto [a, b] = distinct<TypeParam, 2>();
  const auto ab = group("A", {a, b});

  EXPECT_EQ(ab.getGroupMemberAtIndex(0), a);
  EXPECT_EQ(ab.getGroupMemberAtIndex(1), b);
  EXPECT_EQ(&ab.getGroupMemberAtIndex(1), &ab.getGroupMembers()[1]);
}

TYPED_TEST(GroupMembers, AnswersTheSharedInvalidIdAfterTheLastMember)
{
  const auto [a, b] = distinct<TypeParam, 2>();
  const auto ab = group("A", {a, b});

  for (const unsigned long long index : {2ULL, 3ULL, 1ULL << 32U, ~0ULL})
    EXPECT_EQ(&ab.getGroupMemberAtIndex(index), &TypeParam::getInvalidId()) << index;
  EXPECT_EQ(&TKGroup<TypeParam>().getGroupMemberAtIndex(0), &TypeParam::getInvalidId());
}

TYPED_TEST(GroupMembers, KnowsItsMembers)
{
  const auto [a, b, c] = distinct<TypeParam, 3>();
  const auto ab = group("A", {a, b});

  EXPECT_TRUE(ab.isInGroup(a));
  EXPECT_TRUE(ab.isInGroup(b));
  EXPECT_FALSE(ab.isInGroup(c));
  EXPECT_FALSE(TKGroup<TypeParam>().isInGroup(a));
}

TYPED_TEST(GroupMembers, AppendsANewMember)
{
  const auto [a, b] = distinct<TypeParam, 2>();
  auto grown = group("A", {b});

  grown.addGroupMember(a);

  EXPECT_EQ(grown.getGroupMembers(), (Members<TypeParam>{b, a}));
  EXPECT_EQ(grown.numberOfGroupMembers(), 2U);
}

TYPED_TEST(GroupMembers, LeavesAMemberThatIsAddedAgainWhereItIs)
{
  const auto [a, b] = distinct<TypeParam, 2>();
  auto ab = group("A", {a, b});

  ab.addGroupMember(a);

  EXPECT_EQ(ab.getGroupMembers(), (Members<TypeParam>{a, b}));
}

TYPED_TEST(GroupMembers, InsertsABlockBeforeTheMemberAtTheIndex)
{
  const auto [a, b, c, x, y] = distinct<TypeParam, 5>();
  const std::vector<std::pair<int, Members<TypeParam>>> expectations = {
      {0, {y, x, a, b, c}}, {1, {a, y, x, b, c}}, {2, {a, b, y, x, c}}};

  for (const auto& [index, expected] : expectations) {
    auto abc = group("A", {a, b, c});
    abc.addGroupMembersAtIndex({y, x}, index);
    EXPECT_EQ(abc.getGroupMembers(), expected) << "index " << index;
  }
}

TYPED_TEST(GroupMembers, InsertsAtTheEndForAnyOtherIndex)
{
  const auto [a, b, x] = distinct<TypeParam, 3>();

  for (const int index :
       {-1, -2, std::numeric_limits<int>::min(), 2, 3, std::numeric_limits<int>::max()}) {
    auto ab = group("A", {a, b});
    ab.addGroupMembersAtIndex({x}, index);
    EXPECT_EQ(ab.getGroupMembers(), (Members<TypeParam>{a, b, x})) << "index " << index;
  }
}

TYPED_TEST(GroupMembers, InsertsIntoAnEmptyGroupWhateverTheIndex)
{
  const auto [a, b] = distinct<TypeParam, 2>();

  for (const int index : {-1, 0, 1}) {
    TKGroup<TypeParam> empty;
    empty.addGroupMembersAtIndex({a, b}, index);
    EXPECT_EQ(empty.getGroupMembers(), (Members<TypeParam>{a, b})) << "index " << index;
  }
}

TYPED_TEST(GroupMembers, InsertsOnlyThoseThatAreNotMembersYet)
{
  const auto [a, b, x, y] = distinct<TypeParam, 4>();
  auto ab = group("A", {a, b});

  ab.addGroupMembersAtIndex({x, b, y, a}, 1);

  EXPECT_EQ(ab.getGroupMembers(), (Members<TypeParam>{a, x, y, b}));
}

TYPED_TEST(GroupMembers, InsertsTwiceWhatIsGivenTwice)
{
  const auto [a, b] = distinct<TypeParam, 2>();
  auto onlyB = group("A", {b});

  onlyB.addGroupMembersAtIndex({a, a}, 0);

  EXPECT_EQ(onlyB.getGroupMembers(), (Members<TypeParam>{a, a, b}));
}

TYPED_TEST(GroupMembers, StaysAsItIsWhenThereIsNothingNewToInsert)
{
  const auto [a, b] = distinct<TypeParam, 2>();
  auto ab = group("A", {a, b});

  ab.addGroupMembersAtIndex({b, a}, 0);
  ab.addGroupMembersAtIndex({}, 1);
  ab.addGroupMembersAtIndex(ab.getGroupMembers(), 1);

  EXPECT_EQ(ab.getGroupMembers(), (Members<TypeParam>{a, b}));
}

TYPED_TEST(GroupMembers, RemovesAMemberAndKeepsTheOrderOfTheRest)
{
  const auto [a, b, c] = distinct<TypeParam, 3>();
  auto abc = group("A", {a, b, c});

  EXPECT_TRUE(abc.removeGroupMember(b));

  EXPECT_EQ(abc.getGroupMembers(), (Members<TypeParam>{a, c}));
}

TYPED_TEST(GroupMembers, RemovesTheFirstOfTwoEqualMembers)
{
  const auto [a, b] = distinct<TypeParam, 2>();
  auto aba = group<TypeParam>("A", {});
  aba.addGroupMembersAtIndex({a, b, a}, 0);

  EXPECT_TRUE(aba.removeGroupMember(a));

  EXPECT_EQ(aba.getGroupMembers(), (Members<TypeParam>{b, a}));
}

TYPED_TEST(GroupMembers, RemovesAMemberThatIsGivenByReferenceIntoTheGroup)
{
  const auto [a, b] = distinct<TypeParam, 2>();
  auto ab = group("A", {a, b});

  EXPECT_TRUE(ab.removeGroupMember(ab.getGroupMemberAtIndex(0)));

  EXPECT_EQ(ab.getGroupMembers(), (Members<TypeParam>{b}));
}

TYPED_TEST(GroupMembers, AnswersFalseWhenThereIsNothingToRemove)
{
  const auto [a, b] = distinct<TypeParam, 2>();
  auto onlyA = group("A", {a});

  EXPECT_FALSE(onlyA.removeGroupMember(b));
  EXPECT_FALSE(TKGroup<TypeParam>().removeGroupMember(a));

  EXPECT_EQ(onlyA.getGroupMembers(), (Members<TypeParam>{a}));
}

}
}
