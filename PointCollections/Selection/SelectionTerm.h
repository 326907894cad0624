// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Text/Words.h"

#include <cstddef>
#include <limits>
#include <optional>
#include <string_view>

/// One word of a selection, taken apart.
///
///     term   = name / pattern / [group] `:` which / `@` file
///     group  = name / pattern / `@` place           of groups; without it, the ungrouped elements;
///                                                   `""` is a group without a name
///     which  = name / pattern / place [`-` [place]]
///     place  = a whole number from 1 up
///
/// A pattern has `*` or `?`; see the class Pattern. In quotes, no character is special: a whole
/// word in quotes is the name of an element. `North*`, `"North Sea":2-5`, `@"my cities.txt"`.
namespace Tarvik::PointCollections {

/// Which elements a word selects.
struct SelectionTerm {
  enum class Kind {
    Name,
    Pattern,
    Places, ///< from `first` to `last` in a group, or in the ungrouped elements
    File    ///< all names in a text file
  };

  static constexpr auto toTheEnd = std::numeric_limits<std::size_t>::max();

  Kind kind = Kind::Name;
  std::optional<Word> group; ///< whose members; empty for the ungrouped elements, but empty and
                             ///< quoted for a group without a name
  Word what;                 ///< the name, the pattern or the file
  std::size_t first = 1;     ///< a place, counted from 1
  std::size_t last = toTheEnd;
};

/// The places as they are typed: `2-5` is 2 and 5, `2` is 2 twice, and `2-` is 2 and nothing.
struct TypedPlaces {
  Word first;
  Word last;
};

/// @param range  what a term of the kind Places selects
TypedPlaces typedPlaces(const Word& range);

/// Whether a word without quotes is places after a colon, and not a name: `2`, `2-5` or `2-`.
bool readsAsPlaces(std::string_view text);

/// @throws UserError if the word has special characters but breaks the grammar above
SelectionTerm termOf(const Word& word);

}
