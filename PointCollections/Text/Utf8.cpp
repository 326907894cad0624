// SPDX-License-Identifier: MIT
#include "PointCollections/Text/Utf8.h"

#include <algorithm>
#include <array>

namespace Tarvik::PointCollections::Utf8 {
namespace {

constexpr char32_t replacement = 0xFFFD;

unsigned byteAt(std::string_view text, std::size_t index)
{
  return static_cast<unsigned char>(text[index]);
}

bool isContinuation(unsigned byte, unsigned lowest = 0x80, unsigned highest = 0xBF)
{
  return lowest <= byte && byte <= highest;
}

/// The second byte's range is narrower where a wider one would allow overlong forms, surrogates
/// or numbers above U+10FFFF.
bool isSecondByteOf(unsigned first, unsigned second)
{
  switch (first) {
  case 0xE0:
    return isContinuation(second, 0xA0, 0xBF);
  case 0xED:
    return isContinuation(second, 0x80, 0x9F);
  case 0xF0:
    return isContinuation(second, 0x90, 0xBF);
  case 0xF4:
    return isContinuation(second, 0x80, 0x8F);
  default:
    return isContinuation(second);
  }
}

std::size_t announcedLength(unsigned first)
{
  if (first < 0x80)
    return 1;
  if (first >= 0xC2 && first <= 0xDF)
    return 2;
  if (first >= 0xE0 && first <= 0xEF)
    return 3;
  return first >= 0xF0 && first <= 0xF4 ? 4 : 0;
}

char32_t decodeCharacter(std::string_view character)
{
  constexpr std::array leadMasks = {0x7FU, 0x1FU, 0x0FU, 0x07U};
  unsigned result = byteAt(character, 0) & leadMasks[character.size() - 1];
  for (std::size_t i = 1; i < character.size(); ++i)
    result = result << 6U | (byteAt(character, i) & 0x3FU);
  return result;
}

}

std::size_t characterLength(std::string_view text)
{
  if (text.empty())
    return 0;
  const unsigned first = byteAt(text, 0);
  const std::size_t length = announcedLength(first);
  if (length < 2)
    return length;
  if (text.size() < length || !isSecondByteOf(first, byteAt(text, 1)))
    return 0;
  for (std::size_t i = 2; i < length; ++i) {
    if (!isContinuation(byteAt(text, i)))
      return 0;
  }
  return length;
}

std::size_t findInvalid(std::string_view text)
{
  for (std::size_t i = 0; i < text.size();) {
    if (byteAt(text, i) < 0x80) {
      ++i;
      continue;
    }
    const std::size_t length = characterLength(text.substr(i));
    if (length == 0)
      return i;
    i += length;
  }
  return std::string_view::npos;
}

bool isAscii(std::string_view text)
{
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::size_t countCharacters(std::string_view text)
{
  std::size_t count = 0;
  for (; !text.empty(); ++count)
    text.remove_prefix(std::max<std::size_t>(1, characterLength(text)));
  return count;
}

std::u32string decode(std::string_view text)
{
  std::u32string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const std::size_t length = characterLength(text);
    result.push_back(length == 0 ? replacement : decodeCharacter(text.substr(0, length)));
    text.remove_prefix(std::max<std::size_t>(1, length));
  }
  return result;
}

std::string encode(char32_t character)
{
  if (character < 0x80)
    return {static_cast<char>(character)};
  const auto continuation = [](char32_t bits) { return static_cast<char>(0x80U | (bits & 0x3FU)); };
  if (character < 0x800)
    return {static_cast<char>(0xC0U | character >> 6U), continuation(character)};
  if (character < 0x10000)
    return {static_cast<char>(0xE0U | character >> 12U), continuation(character >> 6U),
            continuation(character)};
  return {static_cast<char>(0xF0U | character >> 18U), continuation(character >> 12U),
          continuation(character >> 6U), continuation(character)};
}

std::string_view prefix(std::string_view text, std::size_t count)
{
  std::size_t end = 0;
  for (; count > 0 && end < text.size(); --count)
    end += std::max<std::size_t>(1, characterLength(text.substr(end)));
  return text.substr(0, end);
}

std::filesystem::path toPath(std::string_view text)
{
  return std::u8string(text.begin(), text.end());
}

std::string fromPath(const std::filesystem::path& path)
{
  const auto text = path.u8string();
  return {text.begin(), text.end()};
}

}
