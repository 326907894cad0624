// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Verbs/Movement.h"

#include "PointCollections/Text/Quoting.h"

#include <fmt/format.h>

#include <map>

namespace Tarvik::PointCollections {

std::vector<Origin> originsOf(PointDocument& document, const std::vector<GUIdentifier>& elements)
{
  std::map<const TKGroup<GUIdentifier>*, std::size_t> counts; // in the order of the list
  for (const auto& element : elements) {
    if (const auto* holder = document.holderOf(element))
      ++counts[holder];
  }
  std::vector<Origin> origins;
  origins.reserve(counts.size());
  for (const auto& [group, count] : counts)
    origins.push_back({group, count});
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
