// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Verbs/EachVerb.h"
#include "PointCollections/Project/ProjectFile.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/UserError.h"
#include "PointCollections/Text/Utf8.h"

#include <utility>

namespace Tarvik::PointCollections {
namespace {

Confirmation confirmationFor(Session& session)
{
  return session.confirmDiscarding ? session.confirmDiscarding(session) : Confirmation::Missing;
}

std::string open(Session& session, const Arguments& arguments)
{
  auto& editor = session.editor;
  const auto file = Utf8::toPath(arguments.at(0).text);
  auto opened = openDocument(editor.files(), file); // first, so that a bad file asks nothing
  const auto title = displayName(editor.title());
  if (editor.hasUnsavedChanges() && !arguments.has("--discard")) {
    const auto confirmation = confirmationFor(session);
    if (confirmation == Confirmation::Missing)
      throw UserError(translated("{} has unsaved changes; save them first, or add --discard to "
                                 "lose them",
                                 title));
    if (confirmation == Confirmation::Refused)
      return translated("Nothing opened; {} stays open.", title);
    if (isProjectName(file)) // the user may just have saved in it
      opened = openDocument(editor.files(), file);
  }
  const auto warnings = opened.warnings;
  editor.replaceDocument(std::move(opened));
  // For translators: {} is "continents.tkpc: 9 elements in 2 groups".
  auto answer = translated("Opened {}.", summaryOf(editor));
  for (const auto& warning : warnings) {
    // For translators: {} starts with a small letter and has no full stop.
    answer += '\n' + translated("Warning: {}.", warning);
  }
  return answer;
}

}

Verb openVerb()
{
  return {.name = "open",
          .usage = "open FILE [--discard]",
          .summary = translatable("replace the document with another one"),
          .details =
              [] {
                return translated(
                    "If the name of FILE ends in .tkpc, it is a project, otherwise a text file "
                    "with points. It has the columns collection, x, y and z in any order, and may "
                    "have group and place, with commas, semicolons or tabs between. Other columns "
                    "are not read. The history starts anew. If there are unsaved changes, you are "
                    "asked; a script stops unless --discard is given.");
              },
          .example = "open continents.tkpc",
          .parameters = {{"FILE", ArgumentKind::File}},
          .options = {{"--discard", std::nullopt}},
          .run = open};
}

}
