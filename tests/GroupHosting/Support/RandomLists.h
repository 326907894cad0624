// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/Groups/TKGroup.h"

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik {

/// Random lists of groups. Few identifiers, so that groups have equal ids, share members and hold
/// some twice.
template <class T>
class RandomLists {
public:
  explicit RandomLists(std::uint64_t seed) : m_random(seed) {}

  /// Two lists; half of the time the second one comes from a few changes of the first one.
  std::pair<std::vector<TKGroup<T>>, std::vector<TKGroup<T>>> nextPair()
  {
    auto before = next();
    return {before, upTo(2) == 1 ? next() : changed(before)};
  }

  std::vector<TKGroup<T>> next()
  {
    std::vector<TKGroup<T>> list;
    for (auto count = upTo(9) - 1; count > 0; --count)
      list.push_back(group());
    return list;
  }

  /// 1 to most.
  std::size_t upTo(std::size_t most) { return static_cast<std::size_t>(m_random() % most) + 1; }

private:
  TKGroup<T> group()
  {
    auto group = m_groups[upTo(m_groups.size()) - 1];
    change(group);
    return group;
  }

  void change(TKGroup<T>& group)
  {
    group.setName("group " + std::to_string(upTo(2)), true);
    std::vector<T> members;
    const auto different = upTo(m_identifiers.size());
    for (auto count = upTo(13) - 1; count > 0; --count)
      members.push_back(m_identifiers[upTo(different) - 1]);
    group.clear();
    group.addGroupMembersAtIndex(members, -1);
  }

  std::vector<TKGroup<T>> changed(std::vector<TKGroup<T>> list)
  {
    for (auto changes = upTo(3); changes > 0 && !list.empty(); --changes) {
      const auto place = list.begin() + static_cast<std::ptrdiff_t>(upTo(list.size()) - 1);
      switch (upTo(4)) {
      case 1:
        list.erase(place);
        break;
      case 2:
        list.insert(place, group());
        break;
      case 3:
        change(*place);
        break;
      default:
        std::swap(*place, list.front());
      }
    }
    return list;
  }

  std::mt19937_64 m_random;
  std::vector<TKGroup<T>> m_groups = std::vector<TKGroup<T>>(8);
  std::vector<T> m_identifiers = std::vector<T>(16);
};

}
