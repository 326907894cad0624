// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Document/PointDocument.h"

#include <string>
#include <vector>

namespace Tarvik::PointCollections {

/// Which groups elements are about to leave, in words: " (2 from Europe, 1 moved within it)".
/// Ask before the change. Empty when no group holds any of them.
/// @param target  the group they go to, or null when it does not exist yet
std::string movementInWords(PointDocument& document,
                            const std::vector<GUIdentifier>& elements,
                            const TKGroup<GUIdentifier>* target);

}
