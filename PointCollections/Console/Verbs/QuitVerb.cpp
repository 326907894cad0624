// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Session/DocumentFile.h"
#include "PointCollections/Console/Verbs/AllVerbs.h"

namespace Tarvik::PointCollections {
namespace {

/// A script that does not save may want nothing but its output.
std::string quit(Session& session, const Arguments&)
{
  session.isOver = !session.ask || askForFarewell(session) == Farewell::Granted;
  return {};
}

}

Verb quitVerb()
{
  return {.name = "quit",
          .usage = "quit",
          .summary = "leave the program",
          .details = "You are asked what is to become of changes that are not saved. In a script, "
                     "the lines behind it\nare not read. Ctrl-D does the same on a terminal.",
          .example = "quit",
          .parameters = {},
          .options = {},
          .run = quit};
}

}
