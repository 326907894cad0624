// SPDX-License-Identifier: MIT
#include "Translator/Utf8Check.h"

#include <algorithm>

namespace Tarvik {
namespace {

unsigned char byteAt(std::string_view text, std::size_t place)
{
  return static_cast<unsigned char>(text[place]);
}

/// The length of the character that begins the text; 0 if none does. The second byte of some first
/// ones is limited: there are no overlong forms, no surrogates, and nothing over U+10FFFF.
std::size_t lengthOfFirst(std::string_view text)
{
  const auto first = byteAt(text, 0);
  if (first < 0x80)
    return 1;
  const std::size_t length = first < 0xC2 ? 0 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
  if (first > 0xF4 || length == 0 || text.size() < length)
    return 0;
  const auto second = byteAt(text, 1);
  const bool isSecondValid = (first != 0xE0 || second >= 0xA0) &&
                             (first != 0xED || second < 0xA0) &&
                             (first != 0xF0 || second >= 0x90) && (first != 0xF4 || second < 0x90);
  const auto rest = text.substr(1, length - 1);
  const bool areContinuations = std::all_of(rest.begin(), rest.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80;
  });
  return isSecondValid && areContinuations ? length : 0;
}

}

std::size_t firstInvalidUtf8(std::string_view text)
{
  std::size_t place = 0;
  while (place < text.size()) {
    const auto length = lengthOfFirst(text.substr(place));
    if (length == 0)
      return place;
    place += length;
  }
  return std::string_view::npos;
}

}
