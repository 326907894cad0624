// SPDX-License-Identifier: MIT
// What a provider leaves when an allocation, or the copy of an identifier, fails.

#include "GroupHosting/Providers/TKGroupProvider.h"
#include "GroupHosting/Support/Mirror.h"
#include "GroupHosting/Support/TestProvider.h"
#include "Support/Allocations.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <new>
#include <stdexcept>
#include <vector>

namespace Tarvik {
namespace {

template <class T>
class FailingProvider : public ::testing::Test {
protected:
  using Groups = std::vector<TKGroup<T>>;

  /// A provider with two groups, and a mirror that follows it.
  struct Watched {
    explicit Watched(const FailingProvider& test) : provider(test.elements)
    {
      provider.setGroups(test.before);
      mirror = std::make_unique<Mirror<T>>(provider);
      subscription = provider.subscribe([this](const auto& change) { mirror->apply(change); });
    }

    TestProvider<T> provider;
    std::unique_ptr<Mirror<T>> mirror;
    GroupsSubscription<T> subscription;
  };

  FailingProvider()
  {
    before = {group("X with a name that is long", {ids[0], ids[1], ids[7]}),
              group("Y with a name that is long", {ids[2]}), group("Z", {ids[0], ids[3]})};
    after = before;
    after[0].setName("another name that is long", true);
    setMembers(after[0], {ids[4], ids[1], ids[8], ids[4]});
    std::swap(after[0], after[1]);
    after.back() = group("New with a name that is long", {ids[3], ids[9]});
  }

  /// Everything that a provider answers must be right for these groups.
  void expectTheStateOf(Watched& watched, const Groups& groups, const std::vector<T>& order)
  {
    auto& provider = watched.provider;
    ASSERT_TRUE(identical(provider.getGroups(), groups));
    ASSERT_EQ(provider.elements(), order);
    std::vector<T> ungrouped;
    for (const T& element : order) {
      if (std::none_of(groups.begin(), groups.end(),
                       [&](const auto& each) { return each.isInGroup(element); }))
        ungrouped.push_back(element);
    }
    ASSERT_EQ(provider.getUngroupedElements(), ungrouped);
    ASSERT_TRUE(identical(watched.mirror->groups(), groups));
    ASSERT_EQ(watched.mirror->ungrouped(), ungrouped);
    for (const T& element : ids) {
      const auto holder = std::find_if(groups.begin(), groups.end(),
                                       [&](const auto& each) { return each.isInGroup(element); });
      const auto* found = provider.holderOf(element);
      ASSERT_EQ(found,
                holder != groups.end()
                    ? &provider.getGroups()[static_cast<std::size_t>(holder - groups.begin())]
                    : nullptr);
    }
    for (const auto& each : groups)
      ASSERT_NE(provider.findGroup(each.getId()), nullptr);
  }

