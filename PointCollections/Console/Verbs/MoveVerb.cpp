// SPDX-License-Identifier: MIT
#include "HighLevelServices/GroupCommands/MoveTKGroupElementsCmd.h"
#include "PointCollections/Console/Session/Lookup.h"
#include "PointCollections/Console/Verbs/AllVerbs.h"
#include "PointCollections/Console/Verbs/Movement.h"
#include "PointCollections/Document/Placement.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/UserError.h"

#include <fmt/format.h>

#include <algorithm>

namespace Tarvik::PointCollections {
namespace {

/// The one option that is given of the two that tell the place.
std::string optionGiven(const Arguments& arguments)
{
  const bool hasBefore = arguments.has("--before");
  const bool hasBehind = arguments.has("--behind");
  if (hasBefore && hasBehind)
    throw UserError("more than one place is given; choose one of --before and --behind");
  if (!hasBefore && !hasBehind)
    throw UserError("the place is missing; add --before TARGET or --behind TARGET");
  return hasBefore ? "--before" : "--behind";
}

/// Whether the elements stand beside the target already, as the user sees it: grouped elements,
/// which also have a place in the document's order, do not stand between those that are in no
/// group.
bool areInPlace(PointDocument& document,
                const std::vector<GUIdentifier>& elements,
                const GUIdentifier& target,
                bool insertBefore)
{
  const auto* group = document.holderOf(target);
  const auto order = group != nullptr ? group->getGroupMembers() : document.getUngroupedElements();
  return std::all_of(elements.begin(), elements.end(),
                     [&](const auto& id) { return document.holderOf(id) == group; }) &&
         placedBeside(order, target, elements, insertBefore) == order;
}

std::string moveElements(Session& session, const Arguments& arguments)
{
  auto& document = *session.document;
  const auto option = optionGiven(arguments);
  const bool insertBefore = option == "--before";
  const auto target = elementNamed(document, arguments.valueOf(option));
  const auto name = mentioned(arguments.valueOf(option).text);
  const auto elements = elementsNamed(document, arguments.from(0));
  if (elements == std::vector{target})
    throw UserError(
        fmt::format("{} cannot go beside itself; name another element behind {}", name, option));
  if (areInPlace(document, elements, target, insertBefore))
    return "Nothing to move; this is the order already.";

  const auto* group = document.holderOf(target);
  const auto place =
      group != nullptr ? " in " + mentioned(group->getName()) : ", which is in no group";
  const auto movement = movementInWords(document, elements, group);
  session.history.execute(std::make_shared<MoveTKGroupElementsCmd<GUIdentifier>>(
      session.document, elements, target, insertBefore));
  return fmt::format("Moved {} {} {}{}{}.", counted(elements.size(), "element"),
                     insertBefore ? "in front of" : "behind", name, place, movement);
}

}

Verb moveVerb()
{
  return {.name = "move",
          .usage = "move ELEMENT… --before TARGET | --behind TARGET",
          .summary = "put elements beside another one, wherever that is",
          .details = "They stand there in the order given, in the group that holds TARGET. When no "
                     "group does, they\nleave their groups and stand beside it among what is in "
                     "no group. TARGET may be one of them:\nthe others gather around it.",
          .example = "move Berlin \"Isle of Man\" --before Paris",
          .parameters = {{"ELEMENT", ArgumentKind::Element, Occurrence::OnceOrMore}},
          .options = {{"--before", ArgumentKind::Element, "TARGET"},
                      {"--behind", ArgumentKind::Element, "TARGET"}},
          .run = moveElements};
}

}
