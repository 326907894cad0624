// SPDX-License-Identifier: MIT
#include "HighLevelServices/GroupCommands/SortTKGroupsAlphabeticallyCmd.h"
#include "PointCollections/Console/Verbs/AllVerbs.h"
#include "PointCollections/Text/Quoting.h"

#include <fmt/format.h>

namespace Tarvik::PointCollections {
namespace {

std::string sortGroups(Session& session, const Arguments&)
{
  const std::size_t groups = session.document->getGroups().size();
  if (groups == 0)
    return "Nothing to sort; there are no groups.";

  session.history.execute(
      std::make_shared<SortTKGroupsAlphabeticallyCmd<GUIdentifier>>(session.document));
  return fmt::format("Sorted {} and {} members.", counted(groups, "group"),
                     groups == 1 ? "its" : "their");
}

}

Verb sortVerb()
{
  return {.name = "sort",
          .usage = "sort",
          .summary = "sort the groups by name, and the members of each",
          .details = "The case of A to Z does not count, and 10 comes in front of 9. What is in no "
                     "group keeps its order.",
          .example = "sort",
          .parameters = {},
          .options = {},
          .run = sortGroups};
}

}
