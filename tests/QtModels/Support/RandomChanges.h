// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandHistory.h"
#include "GroupHosting/Commands/MoveTKGroupsCmd.h"
#include "GroupHosting/Support/TestProvider.h"
#include "HighLevelServices/GroupCommands/AddToTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/MoveTKGroupElementsCmd.h"
#include "HighLevelServices/GroupCommands/RemoveFromTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/RemoveTKGroupsCmd.h"
#include "HighLevelServices/GroupCommands/RenameTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/SortTKGroupsAlphabeticallyCmd.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik {

/// Changes a provider at random: with all commands, with undo, redo and jumps in a history, and
/// with other lists of groups and elements. Few elements, so that groups share members, hold some
/// twice, and have equal ids.
template <class T>
class RandomChanges {
public:
  explicit RandomChanges(unsigned int seed) : m_random(seed)
  {
    provider->setElements({m_pool.begin(), m_pool.begin() + poolSize / 2});
    std::vector<std::pair<T, std::string>> names;
    for (const T& element : m_pool)
      names.emplace_back(element, std::to_string(number(100)));
    provider->nameElements(names);
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
      return static_cast<void>(m_history.undo());
    case 9:
      return static_cast<void>(m_history.redo());
    case 10:
      return m_history.jumpTo(number(m_history.entries().size() + 1));
    case 11:
      return provider->setElements(someElements(poolSize));
    case 12:
      return reorderElements();
    default:
      return provider->setGroups(someGroups());
    }
  }

  /// 0 to below - 1.
  std::size_t number(std::size_t below) { return m_random() % below; }

private:
  static constexpr std::size_t poolSize = 24;

  std::mt19937 m_random;
  std::vector<T> m_pool = std::vector<T>(poolSize); ///< half of them are the host's at first
  CommandHistory m_history;

public:
  const std::shared_ptr<TestProvider<T>> provider = std::make_shared<TestProvider<T>>();

private:
  bool flip() { return number(2) == 1; }

  template <class Command, class... Arguments>
  void execute(const Arguments&... arguments)
  {
    m_history.execute(std::make_shared<Command>(provider, arguments...));
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
};

}
