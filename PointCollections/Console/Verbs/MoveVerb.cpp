// SPDX-License-Identifier: MIT
#include "HighLevelServices/GroupCommands/MoveTKGroupElementsCmd.h"
#include "PointCollections/Console/Verbs/EachVerb.h"
#include "PointCollections/Console/Verbs/Movement.h"
#include "PointCollections/Console/Verbs/PlaceOption.h"
#include "PointCollections/Console/Verbs/Subject.h"
#include "PointCollections/Document/MoveCollectionsCmd.h"
#include "PointCollections/Document/Placement.h"
#include "PointCollections/Text/Counts.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/UserError.h"

#include <algorithm>

namespace Tarvik::PointCollections {
namespace {

std::string nothingToMove()
{
  return translated("Nothing to move; this is the order already.");
}

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

/// What has been moved, with what is to be said besides.
struct Move {
  std::string count;    ///< "2 elements"
  std::string movement; ///< see describeMovement()
  std::string remark;   ///< see remarkOnOtherPlaces()
};

/// @param target  the name of an ungrouped element
std::string reportAmongUngrouped(const Move& move, bool isBefore, const std::string& target)
{
  const auto& [count, movement, remark] = move;
  if (isBefore) {
    // For translators: {0} is "2 elements"; {2} is empty or " (1 from Asia)"; {3} is empty or
    // "; Berlin is still in Asia".
    return translated("Moved {} before {}, which is ungrouped{}{}.", count, target, movement,
                      remark);
  }
  // For translators: {0} is "2 elements"; {2} is empty or " (1 from Asia)"; {3} is empty or
  // "; Berlin is still in Asia".
  return translated("Moved {} after {}, which is ungrouped{}{}.", count, target, movement, remark);
}

/// @param target  the name of a member of the group
std::string
reportInGroup(const Move& move, bool isBefore, const std::string& target, const std::string& group)
{
  const auto& [count, movement, remark] = move;
  if (isBefore) {
    // For translators: {0} is "2 elements"; {1} is a member of the group {2}; {3} is empty or
    // " (1 from Asia, 1 moved within it)"; {4} is empty or "; Berlin is still in Asia".
    return translated("Moved {} before {} in {}{}{}.", count, target, group, movement, remark);
  }
  // For translators: {0} is "2 elements"; {1} is a member of the group {2}; {3} is empty or
  // " (1 from Asia, 1 moved within it)"; {4} is empty or "; Berlin is still in Asia".
  return translated("Moved {} after {} in {}{}{}.", count, target, group, movement, remark);
}

std::string moveElements(Session& session, const Arguments& arguments)
{
  auto& document = *session.editor.document();
  const auto option = placeOptionIn(arguments);
  const bool insertBefore = option == "--before";
  const auto target = session.selection().element(arguments.valueOf(option));
  const auto name = displayName(document.getElementName(target));
  const auto elements = session.selection().elements(arguments.from(0));
  if (elements == std::vector{target}) {
    throw UserError(
        // For translators: {1} is "--before" or "--after".
        translated("{} cannot go beside itself; name another element after {}", name, option));
  }
  const auto* group = document.holderOf(target);
  if (group == nullptr && areInPlace(document, elements, target, insertBefore))
    return nothingToMove();

  const bool isGrouped = group != nullptr;
  const auto groupName = isGrouped ? displayName(group->getName()) : std::string();
  Move move = {countOfElements(elements.size()), describeMovement(document, elements, group), {}};
  auto subject = subjectGoingBeside(subjectOf(document, elements), insertBefore, name);
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
           isGrouped ? std::size_t(0) : MoveCollectionsCmd::bytesFor(elements.size())});
  if (!hasChanged)
    return nothingToMove();
  move.remark = remarkOnOtherPlaces(document, elements, document.holderOf(target));
  return isGrouped ? reportInGroup(move, insertBefore, name, groupName)
                   : reportAmongUngrouped(move, insertBefore, name);
}

}

Verb moveVerb()
{
  return {.name = "move",
          .usage = "move ELEMENT… --before TARGET | --after TARGET",
          .summary = translatable("put elements before or after another one"),
          .details =
              [] {
                return translated(
                    "They go next to TARGET in the order given, into the group that holds it. If "
                    "TARGET is ungrouped, they leave their groups and become ungrouped too. "
                    "One that is in several groups leaves only the first. "
                    "TARGET may be one of them: the others gather around it. help select explains "
                    "ELEMENT.");
              },
          .example = "move Berlin \"Isle of Man\" --before Paris",
          .parameters = {{"ELEMENT", ArgumentKind::Element, Occurrence::OnceOrMore}},
          .options = {{"--before", ArgumentKind::Element, "TARGET", "place"},
                      {"--after", ArgumentKind::Element, "TARGET", "place"}},
          .run = moveElements};
}

}
