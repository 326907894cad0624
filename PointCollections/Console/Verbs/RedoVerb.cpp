// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Verbs/AllVerbs.h"
#include "PointCollections/Console/Verbs/Steps.h"

namespace Tarvik::PointCollections {
namespace {

std::string redo(Session& session, const Arguments& arguments)
{
  auto& history = session.history;
  const std::size_t position = history.position();
  const std::size_t steps = stepsAsked(arguments, history.entries().size() - position, "redo");

  std::string report;
  for (std::size_t entry = position; entry < position + steps; ++entry)
    reportStep(report, "Redone", *history.entries()[entry]);
  history.jumpTo(position + steps);
  return report;
}

}

Verb redoVerb()
{
  return {.name = "redo",
          .usage = "redo [N]",
          .summary = "make the last change again that was undone, or the last N",
          .details = "N is from 1 to the number of changes that are undone. Nothing is redone "
                     "when there are fewer.\nA new change leaves nothing to redo.",
          .example = "redo",
          .parameters = {{"N", ArgumentKind::Number, Occurrence::Optionally}},
          .options = {},
          .run = redo};
}

}
