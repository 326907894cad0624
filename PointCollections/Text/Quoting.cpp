// SPDX-License-Identifier: MIT
#include "PointCollections/Text/Quoting.h"

#include "PointCollections/Text/Spelling.h"
#include "PointCollections/Text/Utf8.h"

#include <fmt/format.h>

#include <algorithm>

namespace Tarvik::PointCollections {
namespace {

constexpr std::size_t longestMention = 60;

/// U+0080 to U+009F are controls, too: terminals obey them.
bool isControl(char32_t character)
{
  return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

std::string escapedByte(char byte)
{
  switch (byte) {
  case '\n':
    return "\\n";
  case '\r':
    return "\\r";
  case '\t':
    return "\\t";
  default:
    return fmt::format("\\x{:02X}", static_cast<unsigned char>(byte));
  }
}

std::string escapedBytes(std::string_view bytes)
{
  std::string result;
  for (const char byte : bytes)
    result += escapedByte(byte);
  return result;
}

/// Where a text is shown.
enum class Place {
  InProse, ///< where unusual blanks are as good as others
  InQuotes ///< a name, where each blank counts
};

/// A character that is not ASCII, or a byte that is not UTF-8.
std::string escapedCharacter(std::string_view character, bool isValid, Place place)
{
  const auto code = Utf8::decode(character).front();
  if (!isValid || isControl(code))
    return escapedBytes(character);
  const bool isEscaped = isInvisible(code) || (place == Place::InQuotes && isOtherBlank(code));
  return isEscaped ? fmt::format("\\u{{{:X}}}", static_cast<unsigned>(code))
                   : std::string(character);
}

/// Escapes what is not safe to print there and, in quotes, quotes and backslashes.
std::string escaped(std::string_view text, Place place)
{
  const std::string_view specials = place == Place::InQuotes ? "\"\\" : "";
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const std::size_t length = Utf8::characterLength(text);
    const auto character = text.substr(0, std::max<std::size_t>(1, length));
    const char first = character[0];
    if (length != 1) {
      result += escapedCharacter(character, length > 0, place);
    } else if (isControl(static_cast<unsigned char>(first))) {
      result += escapedByte(first);
    } else {
      if (specials.find(first) != std::string_view::npos)
        result += '\\';
      result += first;
    }
    text.remove_prefix(character.size());
  }
  return result;
}

/// Whether each of its characters can be shown as it is. There is one.
bool isPlain(std::string_view name)
{
  if (name.empty() || printable(name) != name)
    return false;
  const auto characters = Utf8::isAscii(name) ? std::u32string() : Utf8::decode(name);
  return std::none_of(characters.begin(), characters.end(), isOtherBlank);
}

bool needsQuotes(std::string_view name)
{
  return !isPlain(name) || name.find_first_of(" \"\\*?:") != std::string_view::npos ||
         name[0] == '#' || name[0] == '@' || name.substr(0, 2) == "--";
}

/// Whether the name has blanks that a reader overlooks or cannot count.
bool hasDoubtfulBlanks(std::string_view name)
{
  return name.starts_with(' ') || name.ends_with(' ') || name.find("  ") != std::string_view::npos;
}

}

std::string printable(std::string_view text)
{
  if (std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c < '\x7F'; }))
    return std::string(text); // as most names are
  return escaped(text, Place::InProse);
}

std::string listedName(std::string_view name)
{
  const bool isClear = isPlain(name) && name[0] != '"' &&
                       name.find('\\') == std::string_view::npos && !hasDoubtfulBlanks(name);
  return isClear ? std::string(name) : inQuotes(name);
}

std::string inQuotes(std::string_view name)
{
  return '"' + escaped(name, Place::InQuotes) + '"';
}

std::string asTyped(std::string_view name)
{
  return needsQuotes(name) ? inQuotes(name) : std::string(name);
}

std::string displayName(std::string_view name)
{
  const auto start = Utf8::prefix(name, longestMention);
  if (start.size() == name.size())
    return asTyped(name);
  return asTyped(std::string(start) + "…");
}

std::string abbreviated(std::string_view text, std::size_t characters)
{
  const auto start = Utf8::prefix(text, characters);
  return std::string(start) + (start.size() < text.size() ? "…" : "");
}

}
