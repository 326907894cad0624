// SPDX-License-Identifier: MIT
#include "PointCollections/Text/DecimalNumber.h"

#include <version>

#if !defined(__cpp_lib_to_chars)
#include "GeneralServices/StringUtility.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <locale>
#include <sstream>
#include <string>
#include <system_error>
#include <utility>
#endif

namespace Tarvik::PointCollections {

#if defined(__cpp_lib_to_chars)

std::from_chars_result readDecimalNumber(std::string_view text, double& value)
{
  return std::from_chars(text.data(), text.data() + text.size(), value);
}

#else

namespace {

using Limits = std::numeric_limits<double>;

constexpr std::array<std::pair<std::string_view, double>, 3> words = {
    {{"infinity", Limits::infinity()}, {"inf", Limits::infinity()}, {"nan", Limits::quiet_NaN()}}};

/// Where the digits end that begin at this place.
std::size_t endOfDigits(std::string_view text, std::size_t place)
{
  return std::min(text.find_first_not_of("0123456789", place), text.size());
}

/// Where the exponent ends that begins at this place; the place itself if there is none.
std::size_t endOfExponent(std::string_view text, std::size_t place)
{
  if (text.substr(place, 1).find_first_of("eE") != 0)
    return place;
  const bool hasSign = text.substr(place + 1, 1).find_first_of("+-") == 0;
  const auto digits = place + (hasSign ? 2 : 1);
  const auto end = endOfDigits(text, digits);
  return end > digits ? end : place;
}

/// The length of the number in digits at the start of the text; 0 if there is none.
std::size_t lengthOfDigits(std::string_view text)
{
  const std::size_t start = text.starts_with('-') ? 1 : 0;
  const auto point = endOfDigits(text, start);
  const bool hasPoint = text.substr(point).starts_with('.');
  const auto end = hasPoint ? endOfDigits(text, point + 1) : point;
  const auto digits = end - start - (hasPoint ? 1 : 0);
  return digits > 0 ? endOfExponent(text, end) : 0;
}

/// The length of the word for a number at the start of the text; 0 if there is none.
/// @param value  becomes that number
std::size_t lengthOfWord(std::string_view text, double& value)
{
  const std::size_t start = text.starts_with('-') ? 1 : 0;
  for (const auto& [word, number] : words)
    if (StringUtility::toLower(std::string(text.substr(start, word.size()))) == word) {
      value = start == 0 ? number : -number;
      return start + word.size();
    }
  return 0;
}

}

std::from_chars_result readDecimalNumber(std::string_view text, double& value)
{
  if (const auto length = lengthOfWord(text, value); length > 0)
    return {text.data() + length, std::errc()};
  const auto length = lengthOfDigits(text);
  if (length == 0)
    return {text.data(), std::errc::invalid_argument};

  std::istringstream stream(std::string(text.substr(0, length)));
  stream.imbue(std::locale::classic());
  double found = 0;
  if (!(stream >> found))
    return {text.data() + length, std::errc::result_out_of_range};
  value = found;
  return {text.data() + length, std::errc()};
}

#endif

}
