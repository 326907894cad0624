// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Workspace/ElementColours.h"

#include <utility>
#include <variant>

namespace Tarvik::PointCollections {

ElementColours::ElementColours(std::shared_ptr<PointDocument> document)
    : m_document(std::move(document))
{
  const auto& collections = m_document->collections();
  m_numbers.reserve(collections.size());
  for (const auto& collection : collections)
    m_numbers.emplace(collection.id, static_cast<std::uint32_t>(m_numbers.size()));
  m_colours.assign(collections.size(), GroupColours::ofUngrouped().rgb());
  for (const auto& group : m_document->getGroups()) {
    m_groupColours.of(group.getId()); // numbered in the order of the list
    renew(group.getGroupMembers());
  }
  m_subscription = m_document->subscribe([this](const auto& change) { follow(change); });
}

ElementColours::~ElementColours() = default;

std::optional<std::uint32_t> ElementColours::numberOf(const GUIdentifier& element) const
{
  const auto found = m_numbers.find(element);
  return found != m_numbers.end() ? std::optional(found->second) : std::nullopt;
}

const PointCollection& ElementColours::element(std::uint32_t number) const
{
  return m_document->collections()[number];
}

/// Which group comes first for an element may also change when groups are moved.
void ElementColours::follow(const GroupsChange<GUIdentifier>& change)
{
  const auto renewGroups = [this](const auto& groups) {
    for (const auto& group : groups)
      renew(group.getGroupMembers());
  };
  for (const auto& step : change.groups) {
    if (const auto* come = std::get_if<GroupsInserted<GUIdentifier>>(&step))
      renewGroups(come->groups);
    else if (const auto* leave = std::get_if<GroupsRemoved<GUIdentifier>>(&step))
      renewGroups(leave->groups);
    else if (const auto* joining = std::get_if<MembersInserted<GUIdentifier>>(&step))
      renew(joining->members);
    else if (const auto* leaving = std::get_if<MembersRemoved<GUIdentifier>>(&step))
      renew(leaving->members);
    else if (std::holds_alternative<GroupsMoved>(step) ||
             std::holds_alternative<GroupsReordered>(step))
      renewGroups(m_document->getGroups());
  }
  if (!change.groups.empty() && m_listener)
    m_listener();
}

void ElementColours::renew(const std::vector<GUIdentifier>& elements)
{
  for (const auto& element : elements) {
    const auto number = numberOf(element);
    if (!number)
      continue;
    const auto* const group = m_document->holderOf(element);
    const auto colour = group ? m_groupColours.of(group->getId()) : GroupColours::ofUngrouped();
    m_colours[*number] = colour.rgb();
  }
}

}
