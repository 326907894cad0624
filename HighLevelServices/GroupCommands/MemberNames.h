// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/GroupCommands/DistinctElements.h"

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

/// How many bytes at their start all names have in common.
template <class T>
std::size_t commonBytes(const std::vector<std::pair<T, std::string>>& names)
{
  if (names.empty())
    return 0;
  const auto& first = names.front().second;
  auto end = first.end();
  for (const auto& [member, name] : names)
    end = std::mismatch(first.begin(), end, name.begin(), name.end()).first;
  return static_cast<std::size_t>(end - first.begin());
}

/// Eight bytes of a name, from a position on, as a number. If the numbers of two names that are
/// equal up to there differ, the names have the same order as the numbers.
inline std::uint64_t eightBytes(const std::string& name, std::size_t begin)
{
  std::uint64_t number = 0;
  for (std::size_t i = begin; i < begin + sizeof number; ++i)
    number = number << 8U | (i < name.size() ? static_cast<unsigned char>(name[i]) : 0U);
  return number;
}

/// The members in the order of their lowered names, each once, at its first place.
/// @param names  the members with their names, which are lowered
template <class T>
std::vector<T> membersByName(std::vector<std::pair<T, std::string>>& names)
{
  for (auto& [member, name] : names)
    lowerMemberName(name);

  /// Sorting these moves 16 bytes at a time, and most comparisons need no look at the names: they
  /// often begin alike ("Pump 17"), but differ soon.
  struct Position {
    std::uint64_t bytes;
    std::size_t index;
  };
  std::vector<Position> positions;
  positions.reserve(names.size());
  const auto begin = commonBytes(names);
  for (const auto& [member, name] : names)
    positions.push_back({eightBytes(name, begin), positions.size()});
  std::sort(positions.begin(), positions.end(), [&names](const Position& a, const Position& b) {
    if (a.bytes != b.bytes)
      return a.bytes < b.bytes;
    return names[a.index].second < names[b.index].second;
  });

  std::vector<T> members;
  members.reserve(names.size());
  for (const auto& position : positions)
    members.push_back(names[position.index].first);
  return distinct(members);
}

}
