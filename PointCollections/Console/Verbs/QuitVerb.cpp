// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Verbs/EachVerb.h"
#include "PointCollections/Text/Translated.h"

namespace Tarvik::PointCollections {
namespace {

/// A script may discard its changes: perhaps only its output is wanted.
std::string quit(Session& session, const Arguments&)
{
  session.isOver =
      !session.confirmDiscarding || session.confirmDiscarding(session) == Confirmation::Given;
  return {};
}

}

Verb quitVerb()
{
  return {.name = "quit",
          .usage = "quit",
          .summary = translatable("leave the program"),
          .details =
              [] {
                return translated(
                    "If there are unsaved changes, you are asked what to do with them. In a "
                    "script, the lines after quit are not read. On a terminal, Ctrl-D does the "
                    "same; exit and q are other names.");
              },
          .example = "quit",
          .parameters = {},
          .options = {},
          .run = quit,
          .otherNames = {"exit", "q"}};
}

}
