// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Selection/SelectedLists.h"

#include <cstddef>
#include <string>
#include <vector>

namespace Tarvik::PointCollections {

/// What messages say about lists in which something was looked for and not found: all elements, the
/// ungrouped ones, or the members of one group or several. The sentences differ from list to list,
/// as the grammar of a language may need it.
class SearchedPlace {
public:
  /// @param lists  at least one
  explicit SearchedPlace(const std::vector<ElementList>& lists);

  /// "there are no elements in Europe"
  std::string isEmpty() const;

  /// "nothing in Europe matches A*"
  /// @param pattern  as the user typed it
  std::string hasNoMatch(const std::string& pattern) const;

  /// "Tokyo is not in Europe; where Tokyo tells where it is". Not for the list of all elements.
  /// @param element  as displayName() shows it
  std::string lacks(const std::string& element) const;

  /// "there is no element at place 7 in Europe; the last place is 3". Not for the list of all
  /// elements, whose places nobody can type.
  /// @param place  as the user typed it
  /// @param last   not told of several groups
  std::string endsBefore(const std::string& place, std::size_t last) const;

private:
  ElementList::Kind m_kind;
  std::string m_group;  ///< its name, if there is only one
  std::size_t m_groups; ///< 1 or more
};

}
