// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/GroupCommands/ElementTable.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <vector>

namespace Tarvik::GroupLists {

/// Keys of the groups in a list. A group keeps its key when it moves. Not for hosts.
class GroupKeys {
public:
  using Key = std::uint32_t;

  /// The key of the group at a position of the list.
  Key keyAt(std::size_t position) const { return m_keys[position]; }

  /// The position of the group with a key, or `nowhere`.
  std::size_t positionOf(Key key) const { return m_positions[key]; }

  /// The keys of a changed list.
  /// @param origins  by position: the position in this list, or `nowhere` for a new group
  GroupKeys after(const std::vector<std::size_t>& origins) const
  {
    constexpr auto none = (std::numeric_limits<Key>::max)();
    if (origins.size() >= none)
      throw std::length_error("there are more groups than a provider can number");
    GroupKeys result;
    result.m_keys.resize(origins.size(), none);
    result.m_positions.resize((std::max)(m_positions.size(), origins.size()), nowhere);
    for (std::size_t i = 0; i < origins.size(); ++i) {
      if (origins[i] != nowhere) {
        result.m_keys[i] = m_keys[origins[i]];
        result.m_positions[result.m_keys[i]] = i;
      }
    }
    Key unused = 0;
    for (std::size_t i = 0; i < origins.size(); ++i) {
      if (origins[i] != nowhere)
        continue;
      while (result.m_positions[unused] != nowhere)
        ++unused;
      result.m_keys[i] = unused;
      result.m_positions[unused] = i;
    }
    return result;
  }

private:
  std::vector<Key> m_keys;              ///< by position
  std::vector<std::size_t> m_positions; ///< by key
};

}
