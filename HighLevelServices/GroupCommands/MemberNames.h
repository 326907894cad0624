// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/GroupCommands/ElementTable.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <locale>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik::GroupLists {

/// Lowers a member's name byte by byte with the current global locale. Names of groups are
/// deliberately lowered in another way.
inline void lowerMemberName(std::string& name)
{
  const std::locale global;
  const auto& letters = std::use_facet<std::ctype<char>>(global);
  // one call per byte: a program's own facet may do something else for a range
  std::transform(name.begin(), name.end(), name.begin(),
                 [&letters](char letter) { return letters.tolower(letter); });
}

/// The first eight bytes of a name as a number. If the numbers of two names differ, the names have
/// the same order as the numbers.
inline std::uint64_t firstBytes(const std::string& name)
{
  std::uint64_t number = 0;
  for (std::size_t i = 0; i < sizeof number; ++i)
    number = number << 8U | (i < name.size() ? static_cast<unsigned char>(name[i]) : 0U);
  return number;
}

/// The members in the order of their lowered names, each once, at its first place.
/// @param names  the members with their names, which are lowered
template <class T>
std::vector<T> membersByName(std::vector<std::pair<T, std::string>>& names)
{
  /// Sorting these moves 16 bytes at a time, and most comparisons need no look at the names.
  struct Position {
    std::uint64_t firstBytes;
    std::size_t index;
  };
  std::vector<Position> positions;
  positions.reserve(names.size());
  for (auto& [member, name] : names) {
    lowerMemberName(name);
    positions.push_back({firstBytes(name), positions.size()});
  }
  std::sort(positions.begin(), positions.end(), [&names](const Position& a, const Position& b) {
    if (a.firstBytes != b.firstBytes)
      return a.firstBytes < b.firstBytes;
    return names[a.index].second < names[b.index].second;
  });

  std::vector<T> members;
  members.reserve(names.size());
  for (const auto& position : positions)
    members.push_back(names[position.index].first);
  return distinct(members);
}

}
