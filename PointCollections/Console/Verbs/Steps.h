// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandBase.h"
#include "PointCollections/Console/Verbs/Arguments.h"

#include <cstddef>
#include <string>

/// What undo and redo have in common.
namespace Tarvik::PointCollections {

/// How many steps the user asks for: the first argument, or 1.
/// @param available  how many steps there are
/// @param verb       "undo" or "redo", for messages
/// @throws UserError unless the number is from 1 to `available`
std::size_t stepsAsked(const Arguments& arguments, std::size_t available, const std::string& verb);

/// Appends a line such as "Undone: Create Group" to the report.
void reportStep(std::string& report, const std::string& done, const CommandBase& command);

}
