// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/Groups/TKGroup.h"
#include "Identifier/GUIdentifier.h"
#include "PointCollections/Input/CsvReader.h"

#include <cstddef>
#include <map>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace Tarvik::PointCollections {

/// Collects the groups of a file of points, row by row, from its columns group and place.
class GroupColumns {
public:
  /// Adds a group, or moves it to the front of all that have not been declared.
  void declare(const std::string& group);

  /// Puts an element into a group. An empty place means after all members that have one; the same
  /// row again changes nothing.
  /// @return whether the group has one more member
  /// @throws UserError if the place is no whole number from 1 up, or another element has it
  bool add(const CsvReader& csv,
           const GUIdentifier& element,
           const std::string& group,
           const std::string& place);

  /// The declared groups, in that order, and then the others, in the order of their first rows.
  std::vector<TKGroup<GUIdentifier>> groups() const;

private:
  struct Group {
    std::string name;
    bool isDeclared = false;
    std::map<std::size_t, GUIdentifier> placed = {}; ///< by place
    std::vector<GUIdentifier> others = {};           ///< without a place
    std::unordered_set<GUIdentifier> otherSet = {};
  };

  Group& groupNamed(const std::string& name);

  std::vector<Group> m_groups;
  std::vector<std::size_t> m_declared; ///< indices
  std::unordered_map<std::string, std::size_t> m_indices;
};

}
