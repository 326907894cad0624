// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Terminal/Terminal.h"

#include <unistd.h>

#include <algorithm>
#include <csignal>

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

void prepareTerminal()
{
  std::signal(SIGPIPE, SIG_IGN); // or the program could not warn of unsaved changes
}

void ignoreInterrupts()
{
  std::signal(SIGINT, SIG_IGN);
}

std::vector<std::string> programArguments(int argc, char** argv)
{
  return {argv + std::min(argc, 1), argv + argc};
}

}
