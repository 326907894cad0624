// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Console/Session/Session.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Tarvik::PointCollections {

/// How a line that is being typed can go on.
struct Completion {
  std::size_t from = 0;                ///< the byte from which the line is replaced
  std::string text;                    ///< by what; ends in a blank when there is one way only
  std::vector<std::string> candidates; ///< all ways, as they are typed; none: nothing to replace
};

/// Completes the last word of a line: a verb, an option of the verb, or the name of what the verb
/// expects there. Names that start with the word count, upper and lower case apart; where there
/// are none, those that differ in the case of A to Z do. Groups and elements that the line names
/// already are left out. Of files, those count whose names end in .tkpc or .csv, and folders.
/// @param line  what stands in front of the cursor; any bytes
Completion complete(Session& session, std::string_view line);

}
