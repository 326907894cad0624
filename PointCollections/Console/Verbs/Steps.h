// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Console/Verbs/Arguments.h"

#include <cstddef>
#include <string>
#include <vector>

/// What undo and redo have in common.
namespace Tarvik::PointCollections {

enum class StepDirection { Undo, Redo };

/// How many steps the user asks for: the first argument, or 1.
/// @param available  how many steps there are
/// @param direction  for messages
/// @throws UserError unless the number is from 1 to `available`
std::size_t stepsAsked(const Arguments& arguments, std::size_t available, StepDirection direction);

/// What has been undone or redone: a line such as "Undone: Create Group: Europe (10)" for each
/// step. Many steps take one line, with the first and the last of them.
/// @param steps  in the order in which it was done; not empty
std::string reportSteps(StepDirection direction, const std::vector<std::string>& steps);

}
