// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace Tarvik::PointCollections {

/// Refuses a text in UTF-16 or UTF-32, which some programs write. It is known by its byte order
/// mark, or because every other byte of its start is NUL.
/// @param start  the first bytes, or all of them
/// @throws UserError without the name of the text
void refuseOtherEncodings(std::string_view start);

/// The same for a text with that name.
/// @throws UserError "name: ..."
void refuseOtherEncodings(std::string_view start, const std::string& name);

/// The text without the byte order mark that it may start with.
/// @throws UserError "name:line: ..." if it is not UTF-8, or as refuseOtherEncodings() does
std::string_view checkedUtf8(std::string_view text, const std::string& name);

}
