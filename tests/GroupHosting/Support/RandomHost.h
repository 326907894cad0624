// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Commands/CompactTKGroupCmd.h"
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

/// A provider, and random things to do to it: the commands on groups, and other lists of groups and
/// elements. Few elements, so that groups share members, hold some twice, and have equal ids.
template <class T>
class RandomHost {
public:
  /// Makes a command on the given provider.
  using MakeCommand = typename CompactTKGroupCmd<T>::MakeCommand;

  static constexpr std::size_t poolSize = 24;

  explicit RandomHost(unsigned int seed) : m_random(seed)
  {
    provider->setElements({m_pool.begin(), m_pool.begin() + poolSize / 2});
    std::vector<std::pair<T, std::string>> names;
    for (const T& element : m_pool)
      names.emplace_back(element, std::to_string(number(100)));
    provider->nameElements(names);
  }

  /// 0 to below - 1.
  std::size_t number(std::size_t below) { return m_random() % below; }
  bool flip() { return number(2) == 1; }

  /// All elements that groups may hold; half of them are the host's at first.
  const std::vector<T>& pool() const { return m_pool; }

  /// One of all commands on groups, with arguments that need not make sense.
  MakeCommand someCommand()
  {
    switch (number(8)) {
    case 0:
      return make<AddToTKGroupCmd<T>>(someElements(6), someId());
    case 1:
      return make<CreateTKGroupCmd<T>>(someElements(6), std::string("Group"));
    case 2:
      return make<RemoveFromTKGroupCmd<T>>(someElements(4));
    case 3:
      return make<RemoveTKGroupsCmd<T>>(someIds(3));
    case 4:
      return make<RenameTKGroupCmd<T>>(someId(), someName());
    case 5:
      return make<MoveTKGroupElementsCmd<T>>(someElements(6), m_pool[number(poolSize)], flip());
    case 6:
      return make<SortTKGroupsAlphabeticallyCmd<T>>();
    default:
      return make<MoveTKGroupsCmd<T>>(someIds(4), someId(), flip());
    }
  }

  /// Changes the provider without a command.
  void changeDirectly()
  {
    switch (number(4)) {
    case 0:
      return provider->renameGroup(someId(), someName());
    case 1:
      return provider->setElements(someElements(poolSize));
    case 2:
      return reorderElements();
    default:
      return provider->setGroups(someGroups());
    }
  }

private:
  std::mt19937 m_random;
  std::vector<T> m_pool = std::vector<T>(poolSize);

public:
  const std::shared_ptr<TestProvider<T>> provider = std::make_shared<TestProvider<T>>();

private:
  template <class Command, class... Arguments>
  static MakeCommand make(const Arguments&... arguments)
  {
    return [arguments...](typename CompactTKGroupCmd<T>::Provider host) {
      return std::make_shared<Command>(std::move(host), arguments...);
    };
  }

  std::string someName() { return std::to_string(number(4)); }

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
