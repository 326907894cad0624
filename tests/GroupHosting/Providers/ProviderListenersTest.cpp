// SPDX-License-Identifier: MIT
// What a provider tells its listeners, and when.

#include "GroupHosting/Providers/TKGroupProvider.h"
#include "GroupHosting/Support/Mirror.h"
#include "GroupHosting/Support/TestProvider.h"
#include "Support/Allocations.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace Tarvik {
namespace {

template <class T>
class ProviderTells : public ::testing::Test {
protected:
  using Change = GroupsChange<T>;

  ProviderTells() { provider.setGroups({x, y, z}); }

  /// What the provider tells while the action runs.
  template <class Action>
  std::vector<Change> toldBy(Action action)
  {
    std::vector<Change> told;
    const auto subscription =
        provider.subscribe([&told](const Change& change) { told.push_back(change); });
    action();
    return told;
  }

  /// The one step of a change of the groups.
  template <class Step>
  static Step onlyGroupStep(const std::vector<Change>& told)
  {
    EXPECT_EQ(told.size(), 1U);
    EXPECT_EQ(told.at(0).groups.size(), 1U);
    return std::get<Step>(told.at(0).groups.at(0));
  }

  /// The one step of a change of the ungrouped elements.
  template <class Step>
  static Step onlyUngroupedStep(const std::vector<Change>& told)
  {
    EXPECT_EQ(told.size(), 1U);
    EXPECT_EQ(told.at(0).ungrouped.size(), 1U);
    return std::get<Step>(told.at(0).ungrouped.at(0));
  }

