// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

/// The terminal. Each operating system has its own source file.
namespace Tarvik::PointCollections {

/// Whether standard input is a terminal.
bool isInputTerminal();

/// Whether standard output is a terminal.
bool isOutputTerminal();

/// Whether standard error is a terminal.
bool isErrorTerminal();

/// Switches the terminal to UTF-8 and colours, and the standard streams to binary, if they are not
/// already. A closed pipe at the output no longer ends the program. Call this before anything is
/// read or written.
void prepareTerminal();

/// From now on Ctrl-C drops the line that is being typed, if anything, and does not end the
/// program.
void ignoreInterrupts();

/// The arguments after the program's name, in UTF-8 if the system knows their encoding.
/// @param argc, argv  those of main()
std::vector<std::string> programArguments(int argc, char** argv);

}
