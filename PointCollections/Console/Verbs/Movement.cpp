// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Verbs/Movement.h"

#include "PointCollections/Document/Memberships.h"
#include "PointCollections/Text/Lists.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <set>
#include <span>

namespace Tarvik::PointCollections {
namespace {

/// Where an element is besides its place in the target: "; A is still in H".
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
  if (others.empty()) {
    // For translators: at the end of a sentence such as "Added {} to {}{}{}.".
    return translated("; {} is in {} more than once", name, displayName(target->getName()));
  }
  if (others.size() == 1) {
    // For translators: at the end of a sentence such as "Added {} to {}{}{}.".
    return translated("; {} is still in {}", name, displayName((*others.begin())->getName()));
  }
  if (target != nullptr) {
    // For translators: at the end of "Added {} to {}{}{}.": Berlin is still in 2 other groups.
    return translatedCount(others.size(), "; {1} is still in {0} other group",
                           "; {1} is still in {0} other groups", name);
  }
  // For translators: at the end of "Removed {}{}{}.": Berlin is still in 2 groups.
  return translatedCount(others.size(), "; {1} is still in {0} group",
                         "; {1} is still in {0} groups", name);
}

/// The same of several elements.
std::string otherPlacesOf(std::size_t elements, const TKGroup<GUIdentifier>* target)
{
  if (target != nullptr) {
    // For translators: at the end of a sentence such as "Added {} to {}{}{}.".
    return translatedCount(elements, "; {} element is still in other places",
                           "; {} elements are still in other places");
  }
  // For translators: at the end of a sentence such as "Removed {}{}{}.".
  return translatedCount(elements, "; {} element is still in groups",
                         "; {} elements are still in groups");
}

/// "2 from Europe"
std::string describeOrigin(const Origin& origin, const TKGroup<GUIdentifier>* target)
{
  if (origin.group == target) {
    // For translators: how many elements stay in their group, at another place. In " ({})".
    return translatedCount(origin.elements, "{} moved within it", "{} moved within it");
  }
  // For translators: how many elements come from a group: 2 from Europe. In " ({})".
  return translatedCount(origin.elements, "{} from {}", "{} from {}",
                         displayName(origin.group->getName()));
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
  std::vector<std::string> parts;
  for (const auto& origin : std::span(origins).first(named))
    parts.push_back(describeOrigin(origin, target));
  if (named < origins.size()) {
    const auto rest = countElements(std::span(origins).subspan(named));
    // For translators: {1} is how many elements come from groups that are not named. In " ({})".
    parts.push_back(translatedCount(origins.size() - named, "{1} from {0} more group",
                                    "{1} from {0} more groups", rest));
  }
  // For translators: {} is a list such as "2 from Europe, 1 moved within it". After "2 elements" or
  // the name of a group; the blank separates it.
  return parts.empty() ? std::string() : translated(" ({})", listed(parts));
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
  return count == 1 ? first : otherPlacesOf(count, target);
}

}
