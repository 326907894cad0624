// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Verbs/AllVerbs.h"
#include "PointCollections/Console/Verbs/Steps.h"

namespace Tarvik::PointCollections {
namespace {

std::string undo(Session& session, const Arguments& arguments)
{
  auto& history = session.history;
  const std::size_t position = history.position();
  const std::size_t steps = stepsAsked(arguments, position, "undo");

  std::string report;
  for (std::size_t entry = position; entry > position - steps; --entry)
    reportStep(report, "Undone", *history.entries()[entry - 1]);
  history.jumpTo(position - steps);
  return report;
}

}

Verb undoVerb()
{
  return {.name = "undo",
          .usage = "undo [N]",
          .summary = "take the last change back, or the last N",
          .details = "N is from 1 to the number of changes in effect. Nothing is undone when "
                     "there are fewer. The last 1000 changes are kept.",
          .example = "undo 2",
          .parameters = {{"N", ArgumentKind::Number, Occurrence::Optionally}},
          .options = {},
          .run = undo};
}

}
