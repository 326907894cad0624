// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Session/DocumentFile.h"
#include "PointCollections/Console/Verbs/AllVerbs.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/UserError.h"
#include "PointCollections/Text/Utf8.h"

#include <fmt/format.h>

#include <utility>

namespace Tarvik::PointCollections {
namespace {

std::string open(Session& session, const Arguments& arguments)
{
  const auto file = Utf8::toPath(arguments.at(0).text);
  auto opened = readDocument(*session.files, file); // for a file that is no good nobody is asked
  const bool isToAsk = !arguments.has("--discard") && !session.history.isClean();
  const auto farewell = isToAsk ? askForFarewell(session) : Farewell::Granted;
  if (farewell == Farewell::Unanswered)
    throw UserError(fmt::format("{} has changes that are not saved; save them first, or add "
                                "--discard to lose them",
                                mentioned(session.title)));
  if (farewell == Farewell::Refused)
    return fmt::format("Nothing opened; {} stays.", mentioned(session.title));

  if (isToAsk)
    opened = readDocument(*session.files, file); // the changes may have been saved in it
  adopt(session, std::move(opened));
  return fmt::format("Opened {}.", documentInWords(session));
}

}

Verb openVerb()
{
  return {.name = "open",
          .usage = "open FILE [--discard]",
          .summary = "replace the document by another one",
          .details = "FILE is a project when its name ends in .tkpc, and a text with points "
                     "otherwise. The history starts\nanew. Changes that are not saved: you are "
                     "asked; a script stops, unless --discard is given.",
          .example = "open continents.tkpc",
          .parameters = {{"FILE", ArgumentKind::File}},
          .options = {{"--discard", std::nullopt}},
          .run = open};
}

}
