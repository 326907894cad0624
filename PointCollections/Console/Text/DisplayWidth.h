// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

namespace Tarvik::PointCollections {

/// How many columns of a terminal the text takes: two for a Chinese, Japanese or Korean character,
/// none for a combining one and for colours; see Style. Control characters and invalid bytes count
/// as one.
std::size_t displayWidth(std::string_view text);

}
