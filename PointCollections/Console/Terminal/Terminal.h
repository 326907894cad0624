// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <ostream>
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

/// Where prompts and questions go: standard output if it is a terminal, otherwise standard error if
/// it is one, otherwise the terminal itself. Never into a file.
std::ostream& terminalOutput();

/// Whether standard output is a pipe that nobody reads any more, as after `| head`.
bool isOutputAbandoned();

/// Ends the program as a pipe that nobody reads ends others: by the signal SIGPIPE. Returns on
/// Windows, which has no such signal.
void endAsAbandoned();

/// Switches the terminal to UTF-8 and colours, and the standard streams to binary, if they are not
/// already. A closed pipe at the output no longer ends the program. Call this before anything is
/// read or written.
void prepareTerminal();

/// From now on Ctrl-C does not end the program. It drops the line that is being typed, or stops the
/// work; see Interruptible.
void catchInterrupts();

/// Does work during which no signal is handled on this thread. Signals that come meanwhile are
/// handled afterwards, or at once on another thread. A thread that the work starts never handles
/// any. Just does the work on Windows, where handlers run on threads of their own.
void doWithoutSignals(const std::function<void()>& work);

/// The size of a terminal, in characters.
struct TerminalSize {
  std::size_t rows;
  std::size_t columns;
};

/// The size of the terminal at standard output; nothing if it is unknown.
std::optional<TerminalSize> terminalSize();

/// Shows a text in the program that the environment variable PAGER names, or in less, and returns
/// when the user leaves it. There is no pager on Windows, or where PAGER is empty or cat.
/// @return false if the pager cannot be run; nothing has been shown then
bool showInPager(const std::string& text);

/// The arguments after the program's name, in UTF-8 if the system knows their encoding.
/// @param argc, argv  those of main()
std::vector<std::string> programArguments(int argc, char** argv);

}
