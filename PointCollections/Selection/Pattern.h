// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Text/Words.h"

#include <string_view>

namespace Tarvik::PointCollections {

/// Compares names with a pattern: `*` stands for any text, even none, and `?` for any one
/// character. Quotes take these meanings away. Everything else stands for itself, in the same case.
class Pattern {
public:
  /// Whether a word has a `*` or `?` outside quotes.
  static bool isPattern(const Word& word);

  /// A word that is no pattern matches its text only.
  explicit Pattern(Word word);

  /// Whether the whole name matches.
  bool matches(std::string_view name) const;

private:
  bool isSpecial(std::size_t index, char character) const;

  Word m_word;
};

}
