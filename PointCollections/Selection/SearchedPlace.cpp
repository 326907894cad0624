// SPDX-License-Identifier: MIT
#include "PointCollections/Selection/SearchedPlace.h"

#include "PointCollections/Text/Translated.h"

namespace Tarvik::PointCollections {

using ListKind = ElementList::Kind;

SearchedPlace::SearchedPlace(const std::vector<ElementList>& lists)
    : m_kind(lists.front().kind), m_group(lists.front().group), m_groups(lists.size())
{}

std::string SearchedPlace::isEmpty() const
{
  if (m_kind == ListKind::All)
    return translated("there are no elements");
  if (m_kind == ListKind::Ungrouped)
    return translated("there are no elements among the ungrouped elements");
  if (m_groups == 1)
    return translated("there are no elements in {}", m_group);
  return translatedCount(m_groups, "there are no elements in {} group",
                         "there are no elements in {} groups");
}

std::string SearchedPlace::hasNoMatch(const std::string& pattern) const
{
  if (m_kind == ListKind::All)
    return translated("nothing matches {}", pattern);
  if (m_kind == ListKind::Ungrouped)
    return translated("nothing among the ungrouped elements matches {}", pattern);
  if (m_groups == 1)
    return translated("nothing in {} matches {}", m_group, pattern);
  return translatedCount(m_groups, "nothing in {} group matches {}",
                         "nothing in {} groups matches {}", pattern);
}

std::string SearchedPlace::lacks(const std::string& element) const
{
  if (m_kind == ListKind::Ungrouped)
    // For translators: "where {0}" is what the user types
    return translated("{0} is not among the ungrouped elements; where {0} tells where it is",
                      element);
  if (m_groups == 1)
    // For translators: "where {0}" is what the user types
    return translated("{0} is not in {1}; where {0} tells where it is", element, m_group);
  // For translators: "where {1}" is what the user types
  return translatedCount(m_groups, "{1} is not in {0} group; where {1} tells where it is",
                         "{1} is not in {0} groups; where {1} tells where it is", element);
}

std::string SearchedPlace::endsBefore(const std::string& place, std::size_t last) const
{
  if (m_kind == ListKind::Ungrouped)
    return translated("there is no element at place {} among the ungrouped elements; the last "
                      "place is {}",
                      place, last);
  if (m_groups == 1)
    return translated("there is no element at place {} in {}; the last place is {}", place, m_group,
                      last);
  return translatedCount(m_groups, "there is no element at place {1} in {0} group",
                         "there is no element at place {1} in {0} groups", place);
}

}