  const std::vector<T> ids = std::vector<T>(8);
  const T a = ids[0];
  const T b = ids[1];
  const T c = ids[2];
  const T d = ids[3];
  const T e = ids[4];
  const T f = ids[5];
  const TKGroup<T> x = group("X", {a, b});
  const TKGroup<T> y = group("Y", {c});
  const TKGroup<T> z = group<T>("Z", {});
  TestProvider<T> provider{{a, b, c, d, e, f}};
};
TYPED_TEST_SUITE(ProviderTells, ProvidedIdentifiers, ProvidedName);

TYPED_TEST(ProviderTells, NothingWhenNothingChanges)
{
  const auto told = this->toldBy([this] {
    this->provider.setGroups({this->x, this->y, this->z});
    this->provider.setElements(this->provider.elements());
    this->provider.renameGroup(this->x.getId(), "X");
    this->provider.renameGroup(Identifier(), "new");
  });

  EXPECT_TRUE(told.empty());
}

TYPED_TEST(ProviderTells, WhichMembersAndUngroupedElementsChangePlaces)
{
  auto changed = this->x;
  setMembers(changed, {this->a, this->d, this->e, this->b});
  auto told = this->toldBy([&] { this->provider.setGroups({changed, this->y, this->z}); });

  const auto came = this->template onlyGroupStep<MembersInserted<TypeParam>>(told);
  EXPECT_EQ(came.group, 0U);
  EXPECT_EQ(came.position, 1U);
  EXPECT_EQ(came.members, (std::vector<TypeParam>{this->d, this->e}));
  const auto went = this->template onlyUngroupedStep<ElementsRemoved<TypeParam>>(told);
  EXPECT_EQ(went.position, 0U);
  EXPECT_EQ(went.elements, (std::vector<TypeParam>{this->d, this->e}));

  told = this->toldBy([&] { this->provider.setGroups({this->x, this->y, this->z}); });
  const auto back = this->template onlyUngroupedStep<ElementsInserted<TypeParam>>(told);
  EXPECT_EQ(back.position, 0U);
  EXPECT_EQ(back.elements, (std::vector<TypeParam>{this->d, this->e}));
}

TYPED_TEST(ProviderTells, NothingOfUngroupedElementsWhenGroupsMove)
{
  const auto told = this->toldBy([this] { this->provider.setGroups({this->z, this->x, this->y}); });

  const auto moved = this->template onlyGroupStep<GroupsMoved>(told);
  EXPECT_EQ(moved.from, 2U);
  EXPECT_EQ(moved.count, 1U);
  EXPECT_EQ(moved.to, 0U);
  EXPECT_TRUE(told[0].ungrouped.empty());
}

TYPED_TEST(ProviderTells, OneStepForEachGapAmongUngroupedElements)
{
  const auto told = this->toldBy([this] {
    this->provider.setGroups({this->y, group("W", {this->d, this->f})});
  });

  ASSERT_EQ(told.size(), 1U);
  const auto& steps = told[0].ungrouped;
  ASSERT_EQ(steps.size(), 3U);
  const auto& last = std::get<ElementsRemoved<TypeParam>>(steps[0]);
  EXPECT_EQ(last.position, 2U);
  EXPECT_EQ(last.elements, std::vector<TypeParam>{this->f});
  EXPECT_EQ(std::get<ElementsRemoved<TypeParam>>(steps[1]).position, 0U);
  const auto& came = std::get<ElementsInserted<TypeParam>>(steps[2]);
  EXPECT_EQ(came.position, 0U);
  EXPECT_EQ(came.elements, (std::vector<TypeParam>{this->a, this->b}));
}

TYPED_TEST(ProviderTells, TheNameOfAGroup)
{
  const auto told = this->toldBy([this] { this->provider.renameGroup(this->y.getId(), "new"); });

  const auto renamed = this->template onlyGroupStep<GroupRenamed>(told);
  EXPECT_EQ(renamed.group, 1U);
  EXPECT_EQ(renamed.before, "Y");
  EXPECT_EQ(renamed.after, "new");
}

TYPED_TEST(ProviderTells, HowUngroupedElementsAreRearranged)
{
  auto told = this->toldBy([this] {
    this->provider.setElements({this->f, this->b, this->a, this->c, this->d, this->e});
  });
  const auto moved = this->template onlyUngroupedStep<ElementsMoved>(told);
  EXPECT_EQ(moved.from, 2U);
  EXPECT_EQ(moved.to, 0U);
  EXPECT_TRUE(told[0].groups.empty());

  told = this->toldBy([this] {
    this->provider.setElements({this->c, this->b, this->f, this->d, this->e});
  });
  EXPECT_TRUE(told.empty()) << "grouped elements are not shown among the ungrouped ones";
}

TYPED_TEST(ProviderTells, ANewOrderWhereManyElementsMove)
{
  std::vector<TypeParam> many(100);
  this->provider.setElements(many);
  std::reverse(many.begin(), many.end());

  const auto told = this->toldBy([&] { this->provider.setElements(many); });

  const auto order = this->template onlyUngroupedStep<ElementsReordered>(told).order;
  ASSERT_EQ(order.size(), 100U);
  EXPECT_EQ(order.front(), 99U);
}

TYPED_TEST(ProviderTells, WhenAllAnswersAreNew)
{
  bool isTold = false;
  const auto subscription = this->provider.subscribe([&](const auto&) {
    isTold = true;
    EXPECT_EQ(this->provider.getGroups().size(), 1U);
    EXPECT_EQ(this->provider.holderOf(this->d), &this->provider.getGroups()[0]);
    EXPECT_EQ(this->provider.findGroup(this->x.getId()), nullptr);
    EXPECT_EQ(this->provider.getUngroupedElements().size(), 5U);
  });

  this->provider.setGroups({group("W", {this->d})});

  EXPECT_TRUE(isTold) << "before setGroups() returns";
}

TYPED_TEST(ProviderTells, NoListenerThatIsNoLongerSubscribed)
{
  int first = 0;
  int second = 0;
  auto one = this->provider.subscribe([&](const auto&) { ++first; });
  auto other = this->provider.subscribe([&](const auto&) { ++second; });

  one.cancel();
  one.cancel();
  this->provider.setGroups({});
  other = std::move(one);
  this->provider.setGroups({this->x});
  auto& alias = other;
  other = std::move(alias);

  EXPECT_EQ(first, 0);
  EXPECT_EQ(second, 1);
}

TYPED_TEST(ProviderTells, ThroughASubscriptionThatWasMoved)
{
  int told = 0;
  GroupsSubscription<TypeParam> subscription;
  {
    auto first = this->provider.subscribe([&](const auto&) { ++told; });
    auto second = std::move(first);
    subscription = std::move(second);
    auto& alias = subscription;
    subscription = std::move(alias);
  }

  this->provider.setGroups({});

  EXPECT_EQ(told, 1);
}

TYPED_TEST(ProviderTells, NobodyAfterItsEnd)
{
  GroupsSubscription<TypeParam> subscription;
  {
    TestProvider<TypeParam> other;
    subscription = other.subscribe([](const auto&) { FAIL(); });
  }
  subscription.cancel();
}

TYPED_TEST(ProviderTells, NoEmptyListener)
{
  EXPECT_THROW((void)this->provider.subscribe({}), std::invalid_argument);
}

TYPED_TEST(ProviderTells, ListenersThatEndTheirSubscriptionMeanwhile)
{
  int told = 0;
  std::optional<GroupsSubscription<TypeParam>> own;
  std::optional<GroupsSubscription<TypeParam>> other;
  own = this->provider.subscribe([&](const auto&) {
    ++told;
    own.reset();
    other.reset();
  });
  other = this->provider.subscribe([&](const auto&) { FAIL() << "it has ended"; });

  this->provider.setGroups({});
  this->provider.setGroups({this->x});

  EXPECT_EQ(told, 1);
}

TYPED_TEST(ProviderTells, NewListenersOnlyWhatChangesAfterwards)
{
  std::unique_ptr<Mirror<TypeParam>> mirror;
  GroupsSubscription<TypeParam> late;
  const auto subscription = this->provider.subscribe([&](const auto&) {
    if (mirror)
      return;
    this->provider.setGroups({this->y, this->x}); // it is told after this change
    mirror = std::make_unique<Mirror<TypeParam>>(this->provider);
    late = this->provider.subscribe([&](const auto& change) { mirror->apply(change); });
  });

  this->provider.setGroups({this->x});
  EXPECT_TRUE(identical(mirror->groups(), this->provider.getGroups()));

  this->provider.setGroups({this->z});
  EXPECT_TRUE(identical(mirror->groups(), this->provider.getGroups()));
}

TYPED_TEST(ProviderTells, AllListenersInTheOrderOfTheChangesWhenOneMakesAnother)
{
  bool isFirst = true;
  const auto editor = this->provider.subscribe([&](const auto&) {
    if (std::exchange(isFirst, false)) {
      this->provider.setGroups({this->x});
      this->provider.renameGroup(this->x.getId(), "renamed");
      this->provider.setElements({this->f, this->e});
    }
  });
  Mirror<TypeParam> mirror(this->provider);
  int told = 0;
  const auto view = this->provider.subscribe([&](const auto& change) {
    ++told;
    mirror.apply(change);
  });

  this->provider.setGroups({this->y, this->x});

  EXPECT_EQ(told, 4);
  EXPECT_TRUE(identical(mirror.groups(), this->provider.getGroups()));
  EXPECT_EQ(mirror.ungrouped(), this->provider.getUngroupedElements());
}

TYPED_TEST(ProviderTells, AllListenersEvenIfOneThrows)
{
  const auto first =
      this->provider.subscribe([](const auto&) { throw std::runtime_error("the first failure"); });
  const auto second =
      this->provider.subscribe([](const auto&) { throw std::runtime_error("the second"); });
  Mirror<TypeParam> mirror(this->provider);
  const auto third = this->provider.subscribe([&](const auto& change) { mirror.apply(change); });

  EXPECT_NO_THROW(this->provider.setGroups({this->z}));

  EXPECT_TRUE(identical(mirror.groups(), this->provider.getGroups()));
  EXPECT_EQ(this->provider.getGroups().size(), 1U);
  const auto failure = this->provider.takeListenerFailure();
  try {
    ASSERT_NE(failure, nullptr);
    std::rethrow_exception(failure);
  } catch (const std::runtime_error& error) {
    EXPECT_STREQ(error.what(), "the first failure");
  }
  EXPECT_EQ(this->provider.takeListenerFailure(), nullptr);
}

TYPED_TEST(ProviderTells, WithFewerAllocationsWhenNobodyListens)
{
  const auto allocationsOf = [this](const std::vector<TKGroup<TypeParam>>& groups) {
    const AllocationWatch watch;
    this->provider.setGroups(groups);
    return AllocationWatch::count();
  };
  allocationsOf({this->x, this->z});
  allocationsOf({this->x, this->y, this->z});
  const auto unheard = allocationsOf({this->x, this->z});
  allocationsOf({this->x, this->y, this->z});
  const auto subscription = this->provider.subscribe([](const auto&) {});

  EXPECT_LT(unheard, allocationsOf({this->x, this->z}));
}

}
}
