// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

/// Several things in one text, in the user's language.
namespace Tarvik::PointCollections {

/// "Asia, Africa, Europe". Empty if there are none.
std::string joined(const std::vector<std::string>& items);

/// "Asia, Africa and Europe". Empty if there are none.
std::string joinedWithAnd(const std::vector<std::string>& items);

}
