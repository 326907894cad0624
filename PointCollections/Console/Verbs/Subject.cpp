// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Verbs/Subject.h"

#include "PointCollections/Text/Counts.h"
#include "PointCollections/Text/Lists.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"

#include <fmt/format.h>

namespace Tarvik::PointCollections {

std::string subjectOf(PointDocument& document, const std::vector<GUIdentifier>& elements)
{
  return elements.size() == 1 ? displayName(document.getElementName(elements.front()))
                              : countOfElements(elements.size());
}

std::string subjectOf(const TKGroup<GUIdentifier>& group)
{
  return fmt::format("{} ({})", displayName(group.getName()), group.getGroupMembers().size());
}

std::string subjectOf(const std::vector<const TKGroup<GUIdentifier>*>& groups)
{
  constexpr std::size_t mostNames = 3;
  if (groups.size() > mostNames)
    return countOfGroups(groups.size());
  std::vector<std::string> names;
  names.reserve(groups.size());
  for (const auto* group : groups)
    names.push_back(displayName(group->getName()));
  return listed(names);
}

std::string subjectGoingInto(const std::string& subject, const std::string& target)
{
  // For translators: Berlin → Europe. In the description of a step: an element goes into a group,
  // or a group gets a new name. In a language that is written from right to left, turn the arrow.
  return translated("{} → {}", subject, target);
}

std::string subjectGoingBeside(const std::string& subject, bool isBefore, const std::string& target)
{
  if (isBefore) {
    // For translators: Berlin → before Paris. In the description of a step.
    return translated("{} → before {}", subject, target);
  }
  // For translators: Berlin → after Paris. In the description of a step.
  return translated("{} → after {}", subject, target);
}

}
