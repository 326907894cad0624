// SPDX-License-Identifier: MIT
#include "PointCollections/Text/Quoting.h"

#include "PointCollections/Text/Utf8.h"

#include <fmt/format.h>

#include <algorithm>

namespace Tarvik::PointCollections {
namespace {

constexpr std::size_t longestMention = 60;

bool isControl(std::string_view character)
{
  const auto first = static_cast<unsigned char>(character[0]);
  if (character.size() == 2) // U+0080 to U+009F: terminals obey them too
    return first == 0xC2 && static_cast<unsigned char>(character[1]) < 0xA0;
  return character.size() == 1 && (first < 0x20 || first == 0x7F);
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

/// Escapes what is not safe to print and, with a backslash, the special characters.
std::string escaped(std::string_view text, std::string_view specials)
{
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const std::size_t length = Utf8::characterLength(text);
    const auto character = text.substr(0, std::max<std::size_t>(1, length));
    if (length == 0 || isControl(character)) {
      for (const char byte : character)
        result += escapedByte(byte);
    } else {
      if (specials.find(character[0]) != std::string_view::npos)
        result += '\\';
      result += character;
    }
    text.remove_prefix(character.size());
  }
  return result;
}

bool needsQuotes(std::string_view name)
{
  return name.empty() || name.find_first_of(" \"\\*?:") != std::string_view::npos ||
         name[0] == '#' || name[0] == '@' || name.substr(0, 2) == "--" || printable(name) != name;
}

}

std::string printable(std::string_view text)
{
  if (std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c < '\x7F'; }))
    return std::string(text); // as most names are
  return escaped(text, "");
}

std::string inQuotes(std::string_view name)
{
  return '"' + escaped(name, "\"\\") + '"';
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

std::string pluralize(std::size_t number, std::string_view noun)
{
  return fmt::format("{} {}{}", number, noun, number == 1 ? "" : "s");
}

}
