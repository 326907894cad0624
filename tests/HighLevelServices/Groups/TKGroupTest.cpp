// SPDX-License-Identifier: MIT
#include "HighLevelServices/Groups/TKGroup.h"

#include "Support/Allocations.h"
#include "Support/Groups.h"
#include "Support/Identifiers.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <new>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

namespace Tarvik {
namespace {

template <class T>
class Group : public ::testing::Test {};
TYPED_TEST_SUITE(Group, ElementIdentifiers, KindName);

template <class T>
using Members = std::vector<T>;

TYPED_TEST(Group, StartsWithoutNameAndMembers)
{
  const TKGroup<TypeParam> empty;

  EXPECT_EQ(empty.getName(), NameInterface().getName());
  EXPECT_EQ(empty.getGroupMembers(), Members<TypeParam>());
  EXPECT_EQ(empty.numberOfGroupMembers(), 0U);
  EXPECT_TRUE(empty.getId().isValid());
}

TYPED_TEST(Group, StartsWithTheGivenName)
{
  const TKGroup<TypeParam> named(std::string("Pumps"));

  EXPECT_EQ(named.getName(), "Pumps");
  EXPECT_EQ(named.numberOfGroupMembers(), 0U);
}

TYPED_TEST(Group, HasAnIdOfItsOwn)
{
  const TKGroup<TypeParam> one;
  const TKGroup<TypeParam> other;

  EXPECT_FALSE(one.getId() == other.getId());
  static_assert(std::is_same_v<decltype(one.getId()), const Identifier&>);
}

TYPED_TEST(Group, CopiesNameMembersAndId)
{
  const auto [a, b] = distinct<TypeParam, 2>();
  const auto original = group("A", {b, a});

  const auto copy(original); // NOLINT(performance-unnecessary-copy-initialization): the subject

  EXPECT_TRUE(identical(copy, original)) << ::testing::PrintToString(list(copy));
  EXPECT_EQ(copy.getGroupMembers(), (Members<TypeParam>{b, a}));
}

TYPED_TEST(Group, TakesOverNameMembersAndIdWhenAssigned)
{
  const auto [a, b, c] = distinct<TypeParam, 3>();
  const auto source = group("New", {c, a});
  auto target = group("Old", {b});

  auto& result = (target = source);

  EXPECT_EQ(&result, &target);
  EXPECT_TRUE(identical(target, source)) << ::testing::PrintToString(list(target));
}

#if !defined(_MSC_VER) // the watch does not reach into DLLs there
TYPED_TEST(Group, TakesOverNameAndIdBeforeTheMembers)
{
  const auto [a, b] = distinct<TypeParam, 2>();
  const auto source = group("New", {a, b});
  std::optional<TKGroup<TypeParam>> afterTheLastFailure; // which is one of the members' allocations
  auto target = group<TypeParam>("Old", {});
  for (std::size_t successes = 0; target.getGroupMembers().empty(); ++successes) {
    target = group<TypeParam>("Old", {});
    try {
      const AllocationWatch watch(successes);
      target = source;
    } catch (const std::bad_alloc&) {
      afterTheLastFailure.emplace(target);
    }
  }

  ASSERT_TRUE(afterTheLastFailure);
  EXPECT_EQ(list(*afterTheLastFailure), list(group<TypeParam>("New", {})));
  EXPECT_EQ(afterTheLastFailure->getId(), source.getId());
}
#endif

TYPED_TEST(Group, StaysWhatItIsWhenAssignedToItself)
{
  const auto [a, b] = distinct<TypeParam, 2>();
  auto self = group("A", {a, b});
  const auto before = self;
  const auto& alias = self;

  self = alias;

  EXPECT_TRUE(identical(self, before)) << ::testing::PrintToString(list(self));
}

TYPED_TEST(Group, IsCopiedEvenWhereItCouldBeMoved)
{
  const auto [a] = distinct<TypeParam, 1>();
  auto source = group("A", {a});

  const TKGroup<TypeParam> copy(std::move(source));

  EXPECT_EQ(list(source), list(copy)); // NOLINT(bugprone-use-after-move): groups have no move
  static_assert(!std::is_trivially_copyable_v<TKGroup<TypeParam>>);
}

TYPED_TEST(Group, KeepsNameAndIdWhenCleared)
{
  const auto [a, b] = distinct<TypeParam, 2>();
  auto cleared = group("A", {a, b});
  const Identifier id = cleared.getId();
  const auto capacity = cleared.getGroupMembers().capacity();

  cleared.clear();

  EXPECT_EQ(list(cleared), list(group<TypeParam>("A", {})));
  EXPECT_EQ(cleared.getId(), id);
  EXPECT_EQ(cleared.getGroupMembers().capacity(), capacity);
}

TYPED_TEST(Group, IsDestroyedThroughItsName)
{
  const auto [a] = distinct<TypeParam, 1>();

  const std::unique_ptr<NameInterface> named =
      std::make_unique<TKGroup<TypeParam>>(group("A", {a}));

  EXPECT_EQ(named->getName(), "A"); // the leak check sees the members go
  static_assert(std::has_virtual_destructor_v<TKGroup<TypeParam>>);
}

}
}
