// SPDX-License-Identifier: MIT
#include "HighLevelServices/GroupCommands/RemoveTKGroupsCmd.h"
#include "PointCollections/Console/Verbs/EachVerb.h"
#include "PointCollections/Console/Verbs/Subject.h"
#include "PointCollections/Selection/Lookup.h"
#include "PointCollections/Text/Quoting.h"

#include <fmt/format.h>

namespace Tarvik::PointCollections {
namespace {

using Groups = std::vector<const TKGroup<GUIdentifier>*>;

/// "Asia", "Asia and Africa", "Asia, Africa and Europe"; more than a few as "12 groups".
std::string enumerated(const Groups& groups)
{
  constexpr std::size_t mostNames = 6;
  if (groups.size() > mostNames)
    return pluralize(groups.size(), "group");
  std::string names;
  for (std::size_t i = 0; i < groups.size(); ++i) {
    const auto* separator = i == 0 ? "" : i + 1 == groups.size() ? " and " : ", ";
    names += separator + displayName(groups[i]->getName());
  }
  return names;
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
  if (freed == 0)
    return fmt::format("Deleted {}.", names);
  return fmt::format("Deleted {}; {} {} ungrouped now.", names, pluralize(freed, "element"),
                     freed == 1 ? "is" : "are");
}

}

Verb deleteVerb()
{
  return {.name = "delete",
          .usage = "delete GROUP…",
          .summary = "delete groups; their members become ungrouped",
          .details = "Each member goes back to its place in the document's order. undo brings the "
                     "groups back with their members.",
          .example = "delete Asia \"North America\"",
          .parameters = {{"GROUP", ArgumentKind::Group, Occurrence::OnceOrMore}},
          .options = {},
          .run = deleteGroups};
}

}
