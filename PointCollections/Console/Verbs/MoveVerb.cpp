// SPDX-License-Identifier: MIT
#include "HighLevelServices/GroupCommands/MoveTKGroupElementsCmd.h"
#include "PointCollections/Console/Verbs/EachVerb.h"
#include "PointCollections/Console/Verbs/Movement.h"
#include "PointCollections/Console/Verbs/PlaceOption.h"
#include "PointCollections/Console/Verbs/Subject.h"
#include "PointCollections/Document/MoveCollectionsCmd.h"
#include "PointCollections/Document/Placement.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/UserError.h"

#include <fmt/format.h>

#include <algorithm>

namespace Tarvik::PointCollections {
namespace {

constexpr auto nothingToMove = "Nothing to move; this is the order already.";

/// Whether the elements are already beside an ungrouped target, as the user sees it. Grouped
/// elements have a place in the document's order too, but the user does not see them among the
/// ungrouped ones.
bool areInPlace(PointDocument& document,
                const std::vector<GUIdentifier>& elements,
                const GUIdentifier& target,
                bool insertBefore)
{
  if (!std::all_of(elements.begin(), elements.end(),
                   [&](const auto& id) { return document.holderOf(id) == nullptr; }))
    return false;
  return !placementBeside(document.ungroupedElements(), target, elements, insertBefore).movesAny();
}

std::string moveElements(Session& session, const Arguments& arguments)
{
  auto& document = *session.editor.document();
  const auto option = placeOptionIn(arguments);
  const bool insertBefore = option == "--before";
  const auto side = option.substr(2);
  const auto target = session.selection().element(arguments.valueOf(option));
  const auto name = displayName(document.getElementName(target));
  const auto elements = session.selection().elements(arguments.from(0));
  if (elements == std::vector{target})
    throw UserError(
        fmt::format("{} cannot go beside itself; name another element after {}", name, option));
  const auto* group = document.holderOf(target);
  if (group == nullptr && areInPlace(document, elements, target, insertBefore))
    return nothingToMove;

  const auto place =
      group != nullptr ? " in " + displayName(group->getName()) : ", which is ungrouped";
  const auto movement = describeMovement(document, elements, group);
  auto subject = fmt::format("{} → {} {}", subjectOf(document, elements), side, name);
  const bool hasChanged = session.editor.execute(
      {.context = "MoveTKGroupElementsCmd",
       .text = "Move Elements",
       .makeCommand =
           [&](auto provider) {
             return std::make_shared<MoveTKGroupElementsCmd<GUIdentifier>>(provider, elements,
                                                                           target, insertBefore);
           },
       .subject = [&] { return subject; },
       .bytesOfDocument =
           group == nullptr ? MoveCollectionsCmd::bytesFor(elements.size()) : std::size_t(0)});
  if (!hasChanged)
    return nothingToMove;
  return fmt::format("Moved {} {} {}{}{}{}.", pluralize(elements.size(), "element"), side, name,
                     place, movement,
                     remarkOnOtherPlaces(document, elements, document.holderOf(target)));
}

}

Verb moveVerb()
{
  return {
      .name = "move",
      .usage = "move ELEMENT… --before TARGET | --after TARGET",
      .summary = "put elements before or after another one",
      .details =
          "They go next to TARGET in the order given, into the group that holds it. If "
          "TARGET is ungrouped, they leave their groups and become ungrouped too. "
          "One that is in several groups leaves only the first. "
          "TARGET may be one of them: the others gather around it. help select explains ELEMENT.",
      .example = "move Berlin \"Isle of Man\" --before Paris",
      .parameters = {{"ELEMENT", ArgumentKind::Element, Occurrence::OnceOrMore}},
      .options = {{"--before", ArgumentKind::Element, "TARGET", "place"},
                  {"--after", ArgumentKind::Element, "TARGET", "place"}},
      .run = moveElements};
}

}
