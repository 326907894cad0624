// SPDX-License-Identifier: MIT
#include "PointCollections/Terminal/Terminal.h"

#include <unistd.h>

namespace Tarvik::PointCollections {

bool isInputTerminal()
{
  return isatty(STDIN_FILENO) != 0;
}

bool isOutputTerminal()
{
  return isatty(STDOUT_FILENO) != 0;
}

bool isErrorTerminal()
{
  return isatty(STDERR_FILENO) != 0;
}

void prepareTerminal() {}

}
