// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Verbs/Movement.h"

#include "PointCollections/Text/Quoting.h"

#include <fmt/format.h>

#include <map>
#include <numeric>
#include <span>

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

std::size_t countElements(std::span<const Origin> origins)
{
  return std::accumulate(origins.begin(), origins.end(), std::size_t(0),
                         [](auto sum, const Origin& origin) { return sum + origin.elements; });
}

std::string describeMovement(PointDocument& document,
                             const std::vector<GUIdentifier>& elements,
                             const TKGroup<GUIdentifier>* target)
{
  constexpr std::size_t mostOrigins = 6;
  const auto origins = originsOf(document, elements);
  const std::size_t named = origins.size() > mostOrigins ? mostOrigins - 1 : origins.size();
  std::string words;
  for (std::size_t i = 0; i < named; ++i)
    words += fmt::format("{}{} {}", i == 0 ? "" : ", ", origins[i].elements,
                         origins[i].group == target
                             ? "moved within it"
                             : "from " + displayName(origins[i].group->getName()));
  if (named < origins.size())
    words += fmt::format(", {} from {}", countElements(std::span(origins).subspan(named)),
                         pluralize(origins.size() - named, "more group"));
  return words.empty() ? words : " (" + words + ')';
}

}
