// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <string_view>

namespace Tarvik::PointCollections {

/// For wrapped(): lines of any length.
constexpr auto unlimitedColumns = std::numeric_limits<std::size_t>::max();

/// The text with line ends in place of blanks, so that each line fits in the columns. A longer word
/// stays whole.
///
/// A line also ends between two wide characters, as in Chinese or Japanese, but not before closing
/// punctuation or a small kana, nor after opening punctuation. A word of up to 8 columns, such as a
/// name, stays whole.
///
/// A line that has two blanks between words, as in a table, goes on below what follows them;
/// another line goes on below its own start. That is only done where it leaves half of the columns.
std::string wrapped(std::string_view text, std::size_t columns);

}
