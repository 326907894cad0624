// SPDX-License-Identifier: MIT
#include "Identifier/IdentifierText.h"

#include <charconv>
#include <system_error>

namespace Tarvik::IdentifierText {

namespace {

constexpr std::size_t digitsPerWord = 16;

void appendDigits(std::string& text, std::uint64_t word)
{
  for (int shift = 60; shift >= 0; shift -= 4)
    text += "0123456789abcdef"[word >> static_cast<unsigned int>(shift) & 0xFU];
}

std::optional<std::uint64_t> wordFromDigits(std::string_view digits)
{
  std::uint64_t word = 0;
  const auto* const end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, word, 16);
  if (error != std::errc() || stop != end)
    return std::nullopt;
  return word;
}

}

std::string toDigits(const IdentifierBits& bits)
{
  std::string text;
  text.reserve(2 * digitsPerWord);
  appendDigits(text, bits.high);
  appendDigits(text, bits.low);
  return text;
}

std::optional<IdentifierBits> fromDigits(std::string_view text)
{
  if (text.size() != 2 * digitsPerWord)
    return std::nullopt;
  const auto high = wordFromDigits(text.substr(0, digitsPerWord));
  const auto low = wordFromDigits(text.substr(digitsPerWord));
  if (!high || !low)
    return std::nullopt;
  return IdentifierBits{*high, *low};
}

}
