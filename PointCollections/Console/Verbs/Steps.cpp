// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Verbs/Steps.h"

#include "PointCollections/Console/Session/Lookup.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/UserError.h"

#include <fmt/format.h>

namespace Tarvik::PointCollections {

std::size_t stepsAsked(const Arguments& arguments, std::size_t available, const std::string& verb)
{
  const std::size_t steps =
      arguments.count() > 0 ? positiveNumber(arguments.at(0), "the number of steps") : 1;
  if (available == 0)
    throw UserError(fmt::format("there is nothing to {}", verb));
  if (steps > available)
    throw UserError(fmt::format("{} is more than there is to {}; expected a number from 1 to {}",
                                displayName(arguments.at(0).text), verb, available));
  return steps;
}

void reportStep(std::string& report, const std::string& done, const CommandBase& command)
{
  report += fmt::format("{}{}: {}", report.empty() ? "" : "\n", done,
                        printable(command.getDescription()));
}

}
