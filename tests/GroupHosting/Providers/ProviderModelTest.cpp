// SPDX-License-Identifier: MIT
// A provider under random commands and changes, against answers that are found by looking at all
// groups, and against a mirror that only knows the steps.

#include "GroupHosting/Commands/CompactTKGroupCmd.h"
#include "GroupHosting/Support/Mirror.h"
#include "GroupHosting/Support/RandomHost.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace Tarvik {
namespace {

template <class T>
class ProviderModel : public ::testing::Test {
protected:
  /// @param isListened  with a listener, a provider finds out what changes in another way
  void start(unsigned int seed, bool isListened)
  {
    m_isListened = isListened;
    m_commands.clear();
    m_subscription = {};
    m_host = std::make_unique<RandomHost<T>>(seed);
    m_mirror = std::make_unique<Mirror<T>>(*m_host->provider);
    if (isListened)
      m_subscription =
          m_host->provider->subscribe([this](const auto& change) { m_mirror->apply(change); });
  }

  void changeSomething()
  {
    const auto choice = m_host->number(14);
    if (choice < 8)
      execute(m_host->someCommand());
    else if (choice < 10)
      jump();
    else
      m_host->changeDirectly();
  }

  void expectTheAnswersOfAPlainSearch()
  {
    const auto& provider = m_host->provider;
    const auto& groups = provider->getGroups();
    for (const T& element : m_host->pool()) {
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
    ASSERT_TRUE(identical(m_mirror->groups(), m_host->provider->getGroups()));
    ASSERT_EQ(m_mirror->ungrouped(), m_host->provider->getUngroupedElements());
  }

private:
  void execute(const typename RandomHost<T>::MakeCommand& makeCommand)
  {
    if (m_host->number(3) == 0)
      return executeCompact(makeCommand);
    m_commands.push_back(makeCommand(m_host->provider));
    m_commands.back()->execute();
  }

  /// A compact command only takes the list that it left, so it is undone and redone at once.
  void executeCompact(const typename RandomHost<T>::MakeCommand& makeCommand)
  {
    auto& provider = *m_host->provider;
    CompactTKGroupCmd<T> command(m_host->provider, makeCommand);
    const auto before = provider.copyOfGroups();
    command.execute();
    const auto after = provider.copyOfGroups();
    command.undo();
    EXPECT_TRUE(identical(provider.getGroups(), before));
    if (m_host->flip())
      return;
    command.redo();
    EXPECT_TRUE(identical(provider.getGroups(), after));
  }

  /// Undoes or redoes any earlier command, in any order: a provider takes any list.
  void jump()
  {
    if (m_commands.empty())
      return;
    auto& command = *m_commands[m_host->number(m_commands.size())];
    if (m_host->flip())
      command.undo();
    else
      command.redo();
  }

  const TKGroup<T>* firstWithId(const Identifier& id)
  {
    return &*GroupLists::findGroup(m_host->provider->getGroups(), id);
  }

  std::unique_ptr<RandomHost<T>> m_host;
  std::unique_ptr<Mirror<T>> m_mirror;
  GroupsSubscription<T> m_subscription;
  bool m_isListened = false;
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
