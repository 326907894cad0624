// SPDX-License-Identifier: MIT
#pragma once

/// What differs between operating systems: one source file for each.
namespace Tarvik::PointCollections {

/// Whether a person types standard input.
bool isInputTerminal();

/// Whether a person reads standard output.
bool isOutputTerminal();

/// Whether a person reads standard error.
bool isErrorTerminal();

/// Makes the terminal take and show UTF-8 where that is not so anyway.
void prepareTerminal();

}
