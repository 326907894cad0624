// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Text/Words.h"

#include <string>
#include <string_view>
#include <vector>

namespace Tarvik::PointCollections {

/// "; did you mean Asia*?": for a pattern that matches none of the names, one with another start
/// that some of them have. "; " and `otherwise` if no start is close; see suggestion().
std::string patternSuggestion(const Word& pattern,
                              const std::vector<std::string>& names,
                              std::string_view otherwise);

}
