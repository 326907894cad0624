// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Terminal/Terminal.h"

#include "PointCollections/Console/Terminal/Utf16.h"
#include "PointCollections/Text/Interruption.h"

#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <memory>
#include <new>

namespace Tarvik::PointCollections {
namespace {

/// Not _isatty(), which takes a printer and NUL for terminals too.
bool isConsole(DWORD stream)
{
  DWORD mode = 0;
  return GetConsoleMode(GetStdHandle(stream), &mode) != 0;
}

void enableColors(DWORD stream)
{
  DWORD mode = 0;
  auto* const console = GetStdHandle(stream);
  if (GetConsoleMode(console, &mode) != 0)
    SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
}

/// The console outlives the program, so its settings are restored at the end.
void useUtf8()
{
  static const UINT inputBefore = GetConsoleCP();
  static const UINT outputBefore = GetConsoleOutputCP();
  SetConsoleCP(CP_UTF8);
  SetConsoleOutputCP(CP_UTF8);
  std::atexit([] {
    SetConsoleCP(inputBefore);
    SetConsoleOutputCP(outputBefore);
  });
}

}

bool isInputTerminal()
{
  return isConsole(STD_INPUT_HANDLE);
}

bool isOutputTerminal()
{
  return isConsole(STD_OUTPUT_HANDLE);
}

bool isErrorTerminal()
{
  return isConsole(STD_ERROR_HANDLE);
}

std::ostream& terminalOutput()
{
  if (isOutputTerminal())
    return std::cout;
  if (isErrorTerminal())
    return std::cerr;
  static std::ofstream console("CONOUT$",
                               std::ios::binary); // without a console, nothing is written
  return console;
}

/// A pipe can hardly fail for another reason.
bool isOutputAbandoned()
{
  return !std::cout && GetFileType(GetStdHandle(STD_OUTPUT_HANDLE)) == FILE_TYPE_PIPE;
}

void endAsAbandoned() {}

void prepareTerminal()
{
  for (std::FILE* const stream : {stdin, stdout, stderr})
    _setmode(_fileno(stream), _O_BINARY);
  if (isInputTerminal() || isOutputTerminal() || isErrorTerminal())
    useUtf8();
  enableColors(STD_OUTPUT_HANDLE);
  enableColors(STD_ERROR_HANDLE);
}

void catchInterrupts()
{
  const PHANDLER_ROUTINE stopWork = [](DWORD event) -> BOOL {
    if (event != CTRL_C_EVENT)
      return FALSE;
    Interruptible::request();
    return TRUE;
  };
  SetConsoleCtrlHandler(stopWork, TRUE);
}

void doWithoutSignals(const std::function<void()>& work)
{
  work();
}

std::optional<TerminalSize> terminalSize()
{
  CONSOLE_SCREEN_BUFFER_INFO info = {};
  if (GetConsoleScreenBufferInfo(GetStdHandle(STD_OUTPUT_HANDLE), &info) == 0)
    return std::nullopt;
  const auto& window = info.srWindow;
  return TerminalSize{static_cast<std::size_t>(window.Bottom - window.Top + 1),
                      static_cast<std::size_t>(window.Right - window.Left + 1)};
}

/// The console scrolls back by itself.
bool showInPager(const std::string&)
{
  return false;
}

/// Not those of main(): they lack the characters outside the system's old encoding, and MinGW
/// replaces stars in them with file names.
std::vector<std::string> programArguments(int, char**)
{
  int count = 0;
  const std::unique_ptr<wchar_t*, decltype(&LocalFree)> arguments(
      CommandLineToArgvW(GetCommandLineW(), &count), &LocalFree);
  if (!arguments)
    throw std::bad_alloc();
  std::vector<std::string> result;
  for (int i = 1; i < count; ++i)
    result.push_back(toUtf8(arguments.get()[i]));
  return result;
}

}
