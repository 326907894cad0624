// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

/// What differs between operating systems: one source file for each.
namespace Tarvik::PointCollections {

/// Whether a person types standard input.
bool isInputTerminal();

/// Whether a person reads standard output.
bool isOutputTerminal();

/// Whether a person reads standard error.
bool isErrorTerminal();

/// Makes the terminal take and show UTF-8 and colours where that is not so anyway, and the standard
/// streams pass on bytes as they are. A reader of the output that goes away does not end the
/// program. To be called before anything is read or written.
void prepareTerminal();

/// Lets Ctrl-C, which would end the program, at most drop the line that is being typed.
void ignoreInterrupts();

/// The arguments behind the program's name, in UTF-8 where the system knows their encoding.
/// @param argc, argv  those of main()
std::vector<std::string> programArguments(int argc, char** argv);

}
