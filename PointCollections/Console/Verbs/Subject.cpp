// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Verbs/Subject.h"

#include "PointCollections/Text/Quoting.h"

#include <fmt/format.h>

namespace Tarvik::PointCollections {

std::string subjectOf(PointDocument& document, const std::vector<GUIdentifier>& elements)
{
  return elements.size() == 1 ? displayName(document.getElementName(elements.front()))
                              : pluralize(elements.size(), "element");
}

std::string subjectOf(const TKGroup<GUIdentifier>& group)
{
  return fmt::format("{} ({})", displayName(group.getName()), group.getGroupMembers().size());
}

std::string subjectOf(const std::vector<const TKGroup<GUIdentifier>*>& groups)
{
  constexpr std::size_t mostNames = 3;
  if (groups.size() > mostNames)
    return pluralize(groups.size(), "group");
  std::string names;
  for (const auto* group : groups)
    names += (names.empty() ? "" : ", ") + displayName(group->getName());
  return names;
}

}
