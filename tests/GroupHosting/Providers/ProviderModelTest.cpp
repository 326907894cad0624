// SPDX-License-Identifier: MIT
// A provider under random commands and changes, against answers that are found by looking at all
// groups, and against a mirror that only knows the steps.

#include "GroupHosting/Commands/CompactTKGroupCmd.h"
#include "GroupHosting/Commands/MoveTKGroupsCmd.h"
#include "GroupHosting/Support/Mirror.h"
#include "GroupHosting/Support/TestProvider.h"
#include "HighLevelServices/GroupCommands/AddToTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/MoveTKGroupElementsCmd.h"
#include "HighLevelServices/GroupCommands/RemoveFromTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/RemoveTKGroupsCmd.h"
#include "HighLevelServices/GroupCommands/RenameTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/SortTKGroupsAlphabeticallyCmd.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace Tarvik {
namespace {

template <class T>
class ProviderModel : public ::testing::Test {
protected:
  static constexpr std::size_t poolSize = 24;

  /// @param isListened  with a listener, a provider finds out what changes in another way
  void start(unsigned int seed, bool isListened)
  {
    m_random.seed(seed);
    m_isListened = isListened;
    m_pool = std::vector<T>(poolSize);
    provider = std::make_shared<TestProvider<T>>(
        std::vector<T>(m_pool.begin(), m_pool.begin() + poolSize / 2));
    m_commands.clear();
    std::vector<std::pair<T, std::string>> names;
    for (const T& element : m_pool)
      names.emplace_back(element, std::to_string(number(100)));
    provider->nameElements(names);
    mirror = std::make_unique<Mirror<T>>(*provider);
    subscription = {};
    if (isListened)
      subscription = provider->subscribe([this](const auto& change) { mirror->apply(change); });
  }

  void changeSomething()
  {
    switch (number(14)) {
    case 0:
      return execute<AddToTKGroupCmd<T>>(someElements(6), someId());
    case 1:
      return execute<CreateTKGroupCmd<T>>(someElements(6), std::string("Group"));
    case 2:
      return execute<RemoveFromTKGroupCmd<T>>(someElements(4));
    case 3:
      return execute<RemoveTKGroupsCmd<T>>(someIds(3));
    case 4:
      return execute<RenameTKGroupCmd<T>>(someId(), std::to_string(number(4)));
    case 5:
      return execute<MoveTKGroupElementsCmd<T>>(someElements(6), m_pool[number(poolSize)], flip());
    case 6:
      return execute<SortTKGroupsAlphabeticallyCmd<T>>();
    case 7:
      return execute<MoveTKGroupsCmd<T>>(someIds(4), someId(), flip());
    case 8:
    case 9:
      return jump();
    case 10:
      return provider->renameGroup(someId(), std::to_string(number(4)));
    case 11:
      return provider->setElements(someElements(poolSize));
    case 12:
      return reorderElements();
    default:
      return provider->setGroups(someGroups());
    }
  }

  void expectTheAnswersOfAPlainSearch()
  {
    const auto& groups = provider->getGroups();
    for (const T& element : m_pool) {
      const auto holder = std::find_if(groups.begin(), groups.end(),
                                       [&](const auto& group) { return group.isInGroup(element); });
      const auto* expected = holder != groups.end() ? &*holder : nullptr;
      ASSERT_EQ(provider->holderOf(element), expected);
      ASSERT_EQ(provider->isGrouped(element), expected != nullptr);
      ASSERT_EQ(provider->hasElement(element),
                std::count(provider->elements().begin(), provider->elements().end(), element) == 1);
      for (const auto& group : groups)
        ASSERT_EQ(provider->isInGroup(element, group.getId()),
                  firstWithId(group.getId())->isInGroup(element));
    }
    for (const auto& group : groups)
      ASSERT_EQ(provider->findGroup(group.getId()), firstWithId(group.getId()));

    std::vector<T> ungrouped;
    std::copy_if(provider->elements().begin(), provider->elements().end(),
                 std::back_inserter(ungrouped), [&](const T& element) {
                   return std::none_of(groups.begin(), groups.end(),
                                       [&](const auto& group) { return group.isInGroup(element); });
                 });
    ASSERT_EQ(provider->getUngroupedElements(), ungrouped);
    ASSERT_EQ(provider->ungroupedElements(), ungrouped);
  }

