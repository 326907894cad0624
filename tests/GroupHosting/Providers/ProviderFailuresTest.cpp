// SPDX-License-Identifier: MIT
// What a provider leaves when an allocation, or the copy of an identifier, fails.

#include "GroupHosting/Commands/CompactTKGroupCmd.h"
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
#include <utility>
#include <vector>

namespace Tarvik {
namespace {

template <class T>
class FailingProvider : public ::testing::Test {
protected:
  using Groups = std::vector<TKGroup<T>>;

  /// A provider with three groups, and a mirror that follows it. With a listener, a provider finds
  /// out what changes in another way than without one.
  struct Watched {
    Watched(const FailingProvider& test, bool isListened) : provider(test.elements)
    {
      provider.setGroups(test.before);
      mirror = std::make_unique<Mirror<T>>(provider);
      if (isListened)
        subscription = provider.subscribe([this](const auto& change) { mirror->apply(change); });
    }

    /// When the mirror was not told, or failed to follow.
    void renewMirror() { mirror = std::make_unique<Mirror<T>>(provider); }

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

  using Action = std::function<void(TestProvider<T>&)>;

  /// Lets one allocation after the other fail, until none does.
  void expectAllOrNothing(const Action& change,
                          const Groups& groupsAfter,
                          const std::vector<T>& elementsAfter)
  {
    expectAllOrNothing(true, change, groupsAfter, elementsAfter);
    expectAllOrNothing(false, change, groupsAfter, elementsAfter);
  }

  void expectAllOrNothing(bool isListened,
                          const Action& change,
                          const Groups& groupsAfter,
                          const std::vector<T>& elementsAfter)
  {
    bool hasSucceeded = false;
    for (std::size_t failing = 0; !hasSucceeded; ++failing) {
      ASSERT_LT(failing, 10'000U);
      Watched watched(*this, isListened);
      try {
        const AllocationWatch watch(failing);
        change(watched.provider);
        hasSucceeded = !AllocationWatch::hasFailed();
      } catch (const std::bad_alloc&) {
        ASSERT_NO_FATAL_FAILURE(expectTheStateOf(watched, before, elements)) << failing;
        change(watched.provider); // it still works
      }
      if (!isListened || watched.provider.takeListenerFailure() != nullptr)
        watched.renewMirror();
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

/// A command that hands two lists over.
template <class T>
class ReplaceGroups : public CommandBase {
public:
  ReplaceGroups(std::shared_ptr<TKGroupProviderInterface<T>> provider,
                std::vector<TKGroup<T>> before,
                std::vector<TKGroup<T>> after)
      : CommandBase("Replace"),
        m_provider(std::move(provider)),
        m_before(std::move(before)),
        m_after(std::move(after))
  {}
  void execute() override { m_provider->setGroups(m_after); }
  void undo() override { m_provider->setGroups(m_before); }
  void redo() override { execute(); }

private:
  std::shared_ptr<TKGroupProviderInterface<T>> m_provider;
  std::vector<TKGroup<T>> m_before;
  std::vector<TKGroup<T>> m_after;
};

TYPED_TEST(FailingProvider, UndoesACompactCommandOrNotWhicheverAllocationFails)
{
  bool hasSucceeded = false;
  for (std::size_t failing = 0; !hasSucceeded; ++failing) {
    ASSERT_LT(failing, 10'000U);
    typename TestFixture::Watched watched(*this, true);
    const std::shared_ptr<TestProvider<TypeParam>> host(std::shared_ptr<void>(), &watched.provider);
    CompactTKGroupCmd<TypeParam> command(host, [this](auto provider) {
      return std::make_shared<ReplaceGroups<TypeParam>>(provider, this->before, this->after);
    });
    command.execute();
    try {
      const AllocationWatch watch(failing);
      command.undo();
      hasSucceeded = !AllocationWatch::hasFailed();
    } catch (const std::bad_alloc&) {
      ASSERT_NO_FATAL_FAILURE(this->expectTheStateOf(watched, this->after, this->elements))
          << failing;
      command.undo();
    }
    if (watched.provider.takeListenerFailure() != nullptr)
      watched.renewMirror();
    ASSERT_NO_FATAL_FAILURE(this->expectTheStateOf(watched, this->before, this->elements))
        << failing;
  }
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
      Watched watched(*this, false); // a mirror copies identifiers too
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
        watched.renewMirror();
        ASSERT_NO_FATAL_FAILURE(expectTheStateOf(watched, before, elements)) << failing;
        change(watched.provider);
      }
      watched.renewMirror();
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
