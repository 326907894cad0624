// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Text/Words.h"

#include <optional>
#include <string>
#include <vector>

namespace Tarvik::PointCollections {

/// "did you mean Asia*?": for a pattern that matches none of the names, one with another start that
/// some of them have. Nothing if no start is close; see nearestName().
std::optional<std::string> suggestedPattern(const Word& pattern,
                                            const std::vector<std::string>& names);

}
