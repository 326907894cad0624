// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Console/Verbs/Arguments.h"

#include <string>

namespace Tarvik::PointCollections {

/// Which of --before and --after is given.
/// @throws UserError unless it is exactly one of them
std::string placeOptionIn(const Arguments& arguments);

}
