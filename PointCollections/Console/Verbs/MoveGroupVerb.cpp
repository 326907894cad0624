// SPDX-License-Identifier: MIT
#include "GroupHosting/Commands/MoveTKGroupsCmd.h"
#include "PointCollections/Console/Verbs/EachVerb.h"
#include "PointCollections/Console/Verbs/PlaceOption.h"
#include "PointCollections/Console/Verbs/Subject.h"
#include "PointCollections/Selection/Lookup.h"
#include "PointCollections/Text/Counts.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/UserError.h"

namespace Tarvik::PointCollections {
namespace {

std::string moveGroups(Session& session, const Arguments& arguments)
{
  auto& document = *session.editor.document();
  const auto option = placeOptionIn(arguments);
  const bool insertBefore = option == "--before";
  const auto& target = groupNamed(document, arguments.valueOf(option));
  const auto targetId = target.getId(); // a copy: the command replaces the list of groups
  const auto name = displayName(target.getName());
  const auto groups = groupsNamed(document, arguments.from(0));
  const auto ids = idsOf(groups);
  if (ids == std::vector{targetId}) {
    throw UserError(
        // For translators: {1} is "--before" or "--after".
        translated("{} cannot go beside itself; name another group after {}", name, option));
  }

  auto subject = subjectGoingBeside(subjectOf(groups), insertBefore, name);
  const bool hasChanged =
      session.editor.execute({.context = "MoveTKGroupsCmd",
                              .text = "Move Groups",
                              .makeCommand =
                                  [&](auto provider) {
                                    return std::make_shared<MoveTKGroupsCmd<GUIdentifier>>(
                                        provider, ids, targetId, insertBefore);
                                  },
                              .subject = [&] { return subject; }});
  if (!hasChanged)
    return translated("Nothing to move; this is the order already.");
  const auto count = countOfGroups(ids.size());
  if (insertBefore) {
    // For translators: Moved 2 groups before Europe.
    return translated("Moved {} before {}.", count, name);
  }
  // For translators: Moved 2 groups after Europe.
  return translated("Moved {} after {}.", count, name);
}

}

Verb moveGroupVerb()
{
  return {.name = "move-group",
          .usage = "move-group GROUP… --before TARGET | --after TARGET",
          .summary = translatable("put groups before or after another one"),
          .details =
              [] {
                return translated(
                    "They go next to TARGET in the order given, and keep their members. TARGET may "
                    "be one of them: the others gather around it.");
              },
          .example = "move-group Asia \"North America\" --before Europe",
          .parameters = {{"GROUP", ArgumentKind::Group, Occurrence::OnceOrMore}},
          .options = {{"--before", ArgumentKind::Group, "TARGET", "place"},
                      {"--after", ArgumentKind::Group, "TARGET", "place"}},
          .run = moveGroups};
}

}
