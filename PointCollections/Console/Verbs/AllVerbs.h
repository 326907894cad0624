// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Console/Verbs/Verb.h"

#include <vector>

namespace Tarvik::PointCollections {

/// All verbs, in the order in which help lists them. For the code that runs lines: no verb includes
/// this.
const std::vector<Verb>& allVerbs();

}
