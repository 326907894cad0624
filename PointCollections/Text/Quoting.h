// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// How names and other texts of the user are shown: safe for a terminal, and in a form that the
/// user can type.
namespace Tarvik::PointCollections {

/// The text with control characters and bytes that are not UTF-8 written as \n, \r, \t or \x and
/// two hexadecimal digits, and other characters that isInvisible() knows as \u{200B}. Everything
/// else stays, even backslashes.
std::string printable(std::string_view text);

/// The name of an element, group or document in a list: as it is if possible, even with blanks in
/// it. Otherwise as inQuotes(); also if it has a backslash or starts with a quote, so that a line
/// break differs from the characters \n, and if it starts or ends with a blank, or has two in a
/// row.
std::string listedName(std::string_view name);

/// The name as it is typed in a command: plain if possible, otherwise in double quotes with
/// backslash escapes.
std::string asTyped(std::string_view name);

/// As asTyped(), but always in double quotes. Blanks that isOtherBlank() knows are written by their
/// numbers, as in "New\u{A0}York".
std::string inQuotes(std::string_view name);

/// As asTyped(), for messages: a name longer than 60 characters is cut and ends in "…".
std::string displayName(std::string_view name);

/// The text; if it has more than that many characters, it is cut there and ends in "…".
std::string abbreviated(std::string_view text, std::size_t characters);

}
