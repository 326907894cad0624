// SPDX-License-Identifier: MIT
#include "PointCollections/Verbs/Movement.h"

#include "PointCollections/Text/Quoting.h"

#include <fmt/format.h>

#include <algorithm>
#include <unordered_set>

namespace Tarvik::PointCollections {

std::string movementInWords(PointDocument& document,
                            const std::vector<GUIdentifier>& elements,
                            const TKGroup<GUIdentifier>* target)
{
  std::unordered_set<GUIdentifier> left(elements.begin(), elements.end());
  std::string words;
  for (const auto& group : document.getGroups()) {
    const auto& members = group.getGroupMembers();
    const auto taken = std::count_if(members.begin(), members.end(),
                                     [&left](const auto& id) { return left.erase(id) > 0; });
    if (taken > 0)
      words +=
          fmt::format("{}{} {}", words.empty() ? "" : ", ", taken,
                      &group == target ? "moved within it" : "from " + mentioned(group.getName()));
  }
  return words.empty() ? words : " (" + words + ')';
}

}
