// SPDX-License-Identifier: MIT
#include "PointCollections/Input/GroupColumns.h"

#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"

#include <charconv>
#include <system_error>

namespace Tarvik::PointCollections {
namespace {

std::size_t parsePlace(const CsvReader& csv, const std::string& field)
{
  std::size_t place = 0;
  const char* end = field.data() + field.size();
  const auto [stop, error] = std::from_chars(field.data(), end, place);
  if (error != std::errc() || stop != end || place == 0)
    // For translators: place is the name of a column
    csv.fail(translated("place is {}; expected a whole number from 1 up, or nothing",
                        inQuotes(abbreviated(field, 60))));
  return place;
}

}

void GroupColumns::declare(const std::string& group)
{
  auto& declared = groupNamed(group);
  if (!declared.isDeclared)
    m_declared.push_back(static_cast<std::size_t>(&declared - m_groups.data()));
  declared.isDeclared = true;
}

bool GroupColumns::add(const CsvReader& csv,
                       const GUIdentifier& element,
                       const std::string& group,
                       const std::string& place)
{
  auto& holder = groupNamed(group);
  if (place.empty()) {
    const bool isNew = holder.otherSet.insert(element).second;
    if (isNew)
      holder.others.push_back(element);
    return isNew;
  }
  const auto number = parsePlace(csv, place);
  const auto [found, isNew] = holder.placed.try_emplace(number, element);
  if (!isNew && found->second != element)
    csv.fail(translated("another element has the place {} in {}; expected a free place, or nothing",
                        number, displayName(group)));
  return isNew;
}

std::vector<TKGroup<GUIdentifier>> GroupColumns::groups() const
{
  auto order = m_declared;
  for (std::size_t i = 0; i < m_groups.size(); ++i) {
    if (!m_groups[i].isDeclared)
      order.push_back(i);
  }
  std::vector<TKGroup<GUIdentifier>> result;
  result.reserve(order.size());
  for (const auto index : order) {
    const Group& group = m_groups[index];
    std::vector<GUIdentifier> members;
    members.reserve(group.placed.size() + group.others.size());
    for (const auto& [place, element] : group.placed)
      members.push_back(element);
    members.insert(members.end(), group.others.begin(), group.others.end());
    result.emplace_back(group.name).addGroupMembersAtIndex(members, -1);
  }
  return result;
}

GroupColumns::Group& GroupColumns::groupNamed(const std::string& name)
{
  const auto [found, isNew] = m_indices.try_emplace(name, m_groups.size());
  if (isNew)
    m_groups.push_back({.name = name});
  return m_groups[found->second];
}

}
