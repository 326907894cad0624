// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Verbs/EachVerb.h"
#include "PointCollections/Console/Verbs/Steps.h"
#include "PointCollections/Text/Translated.h"

namespace Tarvik::PointCollections {
namespace {

std::string undo(Session& session, const Arguments& arguments)
{
  auto& history = session.editor.history();
  const std::size_t position = history.position();
  const std::size_t steps = stepsAsked(arguments, position, StepDirection::Undo);

  std::vector<std::string> undone;
  for (std::size_t entry = position; entry > position - steps; --entry)
    undone.push_back(history.entries()[entry - 1]->getDescription());
  auto answer = reportSteps(StepDirection::Undo, undone); // before the change: it takes memory
  history.jumpTo(position - steps);
  return answer;
}

std::string detailsOfUndo()
{
  return translatedCount(
      Editor::historyLimit,
      "N is at most the number of steps that can be undone; with a greater N nothing is undone. "
      "The last {} step is kept, unless it takes too much memory: see help history.",
      "N is at most the number of steps that can be undone; with a greater N nothing is undone. "
      "The last {} steps are kept, unless they take too much memory: see help history.");
}

}

Verb undoVerb()
{
  return {.name = "undo",
          .usage = "undo [N]",
          .summary = translatable("take back the last step, or the last N steps"),
          .details = detailsOfUndo,
          .example = "undo 2",
          .parameters = {{"N", ArgumentKind::Number, Occurrence::Optionally}},
          .options = {},
          .run = undo};
}

}
