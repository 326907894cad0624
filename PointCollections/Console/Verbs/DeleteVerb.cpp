// SPDX-License-Identifier: MIT
#include "HighLevelServices/GroupCommands/RemoveTKGroupsCmd.h"
#include "PointCollections/Console/Verbs/EachVerb.h"
#include "PointCollections/Console/Verbs/Subject.h"
#include "PointCollections/Selection/Lookup.h"
#include "PointCollections/Text/Counts.h"
#include "PointCollections/Text/Lists.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"

namespace Tarvik::PointCollections {
namespace {

using Groups = std::vector<const TKGroup<GUIdentifier>*>;

/// "Asia", "Asia and Africa", "Asia, Africa and Europe"; more than a few as "12 groups".
std::string enumerated(const Groups& groups)
{
  constexpr std::size_t mostNames = 6;
  if (groups.size() > mostNames)
    return countOfGroups(groups.size());
  std::vector<std::string> names;
  names.reserve(groups.size());
  for (const auto* group : groups)
    names.push_back(displayName(group->getName()));
  return listedWithAnd(names);
}

std::string deleteGroups(Session& session, const Arguments& arguments)
{
  auto& document = *session.editor.document();
  const auto groups = groupsNamed(document, arguments.from(0));
  const auto names = enumerated(groups);
  auto subject = groups.size() == 1 ? subjectOf(*groups.front()) : subjectOf(groups);
  const auto ids = idsOf(groups);
  const std::size_t ungroupedBefore = document.ungroupedElements().size();

  session.editor.execute({.context = "RemoveTKGroupsCmd",
                          .text = "Remove Group",
                          .makeCommand =
                              [&](auto provider) {
                                return std::make_shared<RemoveTKGroupsCmd<GUIdentifier>>(provider,
                                                                                         ids);
                              },
                          .subject = [&] { return subject; }});

  const std::size_t freed = document.ungroupedElements().size() - ungroupedBefore;
  if (freed == 0) {
    // For translators: {} is "Asia", "Asia, Africa and Europe" or "12 groups".
    return translated("Deleted {}.", names);
  }
  // For translators: {1} is the deleted groups: "Asia, Africa and Europe" or "12 groups".
  return translatedCount(freed, "Deleted {1}; {0} element is ungrouped now.",
                         "Deleted {1}; {0} elements are ungrouped now.", names);
}

}

Verb deleteVerb()
{
  return {.name = "delete",
          .usage = "delete GROUP…",
          .summary = translatable("delete groups; their members become ungrouped"),
          .details =
              [] {
                return translated(
                    "Each member goes back to its place in the document's order. undo brings the "
                    "groups back with their members.");
              },
          .example = "delete Asia \"North America\"",
          .parameters = {{"GROUP", ArgumentKind::Group, Occurrence::OnceOrMore}},
          .options = {},
          .run = deleteGroups};
}

}