  void expectTheMirrorToFollow()
  {
    if (!m_isListened)
      return;
    ASSERT_TRUE(identical(mirror->groups(), provider->getGroups()));
    ASSERT_EQ(mirror->ungrouped(), provider->getUngroupedElements());
  }

  std::shared_ptr<TestProvider<T>> provider;
  std::unique_ptr<Mirror<T>> mirror;
  GroupsSubscription<T> subscription;

private:
  std::size_t number(std::size_t below) { return m_random() % below; }
  bool flip() { return number(2) == 1; }

  template <class Command, class... Arguments>
  void execute(const Arguments&... arguments)
  {
    if (number(3) == 0)
      return executeCompact<Command>(arguments...);
    m_commands.push_back(std::make_shared<Command>(provider, arguments...));
    m_commands.back()->execute();
  }

  /// A compact command only takes the list that it left, so it is undone and redone at once.
  template <class Command, class... Arguments>
  void executeCompact(const Arguments&... arguments)
  {
    CompactTKGroupCmd<T> command(
        provider, [&](auto host) { return std::make_shared<Command>(host, arguments...); });
    const auto before = provider->copyOfGroups();
    command.execute();
    const auto after = provider->copyOfGroups();
    command.undo();
    EXPECT_TRUE(identical(provider->getGroups(), before));
    if (flip())
      return;
    command.redo();
    EXPECT_TRUE(identical(provider->getGroups(), after));
  }

  /// Undoes or redoes any earlier command, in any order: a provider takes any list.
  void jump()
  {
    if (m_commands.empty())
      return;
    auto& command = *m_commands[number(m_commands.size())];
    if (flip())
      command.undo();
    else
      command.redo();
  }

  void reorderElements()
  {
    auto elements = provider->elements();
    std::shuffle(elements.begin(), elements.end(), m_random);
    provider->setElements(elements);
  }

  std::vector<T> someElements(std::size_t most)
  {
    std::vector<T> some;
    for (auto count = number(most + 1); count > 0; --count)
      some.push_back(m_pool[number(poolSize)]);
    return some;
  }

  Identifier someId()
  {
    const auto& groups = provider->getGroups();
    const auto position = number(groups.size() + 1);
    return position < groups.size() ? groups[position].getId() : Identifier();
  }

  std::vector<Identifier> someIds(std::size_t most)
  {
    std::vector<Identifier> some;
    for (auto count = number(most + 1); count > 0; --count)
      some.push_back(someId());
    return some;
  }

  /// Groups that share members, have some twice and may have equal ids.
  std::vector<TKGroup<T>> someGroups()
  {
    auto groups = provider->getGroups();
    for (auto count = number(4); count > 0; --count) {
      if (groups.empty() || number(3) == 0)
        groups.emplace_back("New");
      else if (number(4) == 0)
        groups.push_back(groups[number(groups.size())]);
      setMembers(groups[number(groups.size())], someElements(8));
    }
    if (number(3) == 0)
      std::shuffle(groups.begin(), groups.end(), m_random);
    if (number(3) == 0)
      groups.resize(number(groups.size() + 1));
    return groups;
  }

  const TKGroup<T>* firstWithId(const Identifier& id)
  {
    return &*GroupLists::findGroup(provider->getGroups(), id);
  }

  std::mt19937 m_random;
  bool m_isListened = false;
  std::vector<T> m_pool; ///< half of them are elements of the host at first
  std::vector<std::shared_ptr<CommandBase>> m_commands;
};
TYPED_TEST_SUITE(ProviderModel, ProvidedIdentifiers, ProvidedName);

TYPED_TEST(ProviderModel, AnswersAsIfItLookedAtAllGroups)
{
  for (unsigned int seed = 0; seed < 150; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    this->start(seed, seed % 3 > 0);
    for (int change = 0; change < 60; ++change) {
      this->changeSomething();
      ASSERT_NO_FATAL_FAILURE(this->expectTheAnswersOfAPlainSearch()) << "change " << change;
      ASSERT_NO_FATAL_FAILURE(this->expectTheMirrorToFollow()) << "change " << change;
      ASSERT_FALSE(this->HasFailure());
    }
  }
}

}
}
