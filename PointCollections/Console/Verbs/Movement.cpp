// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Verbs/Movement.h"

#include "PointCollections/Document/Memberships.h"
#include "PointCollections/Text/Quoting.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <numeric>
#include <set>
#include <span>

namespace Tarvik::PointCollections {
namespace {

/// Where an element is besides its place in the target: "A is still in H".
std::string otherPlacesOf(PointDocument& document,
                          const PointCollection& collection,
                          std::span<const Membership> memberships,
                          const TKGroup<GUIdentifier>* target)
{
  const auto& groups = document.getGroups();
  std::set<const TKGroup<GUIdentifier>*> others;
  for (const auto& membership : memberships)
    others.insert(&groups[membership.group]);
  others.erase(target);
  const auto name = displayName(collection.name);
  if (others.empty())
    return fmt::format("{} is in {} more than once", name, displayName(target->getName()));
  return fmt::format("{} is still in {}", name,
                     others.size() == 1
                         ? displayName((*others.begin())->getName())
                         : pluralize(others.size(), target != nullptr ? "other group" : "group"));
}

}

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

std::string remarkOnOtherPlaces(PointDocument& document,
                                const std::vector<GUIdentifier>& elements,
                                const TKGroup<GUIdentifier>* target)
{
  const bool mayBeElsewhere =
      target != nullptr ? mayHaveRepeatedMembers(document)
                        : std::any_of(elements.begin(), elements.end(), [&](const auto& element) {
                            return document.isGrouped(element);
                          });
  if (!mayBeElsewhere)
    return {};

  const Memberships all(document);
  const std::size_t expected = target != nullptr ? 1 : 0;
  std::string first;
  std::size_t count = 0;
  for (const auto& element : elements) {
    const auto* collection = document.find(element);
    if (collection == nullptr || all.of(*collection).size() <= expected)
      continue;
    if (count++ == 0)
      first = otherPlacesOf(document, *collection, all.of(*collection), target);
  }
  if (count == 0)
    return {};
  return "; " + (count == 1 ? first
                            : fmt::format("{} are still in {}", pluralize(count, "element"),
                                          target != nullptr ? "other places" : "groups"));
}

}
