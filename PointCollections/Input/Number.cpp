// SPDX-License-Identifier: MIT
#include "PointCollections/Input/Number.h"

#include "PointCollections/Text/DecimalNumber.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <system_error>

namespace Tarvik::PointCollections {
namespace {

using Kind = ParsedNumber::Kind;

/// Removes a plus sign, which people write but readDecimalNumber() refuses.
std::string_view withoutPlus(std::string_view number)
{
  const bool hasPlus = number.size() > 1 && number[0] == '+' && number[1] != '-';
  return number.substr(hasPlus ? 1 : 0);
}

/// The power of ten in a number: -3 in "2e-3".
long powerOf(std::string_view exponent)
{
  constexpr long beyondAllTexts = 1'000'000'000;
  if (exponent.starts_with('+'))
    exponent.remove_prefix(1);
  long power = 0;
  const auto [stop, error] =
      std::from_chars(exponent.data(), exponent.data() + exponent.size(), power);
  if (error == std::errc::result_out_of_range)
    return exponent.starts_with('-') ? -beyondAllTexts : beyondAllTexts;
  return power;
}

/// Whether a number that is out of range is so because it is close to 0. readDecimalNumber() does
/// not tell, and other functions depend on the user's language.
bool isCloseToZero(std::string_view number)
{
  const auto mantissa = number.substr(0, number.find_first_of("eE"));
  const auto power =
      mantissa.size() < number.size() ? powerOf(number.substr(mantissa.size() + 1)) : 0;
  const auto point = std::min(mantissa.find('.'), mantissa.size());
  const auto firstDigit = std::min(mantissa.find_first_of("123456789"), mantissa.size());
  return static_cast<long long>(point) - static_cast<long long>(firstDigit) + power < 0;
}

}

std::string_view trimmed(std::string_view text)
{
  const std::size_t start = text.find_first_not_of(" \t");
  if (start == std::string_view::npos)
    return {};
  return text.substr(start, text.find_last_not_of(" \t") - start + 1);
}

ParsedNumber parseNumber(std::string_view field)
{
  const auto number = withoutPlus(trimmed(field));
  const char* end = number.data() + number.size();
  double value = 0;
  const auto [stop, error] = readDecimalNumber(number, value);
  if (stop != end || (error != std::errc() && error != std::errc::result_out_of_range))
    return {Kind::NotANumber};
  if (error == std::errc::result_out_of_range)
    return {isCloseToZero(number) ? Kind::TooSmall : Kind::TooLarge};
  if (!std::isfinite(value))
    return {Kind::NotFinite};
  return {Kind::Valid, value};
}

}
