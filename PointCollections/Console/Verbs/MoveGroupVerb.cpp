// SPDX-License-Identifier: MIT
#include "GroupHosting/Commands/MoveTKGroupsCmd.h"
#include "PointCollections/Console/Session/Lookup.h"
#include "PointCollections/Console/Verbs/EachVerb.h"
#include "PointCollections/Console/Verbs/PlaceOption.h"
#include "PointCollections/Document/Placement.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/UserError.h"

#include <fmt/format.h>

namespace Tarvik::PointCollections {
namespace {

bool areInPlace(PointDocument& document,
                const std::vector<Identifier>& ids,
                const Identifier& target,
                bool insertBefore)
{
  std::vector<Identifier> order;
  for (const auto& group : document.getGroups())
    order.push_back(group.getId());
  return placedBeside(order, target, ids, insertBefore) == order;
}

std::string moveGroups(Session& session, const Arguments& arguments)
{
  auto& document = *session.editor.document();
  const auto option = placeOptionIn(arguments);
  const bool insertBefore = option == "--before";
  const auto& target = groupNamed(document, arguments.valueOf(option));
  const auto targetId = target.getId(); // a copy: the command replaces the list of groups
  const auto name = displayName(target.getName());
  const auto ids = idsOf(groupsNamed(document, arguments.from(0)));
  if (ids == std::vector{targetId})
    throw UserError(
        fmt::format("{} cannot go beside itself; name another group after {}", name, option));
  if (areInPlace(document, ids, targetId, insertBefore))
    return "Nothing to move; this is the order already.";

  session.editor.history().execute(std::make_shared<MoveTKGroupsCmd<GUIdentifier>>(
      session.editor.document(), ids, targetId, insertBefore));
  return fmt::format("Moved {} {} {}.", pluralize(ids.size(), "group"),
                     insertBefore ? "before" : "after", name);
}

}

Verb moveGroupVerb()
{
  return {.name = "move-group",
          .usage = "move-group GROUP… --before TARGET | --after TARGET",
          .summary = "put groups before or after another one",
          .details =
              "They go next to TARGET in the order given, and keep their members. TARGET may "
              "be one of them: the\nothers gather around it.",
          .example = "move-group Asia \"North America\" --before Europe",
          .parameters = {{"GROUP", ArgumentKind::Group, Occurrence::OnceOrMore}},
          .options = {{"--before", ArgumentKind::Group, "TARGET"},
                      {"--after", ArgumentKind::Group, "TARGET"}},
          .run = moveGroups};
}

}
