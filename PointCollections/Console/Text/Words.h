// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// How a command line is split into words.
///
///     line    = *blank [word *(1*blank word)] *blank       blank = " " / TAB
///     word    = plain / quoted
///     plain   = one or more characters, no blank and no `"` among them
///     quoted  = `"` *(any character but `"` and `\` / escape) `"`
///     escape  = `\"` / `\\` / `\n` / `\r` / `\t` / `\x` two hexadecimal digits
namespace Tarvik::PointCollections {

/// One word of a command line, without its quotes and escapes.
struct Word {
  std::string text;
  bool isQuoted = false; ///< a quoted word is always a name, never an option

  friend bool operator==(const Word& a, const Word& b) = default;
};

/// The words of a line.
/// @throws UserError with the column (counted from 1, in characters) if the line is not UTF-8,
///         contains a control character, or breaks the grammar above
std::vector<Word> splitWords(std::string_view line);

/// A line that the user is still typing.
struct UnfinishedLine {
  std::vector<Word> words; ///< without the last
  Word last;               ///< the word being typed; empty after a blank
  std::size_t lastAt = 0;  ///< the byte at which the last word starts, quote included
  std::size_t size = 0;    ///< of the whole line, in bytes
};

/// Splits a line that is not complete yet. The quote of the last word may be open.
/// @throws UserError as splitWords() does, except for the open quote
UnfinishedLine splitUnfinished(std::string_view line);

}
