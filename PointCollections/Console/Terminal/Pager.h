// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace Tarvik::PointCollections {

/// How many rows a text takes on a terminal of that width, in characters.
std::size_t rowsOf(std::string_view text, std::size_t columns);

/// Shows a text that does not fit on the terminal in the user's pager, and returns when the user
/// leaves it.
/// @param beforeReading  called before the pager is shown, since the user may read for a long time
/// @return false if the text fits, or there is no pager; nothing has been shown then
bool showLongText(const std::string& text, const std::function<void()>& beforeReading);

}
