// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Verbs/EachVerb.h"
#include "PointCollections/Console/Verbs/Steps.h"
#include "PointCollections/Text/Translated.h"

namespace Tarvik::PointCollections {
namespace {

std::string redo(Session& session, const Arguments& arguments)
{
  auto& history = session.editor.history();
  const std::size_t position = history.position();
  const std::size_t steps =
      stepsAsked(arguments, history.entries().size() - position, StepDirection::Redo);

  std::vector<std::string> redone;
  for (std::size_t entry = position; entry < position + steps; ++entry)
    redone.push_back(history.entries()[entry]->getDescription());
  auto answer = reportSteps(StepDirection::Redo, redone); // before the change: it takes memory
  history.jumpTo(position + steps);
  return answer;
}

}

Verb redoVerb()
{
  return {.name = "redo",
          .usage = "redo [N]",
          .summary = translatable("repeat the last step that was undone, or the last N steps"),
          .details =
              [] {
                return translated(
                    "N is at most the number of steps that are undone; with a greater N nothing "
                    "is redone. After a new change there is nothing to redo.");
              },
          .example = "redo",
          .parameters = {{"N", ArgumentKind::Number, Occurrence::Optionally}},
          .options = {},
          .run = redo};
}

}
