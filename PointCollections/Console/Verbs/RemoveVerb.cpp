// SPDX-License-Identifier: MIT
#include "HighLevelServices/GroupCommands/RemoveFromTKGroupCmd.h"
#include "PointCollections/Console/Verbs/EachVerb.h"
#include "PointCollections/Console/Verbs/Movement.h"
#include "PointCollections/Console/Verbs/Subject.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/UserError.h"

#include <fmt/format.h>

namespace Tarvik::PointCollections {
namespace {

void checkAllInGroups(PointDocument& document, const std::vector<GUIdentifier>& elements)
{
  for (const GUIdentifier& element : elements) {
    if (document.holderOf(element) == nullptr)
      throw UserError(fmt::format("{} is ungrouped; name members of groups only",
                                  displayName(document.getElementName(element))));
  }
}

std::string describeSource(PointDocument& document, const std::vector<GUIdentifier>& elements)
{
  const auto origins = originsOf(document, elements);
  return origins.size() == 1 ? " from " + displayName(origins.front().group->getName())
                             : describeMovement(document, elements, nullptr);
}

std::string removeElements(Session& session, const Arguments& arguments)
{
  auto& document = *session.editor.document();
  const auto elements = session.selection().elements(arguments.from(0));
  checkAllInGroups(document, elements);

  const auto source = describeSource(document, elements);
  session.editor.execute({.context = "RemoveFromTKGroupCmd",
                          .text = "Remove Point Collection(s) From Group",
                          .makeCommand =
                              [&](auto provider) {
                                return std::make_shared<RemoveFromTKGroupCmd<GUIdentifier>>(
                                    provider, elements);
                              },
                          .subject = [&] { return subjectOf(document, elements); }});
  return fmt::format("Removed {}{}{}.", pluralize(elements.size(), "element"), source,
                     remarkOnOtherPlaces(document, elements, nullptr));
}

}

Verb removeVerb()
{
  return {.name = "remove",
          .usage = "remove ELEMENT…",
          .summary = "take elements out of their groups",
          .details = "They become ungrouped, each at its place in the document's order. One that "
                     "is in several groups leaves only the first, whichever was named. Groups "
                     "stay, even empty ones. help select explains ELEMENT.",
          .example = "remove Paris \"Isle of Man\"",
          .parameters = {{"ELEMENT", ArgumentKind::Member, Occurrence::OnceOrMore}},
          .options = {},
          .run = removeElements};
}

}
