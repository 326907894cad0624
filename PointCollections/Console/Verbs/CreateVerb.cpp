// SPDX-License-Identifier: MIT
#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"
#include "PointCollections/Console/Verbs/AlikeGroups.h"
#include "PointCollections/Console/Verbs/EachVerb.h"
#include "PointCollections/Console/Verbs/Movement.h"
#include "PointCollections/Console/Verbs/Subject.h"
#include "PointCollections/Text/Quoting.h"

#include <fmt/format.h>

namespace Tarvik::PointCollections {
namespace {

std::string create(Session& session, const Arguments& arguments)
{
  auto& document = *session.editor.document();
  const std::string& wanted = arguments.at(0).text;
  const auto elements = session.selection().elements(arguments.from(1));
  const auto movement = describeMovement(document, elements, nullptr);

  session.editor.execute({.context = "CreateTKGroupCmd",
                          .text = "Create Group",
                          .makeCommand =
                              [&](auto provider) {
                                return std::make_shared<CreateTKGroupCmd<GUIdentifier>>(
                                    provider, elements, wanted);
                              },
                          .subject = [&] { return subjectOf(document.getGroups().back()); }});

  const std::string& given = document.getGroups().back().getName();
  const auto otherPlaces = remarkOnOtherPlaces(document, elements, &document.getGroups().back());
  const bool isOther = given != wanted && !wanted.empty();
  return fmt::format("Created {} with {}{}{}{}{}.", displayName(given),
                     pluralize(elements.size(), "element"), movement, otherPlaces,
                     isOther ? "; the name " + displayName(wanted) + " was taken" : std::string(),
                     remarkOnAlikeGroup(document, given));
}

}

Verb createVerb()
{
  return {.name = "create",
          .usage = "create NAME [ELEMENT…]",
          .summary = "make a group and move elements into it",
          .details = "The group goes to the end of the list. Elements leave the group that held "
                     "them; one that is in several groups leaves only the first. If the name is "
                     "taken, a number is added to it; an empty name (\"\") "
                     "means Group.",
          .example = "create Europe Paris \"Isle of Man\"",
          .parameters = {{"NAME", ArgumentKind::Text},
                         {"ELEMENT", ArgumentKind::Element, Occurrence::AnyNumber}},
          .options = {},
          .run = create};
}

}
