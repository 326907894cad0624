// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Console/Verbs/Arguments.h"

#include <cstddef>
#include <string>
#include <vector>

/// What undo and redo have in common.
namespace Tarvik::PointCollections {

/// How many steps the user asks for: the first argument, or 1.
/// @param available  how many steps there are
/// @param verb       "undo" or "redo", for messages
/// @throws UserError unless the number is from 1 to `available`
std::size_t stepsAsked(const Arguments& arguments, std::size_t available, const std::string& verb);

/// What has been undone or redone: a line such as "Undone: Create Group: Europe (10)" for each
/// step. Many steps take one line, with the first and the last of them.
/// @param done   "Undone" or "Redone"
/// @param steps  in the order in which it was done; not empty
std::string reportSteps(const std::string& done, const std::vector<std::string>& steps);

}
