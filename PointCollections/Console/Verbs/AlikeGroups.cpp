// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Verbs/AlikeGroups.h"

#include "PointCollections/Text/Spelling.h"

#include <algorithm>

namespace Tarvik::PointCollections {

std::string remarkOnAlikeGroup(PointDocument& document, const std::string& name)
{
  const Lookalikes looksTheSame(name);
  const auto& groups = document.getGroups();
  const auto found = std::find_if(groups.begin(), groups.end(),
                                  [&](const auto& group) { return looksTheSame(group.getName()); });
  if (found == groups.end())
    return {};
  return "; the group " + spelledApart(found->getName(), name) +
         " looks the same, but is written differently";
}

}
