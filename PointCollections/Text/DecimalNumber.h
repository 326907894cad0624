// SPDX-License-Identifier: MIT
#pragma once

#include <charconv>
#include <string_view>

namespace Tarvik::PointCollections {

/// Reads the decimal number at the start of the text, as std::from_chars does: whatever the locale
/// is, "inf" and "nan" count, and a plus sign does not. libc++ has no std::from_chars for double
/// before its version 20.
/// @param value  changed only if there is a number and it is not out of range
std::from_chars_result readDecimalNumber(std::string_view text, double& value);

}
