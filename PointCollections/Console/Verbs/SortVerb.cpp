// SPDX-License-Identifier: MIT
#include "HighLevelServices/GroupCommands/SortTKGroupsAlphabeticallyCmd.h"
#include "PointCollections/Console/Verbs/EachVerb.h"
#include "PointCollections/Text/Translated.h"

namespace Tarvik::PointCollections {
namespace {

std::string sortGroups(Session& session, const Arguments&)
{
  const std::size_t groups = session.editor.document()->getGroups().size();
  if (groups == 0)
    return translated("Nothing to sort; there are no groups.");

  const bool hasChanged = session.editor.execute(
      {.context = "SortTKGroupsAlphabeticallyCmd",
       .text = "Sort Groups",
       .makeCommand = [](auto provider) {
         return std::make_shared<SortTKGroupsAlphabeticallyCmd<GUIdentifier>>(provider);
       }});
  if (!hasChanged)
    return translated("Nothing to sort; this is the order already.");
  return translatedCount(groups, "Sorted {} group and its members.",
                         "Sorted {} groups and their members.");
}

}

Verb sortVerb()
{
  return {.name = "sort",
          .usage = "sort",
          .summary = translatable("sort the groups by name, and the members of each"),
          .details =
              [] {
                return translated(
                    "The case of A to Z is ignored, and 10 comes before 9. The ungrouped elements "
                    "keep their order.");
              },
          .example = "sort",
          .parameters = {},
          .options = {},
          .run = sortGroups};
}

}
