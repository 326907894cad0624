// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Verbs/Steps.h"

#include "PointCollections/Selection/Lookup.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/UserError.h"

namespace Tarvik::PointCollections {
namespace {

std::string nothingToDo(StepDirection direction)
{
  return direction == StepDirection::Undo ? translated("there is nothing to undo")
                                          : translated("there is nothing to redo");
}

std::string tooMany(StepDirection direction, const std::string& number, std::size_t available)
{
  if (direction == StepDirection::Undo) {
    // For translators: 9 is more than there is to undo; expected a number from 1 to 3.
    return translated("{} is more than there is to undo; expected a number from 1 to {}", number,
                      available);
  }
  // For translators: 9 is more than there is to redo; expected a number from 1 to 3.
  return translated("{} is more than there is to redo; expected a number from 1 to {}", number,
                    available);
}

std::string report(StepDirection direction, const std::string& step)
{
  if (direction == StepDirection::Undo) {
    // For translators: Undone: Create Group: Europe (10).
    return translated("Undone: {}", step);
  }
  // For translators: Redone: Create Group: Europe (10).
  return translated("Redone: {}", step);
}

/// Descriptions have blanks and quotes of their own.
std::string report(StepDirection direction,
                   std::size_t steps,
                   const std::string& first,
                   const std::string& last)
{
  if (direction == StepDirection::Undo) {
    // For translators: {1} and {2} are descriptions of steps, such as Create Group: Europe (10).
    return translatedCount(steps, "Undone {} step, from “{}” to “{}”.",
                           "Undone {} steps, from “{}” to “{}”.", first, last);
  }
  // For translators: {1} and {2} are descriptions of steps, such as Create Group: Europe (10).
  return translatedCount(steps, "Redone {} step, from “{}” to “{}”.",
                         "Redone {} steps, from “{}” to “{}”.", first, last);
}

}

std::size_t stepsAsked(const Arguments& arguments, std::size_t available, StepDirection direction)
{
  const std::size_t steps =
      arguments.count() > 0
          ? positiveNumber(
                arguments.at(0),
                translatable("the number of steps is {}; expected a whole number from 1 up"))
          : 1;
  if (available == 0)
    throw UserError(nothingToDo(direction));
  if (steps > available)
    throw UserError(tooMany(direction, displayName(arguments.at(0).text), available));
  return steps;
}

std::string reportSteps(StepDirection direction, const std::vector<std::string>& steps)
{
  constexpr std::size_t mostLines = 5;
  if (steps.size() > mostLines)
    return report(direction, steps.size(), printable(steps.front()), printable(steps.back()));
  std::string lines;
  for (const auto& step : steps)
    lines.append(lines.empty() ? "" : "\n").append(report(direction, printable(step)));
  return lines;
}

}
