// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Verbs/AlikeGroups.h"

#include "PointCollections/Text/Spelling.h"
#include "PointCollections/Text/Translated.h"

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
  // For translators: at the end of "Created {} with {}{}{}." or "Renamed {} to {}{}.".
  return translated("; the group {} looks the same, but is written differently",
                    spelledApart(found->getName(), name));
}

}