  /// Lets one allocation after the other fail, until none does.
  void expectAllOrNothing(const std::function<void(TestProvider<T>&)>& change,
                          const Groups& groupsAfter,
                          const std::vector<T>& elementsAfter)
  {
    bool hasSucceeded = false;
    for (std::size_t failing = 0; !hasSucceeded; ++failing) {
      ASSERT_LT(failing, 10'000U);
      Watched watched(*this);
      try {
        const AllocationWatch watch(failing);
        change(watched.provider);
        hasSucceeded = !AllocationWatch::hasFailed();
      } catch (const std::bad_alloc&) {
        ASSERT_NO_FATAL_FAILURE(expectTheStateOf(watched, before, elements)) << failing;
        change(watched.provider); // it still works
      }
      if (watched.provider.takeListenerFailure() != nullptr) // the mirror failed, after the change
        watched.mirror = std::make_unique<Mirror<T>>(watched.provider);
      ASSERT_NO_FATAL_FAILURE(expectTheStateOf(watched, groupsAfter, elementsAfter)) << failing;
    }
  }

  const std::vector<T> ids = std::vector<T>(10);
  const std::vector<T> elements = {ids.begin(), ids.begin() + 7};
  Groups before;
  Groups after;
};
TYPED_TEST_SUITE(FailingProvider, ProvidedIdentifiers, ProvidedName);

TYPED_TEST(FailingProvider, SetsAllGroupsOrNoneWhicheverAllocationFails)
{
  this->expectAllOrNothing([this](auto& provider) { provider.setGroups(this->after); }, this->after,
                           this->elements);
}

TYPED_TEST(FailingProvider, SetsMembersOnlyOrNothingWhicheverAllocationFails)
{
  auto changed = this->before;
  setMembers(changed[1], {this->ids[9], this->ids[0], this->ids[2]});

  this->expectAllOrNothing([&](auto& provider) { provider.setGroups(changed); }, changed,
                           this->elements);
}

TYPED_TEST(FailingProvider, AppendsGroupsOrNoneWhicheverAllocationFails)
{
  auto more = this->before;
  setMembers(more[0], {this->ids[5]});
  more.push_back(group("one more with a name that is long", {this->ids[4], this->ids[9]}));
  more.push_back(more.back());

  this->expectAllOrNothing([&](auto& provider) { provider.setGroups(more); }, more, this->elements);
}

TYPED_TEST(FailingProvider, SetsAllElementsOrNoneWhicheverAllocationFails)
{
  const std::vector<TypeParam> changed = {this->ids[8], this->ids[6], this->ids[0], this->ids[9],
                                          this->ids[5]};

  this->expectAllOrNothing([&](auto& provider) { provider.setElements(changed); }, this->before,
                           changed);
}

TYPED_TEST(FailingProvider, RenamesOrNotWhicheverAllocationFails)
{
  auto renamed = this->before;
  renamed[1].setName("the new name, which is long as well", true);

  this->expectAllOrNothing(
      [&](auto& provider) { provider.renameGroup(renamed[1].getId(), renamed[1].getName()); },
      renamed, this->elements);
}

class ProviderOfWatched : public FailingProvider<WatchedIdentifier> {
protected:
  /// Lets one copy after the other fail, until none does.
  void expectAllOrNothing(const std::function<void(TestProvider<WatchedIdentifier>&)>& change,
                          const Groups& groupsAfter,
                          const std::vector<WatchedIdentifier>& elementsAfter)
  {
    bool hasFailed = true;
    for (int failing = 0; hasFailed; ++failing) {
      ASSERT_LT(failing, 10'000);
      hasFailed = false;
      Watched watched(*this);
      watched.subscription.cancel(); // a mirror copies identifiers too
      try {
        int copies = 0;
        const CopyWatch watch([&] {
          if (copies++ == failing) {
            hasFailed = true;
            throw std::runtime_error("no copy");
          }
        });
        change(watched.provider);
      } catch (const std::runtime_error&) {
        watched.mirror = std::make_unique<Mirror<WatchedIdentifier>>(watched.provider);
        ASSERT_NO_FATAL_FAILURE(expectTheStateOf(watched, before, elements)) << failing;
        change(watched.provider);
      }
      watched.mirror = std::make_unique<Mirror<WatchedIdentifier>>(watched.provider);
      ASSERT_NO_FATAL_FAILURE(expectTheStateOf(watched, groupsAfter, elementsAfter)) << failing;
    }
  }
};

TEST_F(ProviderOfWatched, SetsAllGroupsOrNoneWhicheverCopyFails)
{
  expectAllOrNothing([this](auto& provider) { provider.setGroups(after); }, after, elements);
}

TEST_F(ProviderOfWatched, SetsAllElementsOrNoneWhicheverCopyFails)
{
  const std::vector<WatchedIdentifier> changed = {ids[8], ids[6], ids[0], ids[9], ids[5]};

  expectAllOrNothing([&](auto& provider) { provider.setElements(changed); }, before, changed);
}

}
}
