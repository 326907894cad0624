// SPDX-License-Identifier: MIT
#include "PointCollections/Verbs/AllVerbs.h"

namespace Tarvik::PointCollections {
namespace {

std::string quit(Session& session, const Arguments&)
{
  session.isOver = true;
  return {};
}

}

Verb quitVerb()
{
  return {.name = "quit",
          .usage = "quit",
          .summary = "leave the program",
          .details = "In a script, the lines behind it are not read. Ctrl-D does the same on a "
                     "terminal.",
          .example = "quit",
          .parameters = {},
          .options = {},
          .run = quit};
}

}
