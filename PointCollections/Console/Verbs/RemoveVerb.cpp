// SPDX-License-Identifier: MIT
#include "HighLevelServices/GroupCommands/RemoveFromTKGroupCmd.h"
#include "PointCollections/Console/Verbs/EachVerb.h"
#include "PointCollections/Console/Verbs/Movement.h"
#include "PointCollections/Console/Verbs/Subject.h"
#include "PointCollections/Text/Counts.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/UserError.h"

namespace Tarvik::PointCollections {
namespace {

void checkAllInGroups(PointDocument& document, const std::vector<GUIdentifier>& elements)
{
  for (const GUIdentifier& element : elements) {
    if (document.holderOf(element) == nullptr)
      throw UserError(translated("{} is ungrouped; name members of groups only",
                                 displayName(document.getElementName(element))));
  }
}

std::string removeElements(Session& session, const Arguments& arguments)
{
  auto& document = *session.editor.document();
  const auto elements = session.selection().elements(arguments.from(0));
  checkAllInGroups(document, elements);

  const auto origins = originsOf(document, elements);
  const auto onlyOrigin = origins.size() == 1 ? displayName(origins.front().group->getName()) : "";
  const auto movement = describeMovement(document, elements, nullptr);
  session.editor.execute({.context = "RemoveFromTKGroupCmd",
                          .text = "Remove Point Collection(s) From Group",
                          .makeCommand =
                              [&](auto provider) {
                                return std::make_shared<RemoveFromTKGroupCmd<GUIdentifier>>(
                                    provider, elements);
                              },
                          .subject = [&] { return subjectOf(document, elements); }});
  const auto count = countOfElements(elements.size());
  const auto remark = remarkOnOtherPlaces(document, elements, nullptr);
  if (origins.size() == 1) {
    // For translators: {0} is "2 elements"; {1} is a group; {2} is empty or "; Berlin is still in
    // Asia".
    return translated("Removed {} from {}{}.", count, onlyOrigin, remark);
  }
  // For translators: {0} is "2 elements"; {1} is " (1 from Europe, 1 from Asia)"; {2} is empty or
  // "; Berlin is still in Asia".
  return translated("Removed {}{}{}.", count, movement, remark);
}

}

Verb removeVerb()
{
  return {.name = "remove",
          .usage = "remove ELEMENT…",
          .summary = translatable("take elements out of their groups"),
          .details =
              [] {
                return translated(
                    "They become ungrouped, each at its place in the document's order. One that "
                    "is in several groups leaves only the first, whichever was named. Groups "
                    "stay, even empty ones. help select explains ELEMENT.");
              },
          .example = "remove Paris \"Isle of Man\"",
          .parameters = {{"ELEMENT", ArgumentKind::Member, Occurrence::OnceOrMore}},
          .options = {},
          .run = removeElements};
}

}
