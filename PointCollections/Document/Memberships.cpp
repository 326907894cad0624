// SPDX-License-Identifier: MIT
#include "PointCollections/Document/Memberships.h"

#include <algorithm>
#include <numeric>

namespace Tarvik::PointCollections {

bool mayHaveRepeatedMembers(PointDocument& document)
{
  const auto& groups = document.getGroups();
  const auto members = std::accumulate(
      groups.begin(), groups.end(), std::size_t(0),
      [](auto sum, const auto& group) { return sum + group.getGroupMembers().size(); });
  return members > document.order().size() - document.ungroupedElements().size();
}

Memberships::Memberships(PointDocument& document)
    : m_document(document), m_ends(document.collections().size())
{
  struct Found {
    std::size_t element;
    Membership membership;
  };
  std::vector<Found> all;
  const auto& groups = document.getGroups();
  for (std::size_t group = 0; group < groups.size(); ++group) {
    const auto& members = groups[group].getGroupMembers();
    for (std::size_t place = 0; place < members.size(); ++place) {
      if (const auto* collection = document.find(members[place]))
        all.push_back({indexOf(*collection), {group, place}});
    }
  }

  for (const Found& found : all)
    ++m_ends[found.element];
  std::partial_sum(m_ends.begin(), m_ends.end(), m_ends.begin());
  auto next = m_ends;
  m_memberships.resize(all.size());
  std::for_each(all.rbegin(), all.rend(), [&](const Found& found) {
    m_memberships[--next[found.element]] = found.membership;
  });
}

std::span<const Membership> Memberships::of(const PointCollection& collection) const
{
  const auto index = indexOf(collection);
  const auto begin = index == 0 ? 0 : m_ends[index - 1];
  return std::span(m_memberships).subspan(begin, m_ends[index] - begin);
}

std::size_t Memberships::indexOf(const PointCollection& collection) const
{
  return static_cast<std::size_t>(&collection - m_document.collections().data());
}

}
