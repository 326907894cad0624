// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// How names and other texts of the user are shown: safe for a terminal, and so that the user can
/// type them back.
namespace Tarvik::PointCollections {

/// The text with control characters and bytes that are not UTF-8 written as \n, \r, \t or \x and
/// two hexadecimal digits. All else stays, backslashes included.
std::string printable(std::string_view text);

/// The name as it is typed in a command: plain where that is possible, otherwise in double quotes
/// with backslash escapes.
std::string asTyped(std::string_view name);

/// As asTyped(), always in double quotes.
std::string inQuotes(std::string_view name);

/// As asTyped(), for use in messages: names longer than 60 characters end in "…".
std::string mentioned(std::string_view name);

/// The text, cut to so many characters plus "…" when it is longer.
std::string abbreviated(std::string_view text, std::size_t characters);

/// "1 element", "2 elements": a number and a noun whose plural ends in s.
std::string counted(std::size_t number, std::string_view noun);

}
