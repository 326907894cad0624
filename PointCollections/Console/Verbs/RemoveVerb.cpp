// SPDX-License-Identifier: MIT
#include "HighLevelServices/GroupCommands/RemoveFromTKGroupCmd.h"
#include "PointCollections/Console/Session/Lookup.h"
#include "PointCollections/Console/Verbs/AllVerbs.h"
#include "PointCollections/Console/Verbs/Movement.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/UserError.h"

#include <fmt/format.h>

namespace Tarvik::PointCollections {
namespace {

void checkAllInGroups(PointDocument& document, const std::vector<GUIdentifier>& elements)
{
  for (const GUIdentifier& element : elements) {
    if (document.holderOf(element) == nullptr)
      throw UserError(fmt::format("{} is in no group; name members of groups only",
                                  mentioned(document.getElementName(element))));
  }
}

std::string sourceInWords(PointDocument& document, const std::vector<GUIdentifier>& elements)
{
  const auto origins = originsOf(document, elements);
  return origins.size() == 1 ? " from " + mentioned(origins.front().group->getName())
                             : movementInWords(document, elements, nullptr);
}

std::string removeElements(Session& session, const Arguments& arguments)
{
  auto& document = *session.document;
  const auto elements = elementsNamed(document, arguments.from(0));
  checkAllInGroups(document, elements);

  const auto source = sourceInWords(document, elements);
  session.history.execute(
      std::make_shared<RemoveFromTKGroupCmd<GUIdentifier>>(session.document, elements));
  return fmt::format("Removed {}{}.", counted(elements.size(), "element"), source);
}

}

Verb removeVerb()
{
  return {.name = "remove",
          .usage = "remove ELEMENT…",
          .summary = "take elements out of their groups",
          .details = "They are in no group then, each at its place in the order of the document. "
                     "Groups stay, also\nwhen they are empty.",
          .example = "remove Paris \"Isle of Man\"",
          .parameters = {{"ELEMENT", ArgumentKind::Member, Occurrence::OnceOrMore}},
          .options = {},
          .run = removeElements};
}

}
