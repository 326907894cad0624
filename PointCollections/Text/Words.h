// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// How a command line is split into words.
///
///     line    = *blank [word *(1*blank word)] *blank       blank = " " / TAB
///     word    = plain / quoted / mixed
///     plain   = one or more characters, no blank and no `"` among them
///     quoted  = `"` *(any character but `"` and `\` / escape) `"`
///     mixed   = plain and quoted parts without blanks between them
///     escape  = `\"` / `\\` / `\n` / `\r` / `\t` / `\x` two hexadecimal digits
///             / `\u{` one to six hexadecimal digits `}`
///
/// A mixed word has one of the special characters `*`, `?`, `:` and `@` outside its quotes.
/// Anywhere else, a quote inside a word is a mistake.
namespace Tarvik::PointCollections {

/// A part of a text, in bytes.
struct TextRange {
  std::size_t begin = 0;
  std::size_t end = 0; ///< the first byte after it

  friend bool operator==(const TextRange& a, const TextRange& b) = default;
};

/// One word of a command line, without its quotes and escapes.
struct Word {
  std::string text;
  bool isQuoted = false; ///< a quoted word is always a name, never an option or a pattern
  std::vector<TextRange> quotedParts = {}; ///< of a mixed word, in their order

  bool isMixed() const { return !quotedParts.empty(); }

  /// Whether the byte at the index is outside quotes, where special characters have a meaning.
  bool isPlainAt(std::size_t index) const;

  /// The index of the first of the characters that is outside quotes; `npos` if there is none.
  std::size_t findPlain(std::string_view characters, std::size_t from = 0) const;

  /// A part of the word, as a word of its own.
  Word part(std::size_t begin, std::size_t end) const;

  friend bool operator==(const Word& a, const Word& b) = default;
};

/// The word as it is typed, with its quotes; see asTyped() for names.
std::string asTyped(const Word& word);

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
  std::string openEscape =
      {}; ///< the start of an escape at the end, such as `\u{FE`; not in `last`
};

/// Splits a line that is not complete yet. The quote of the last word, and an escape in it, may be
/// open.
/// @throws UserError as splitWords() does, except for the open quote
UnfinishedLine splitUnfinished(std::string_view line);

}
