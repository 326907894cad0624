// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

namespace Tarvik {

/// The place of the first byte that does not belong to valid UTF-8; npos if all of it is valid.
std::size_t firstInvalidUtf8(std::string_view text);

}
