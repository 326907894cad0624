// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

/// Several things in one text, joined as in the user's language. Empty if there are none.
namespace Tarvik::PointCollections {

/// "x, y, z"
std::string listed(const std::vector<std::string>& items);

/// "x, y and z"
std::string listedWithAnd(const std::vector<std::string>& items);

/// "x or y or z"
std::string listedWithOr(const std::vector<std::string>& items);

}
