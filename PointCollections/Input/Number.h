// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace Tarvik::PointCollections {

/// What a field of a table is, read as a number.
struct ParsedNumber {
  enum class Kind {
    Valid,
    TooSmall, ///< not 0, but closer to 0 than any number of this program
    TooLarge,
    NotFinite, ///< such as inf or nan
    NotANumber
  };

  Kind kind = Kind::NotANumber;
  double value = 0; ///< 0 unless the number is valid
};

/// Reads a decimal number with a point, such as 12.5, -3 or 1e-7. It may have blanks around it, and
/// a plus sign. The user's language does not matter.
ParsedNumber parseNumber(std::string_view field);

/// The text without blanks and tabs around it.
std::string_view trimmed(std::string_view text);

}
