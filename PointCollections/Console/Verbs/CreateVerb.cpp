// SPDX-License-Identifier: MIT
#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"
#include "PointCollections/Console/Verbs/AlikeGroups.h"
#include "PointCollections/Console/Verbs/EachVerb.h"
#include "PointCollections/Console/Verbs/Movement.h"
#include "PointCollections/Console/Verbs/Subject.h"
#include "PointCollections/Text/Counts.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"

namespace Tarvik::PointCollections {
namespace {

/// What is to be said besides, each remark after a semicolon.
std::string remarksOn(PointDocument& document,
                      const std::vector<GUIdentifier>& elements,
                      const std::string& wanted)
{
  const auto& group = document.getGroups().back();
  auto remarks = remarkOnOtherPlaces(document, elements, &group);
  if (group.getName() != wanted && !wanted.empty()) {
    // For translators: at the end of "Created {} with {}{}{}.".
    remarks += translated("; the name {} was taken", displayName(wanted));
  }
  return remarks + remarkOnAlikeGroup(document, group.getName());
}

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

  const auto name = displayName(document.getGroups().back().getName());
  const auto remarks = remarksOn(document, elements, wanted);
  // For translators: {1} is "2 elements"; {2} is empty or " (1 from Asia)"; {3} is empty or
  // "; Berlin is still in Asia", "; the name {} was taken" or the like.
  return translated("Created {} with {}{}{}.", name, countOfElements(elements.size()), movement,
                    remarks);
}

}

Verb createVerb()
{
  return {.name = "create",
          .usage = "create NAME [ELEMENT…]",
          .summary = translatable("make a group and move elements into it"),
          .details =
              [] {
                return translated(
                    "The group goes to the end of the list. Elements leave the group that held "
                    "them; one that is in several groups leaves only the first. If the name is "
                    "taken, a number is added to it; an empty name (\"\") "
                    "means Group.");
              },
          .example = "create Europe Paris \"Isle of Man\"",
          .parameters = {{"NAME", ArgumentKind::Text},
                         {"ELEMENT", ArgumentKind::Element, Occurrence::AnyNumber}},
          .options = {},
          .run = create};
}

}
