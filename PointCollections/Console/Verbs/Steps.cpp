// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Verbs/Steps.h"

#include "PointCollections/Selection/Lookup.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/UserError.h"

#include <fmt/format.h>

namespace Tarvik::PointCollections {
namespace {

/// Descriptions have blanks and quotes of their own.
std::string quoted(const std::string& step)
{
  return "“" + printable(step) + "”";
}

}

std::size_t stepsAsked(const Arguments& arguments, std::size_t available, const std::string& verb)
{
  const std::size_t steps =
      arguments.count() > 0
          ? positiveNumber(
                arguments.at(0),
                translatable("the number of steps is {}; expected a whole number from 1 up"))
          : 1;
  if (available == 0)
    throw UserError(fmt::format("there is nothing to {}", verb));
  if (steps > available)
    throw UserError(fmt::format("{} is more than there is to {}; expected a number from 1 to {}",
                                displayName(arguments.at(0).text), verb, available));
  return steps;
}

std::string reportSteps(const std::string& done, const std::vector<std::string>& steps)
{
  constexpr std::size_t mostLines = 5;
  if (steps.size() > mostLines)
    return fmt::format("{} {} steps, from {} to {}.", done, steps.size(), quoted(steps.front()),
                       quoted(steps.back()));
  std::string report;
  for (const auto& step : steps)
    report += fmt::format("{}{}: {}", report.empty() ? "" : "\n", done, printable(step));
  return report;
}

}
