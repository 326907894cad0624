// SPDX-License-Identifier: MIT
#include "PointCollections/Terminal/Terminal.h"

#include <windows.h>

#include <io.h>
#include <stdio.h>

namespace Tarvik::PointCollections {

bool isInputTerminal()
{
  return _isatty(_fileno(stdin)) != 0;
}

bool isOutputTerminal()
{
  return _isatty(_fileno(stdout)) != 0;
}

bool isErrorTerminal()
{
  return _isatty(_fileno(stderr)) != 0;
}

void prepareTerminal()
{
  SetConsoleCP(CP_UTF8);
  SetConsoleOutputCP(CP_UTF8);
}

}
