// SPDX-License-Identifier: MIT
// Compact commands in a history, on a provider with a view, while allocations fail at random.

#include "GroupHosting/Commands/CompactTKGroupCmd.h"

#include "CommandPattern/CommandHistory.h"
#include "GroupHosting/Commands/MoveTKGroupsCmd.h"
#include "GroupHosting/Support/Mirror.h"
#include "GroupHosting/Support/TestProvider.h"
#include "HighLevelServices/GroupCommands/AddToTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/RemoveFromTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/RemoveTKGroupsCmd.h"
#include "HighLevelServices/GroupCommands/RenameTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/SortTKGroupsAlphabeticallyCmd.h"
#include "Support/Allocations.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <new>
#include <random>
#include <string>
#include <vector>

namespace Tarvik {
namespace {

template <class T>
class FaultyHistory : public ::testing::Test {
protected:
  using Groups = std::vector<TKGroup<T>>;

  void start(std::uint64_t seed)
  {
    m_random.seed(seed);
    m_pool = std::vector<T>(12);
    history.reset();
    provider = std::make_shared<TestProvider<T>>(m_pool);
    provider->setGroups({TKGroup<T>("one"), TKGroup<T>("two"), TKGroup<T>("three")});
    states = {provider->copyOfGroups()};
    m_subscription = {};
    m_mirror = std::make_unique<Mirror<T>>(*provider);
    m_subscription = provider->subscribe([this](const auto& change) { m_mirror->apply(change); });
  }

  /// Executes, undoes or redoes while one allocation may fail, and checks what that leaves.
  void takeAStep()
  {
    const auto action = nextAction();
    const auto groupsBefore = provider->copyOfGroups();
    const auto positionBefore = history.position();
    const auto sizeBefore = history.entries().size();
    const auto failing = number(120);
    try {
      const AllocationWatch watch(failing);
      action();
    } catch (const std::bad_alloc&) {
      ASSERT_TRUE(identical(provider->getGroups(), groupsBefore));
      ASSERT_EQ(history.position(), positionBefore);
      ASSERT_EQ(history.entries().size(), sizeBefore);
    }
    if (provider->takeListenerFailure() != nullptr) // the mirror failed, after the change
      m_mirror = std::make_unique<Mirror<T>>(*provider);
    ASSERT_TRUE(identical(m_mirror->groups(), provider->getGroups()));
    ASSERT_EQ(m_mirror->ungrouped(), provider->getUngroupedElements());
  }

  /// Notes the state after a new entry, and checks the states that are known.
  void checkStates(std::size_t positionBefore)
  {
    if (m_hasExecuted) {
      states.resize(positionBefore + 1);
      states.push_back(provider->copyOfGroups());
    }
    ASSERT_EQ(states.size(), history.entries().size() + 1);
    ASSERT_TRUE(identical(provider->getGroups(), states[history.position()]));
  }

  CommandHistory history;
  std::shared_ptr<TestProvider<T>> provider;
  std::vector<Groups> states; ///< by position in the history

private:
  std::size_t number(std::size_t below) { return static_cast<std::size_t>(m_random() % below); }

  std::function<void()> nextAction()
  {
    m_hasExecuted = false;
    switch (number(10)) {
    case 0:
    case 1:
      return [this] { history.undo(); };
    case 2:
      return [this] { history.redo(); };
    case 3:
      return edit<AddToTKGroupCmd<T>>(someElements(), someId());
    case 4:
      return edit<CreateTKGroupCmd<T>>(someElements(), std::string("a group with a long name"));
    case 5:
      return edit<RemoveFromTKGroupCmd<T>>(someElements());
    case 6:
      return edit<RemoveTKGroupsCmd<T>>(std::vector{someId()});
    case 7:
      return edit<RenameTKGroupCmd<T>>(someId(), "a long name with " + std::to_string(number(9)));
    case 8:
      return edit<SortTKGroupsAlphabeticallyCmd<T>>();
    default:
      return edit<MoveTKGroupsCmd<T>>(std::vector{someId()}, someId(), number(2) == 1);
    }
  }

  /// What executes a compact command that runs this one.
  template <class Command, class... Arguments>
  std::function<void()> edit(const Arguments&... arguments)
  {
    return [this, arguments...] {
      history.execute(std::make_shared<CompactTKGroupCmd<T>>(provider, [=](auto recorder) {
        return std::make_shared<Command>(recorder, arguments...);
      }));
      m_hasExecuted = true;
    };
  }

  std::vector<T> someElements()
  {
    std::vector<T> elements;
    for (auto count = number(5); count > 0; --count)
      elements.push_back(m_pool[number(m_pool.size())]);
    return elements;
  }

  Identifier someId()
  {
    const auto& groups = provider->getGroups();
    return groups.empty() ? Identifier() : groups[number(groups.size())].getId();
  }

  bool m_hasExecuted = false;
  std::mt19937_64 m_random;
  std::vector<T> m_pool;
  std::unique_ptr<Mirror<T>> m_mirror;
  GroupsSubscription<T> m_subscription;
};
TYPED_TEST_SUITE(FaultyHistory, ElementIdentifiers, KindName);

TYPED_TEST(FaultyHistory, HasEachStepCompletelyOrNotWhicheverAllocationFails)
{
  for (std::uint64_t seed = 0; seed < 40; ++seed) {
    SCOPED_TRACE(seed);
    this->start(seed);
    for (int step = 0; step < 50; ++step) {
      const auto position = this->history.position();
      ASSERT_NO_FATAL_FAILURE(this->takeAStep()) << step;
      ASSERT_NO_FATAL_FAILURE(this->checkStates(position)) << step;
    }
    this->history.jumpTo(0);
    EXPECT_TRUE(identical(this->provider->getGroups(), this->states.front()));
    this->history.jumpTo(this->history.entries().size());
    EXPECT_TRUE(identical(this->provider->getGroups(), this->states.back()));
  }
}

}
}
