// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Verbs/Movement.h"

#include "PointCollections/Text/Quoting.h"

#include <fmt/format.h>

#include <algorithm>
#include <unordered_set>

namespace Tarvik::PointCollections {

std::vector<Origin> originsOf(PointDocument& document, const std::vector<GUIdentifier>& elements)
{
  std::unordered_set<GUIdentifier> left(elements.begin(), elements.end());
  std::vector<Origin> origins;
  for (const auto& group : document.getGroups()) {
    const auto& members = group.getGroupMembers();
    const auto taken = std::count_if(members.begin(), members.end(),
                                     [&left](const auto& id) { return left.erase(id) > 0; });
    if (taken > 0)
      origins.push_back({&group, static_cast<std::size_t>(taken)});
  }
  return origins;
}

std::string describeMovement(PointDocument& document,
                             const std::vector<GUIdentifier>& elements,
                             const TKGroup<GUIdentifier>* target)
{
  std::string words;
  for (const Origin& origin : originsOf(document, elements))
    words += fmt::format("{}{} {}", words.empty() ? "" : ", ", origin.elements,
                         origin.group == target ? "moved within it"
                                                : "from " + displayName(origin.group->getName()));
  return words.empty() ? words : " (" + words + ')';
}

}
