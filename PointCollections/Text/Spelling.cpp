// SPDX-License-Identifier: MIT
#include "PointCollections/Text/Spelling.h"

#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/UnicodeTables.h"
#include "PointCollections/Text/Utf8.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>

namespace Tarvik::PointCollections {
namespace {

struct Range {
  char32_t first;
  char32_t last;
};

constexpr std::array invisible = {
    Range{0x0, 0x1F},        Range{0x7F, 0x9F},      Range{0xAD, 0xAD},     Range{0x34F, 0x34F},
    Range{0x61C, 0x61C},     Range{0x115F, 0x1160},  Range{0x17B4, 0x17B5}, Range{0x180E, 0x180E},
    Range{0x200B, 0x200F},   Range{0x2028, 0x202E},  Range{0x2060, 0x206F}, Range{0x3164, 0x3164},
    Range{0xFEFF, 0xFEFF},   Range{0xFFA0, 0xFFA0},  Range{0xFFF9, 0xFFFB}, Range{0x1BCA0, 0x1BCA3},
    Range{0x1D173, 0x1D17A}, Range{0xE0000, 0xE007F}};

/// They choose between the shapes of the character before them.
bool isShapeSelector(char32_t character)
{
  return (character >= 0x180B && character <= 0x180F && character != 0x180E) ||
         (character >= 0xFE00 && character <= 0xFE0F) ||
         (character >= 0xE0100 && character <= 0xE01EF);
}

/// The last row of a table with three columns whose first one is not above the character; npos if
/// there is none.
std::size_t findRow(std::u32string_view table, char32_t character)
{
  std::size_t begin = 0;
  std::size_t end = table.size() / 3;
  while (begin < end) {
    const auto middle = begin + (end - begin) / 2;
    if (table[3 * middle] <= character)
      begin = middle + 1;
    else
      end = middle;
  }
  return begin == 0 ? std::u32string_view::npos : 3 * (begin - 1);
}

char32_t combiningClass(char32_t character)
{
  constexpr char32_t firstMark = 0x300; // almost all characters are below
  if (character < firstMark)
    return 0;
  const auto& table = UnicodeTables::combiningClasses;
  const auto row = findRow(table, character);
  return row != std::u32string_view::npos && character <= table[row + 1] ? table[row + 2] : 0;
}

/// The Korean syllables are not in the table: their parts can be calculated.
void appendSyllable(std::u32string& text, char32_t syllable)
{
  constexpr char32_t vowels = 21;
  constexpr char32_t ends = 28;
  text.push_back(0x1100 + syllable / (vowels * ends));
  text.push_back(0x1161 + syllable % (vowels * ends) / ends);
  if (syllable % ends != 0)
    text.push_back(0x11A7 + syllable % ends);
}

void appendDecomposed(std::u32string& text, char32_t character)
{
  constexpr char32_t firstInTable = 0xC0;
  if (character < firstInTable) {
    text += character;
    return;
  }
  constexpr char32_t firstSyllable = 0xAC00;
  constexpr char32_t lastSyllable = 0xD7A3;
  if (character >= firstSyllable && character <= lastSyllable) {
    appendSyllable(text, character - firstSyllable);
    return;
  }
  const auto& table = UnicodeTables::decompositions;
  std::u32string marks; // from the last one to the first
  auto row = findRow(table, character);
  while (row != std::u32string_view::npos && table[row] == character) {
    if (table[row + 2] != 0)
      marks += table[row + 2]; // which has no decomposition itself
    character = table[row + 1];
    row = findRow(table, character);
  }
  text += character;
  text.append(marks.rbegin(), marks.rend());
}

/// Puts combining characters that do not touch each other in the order of their classes.
void sortMarks(std::u32string& text)
{
  const auto isMark = [](char32_t character) { return combiningClass(character) != 0; };
  for (auto at = text.begin(); at != text.end();) {
    const auto begin = std::find_if(at, text.end(), isMark);
    at = std::find_if_not(begin, text.end(), isMark);
    std::stable_sort(begin, at, [](char32_t one, char32_t other) {
      return combiningClass(one) < combiningClass(other);
    });
  }
}

/// A character in double quotes.
std::string quotedCharacter(char32_t character, bool isEscaped)
{
  const auto text = Utf8::encode(character);
  if (isEscaped && character >= 0x80)
    return fmt::format("\\u{{{:X}}}", static_cast<unsigned>(character));
  const auto quoted = inQuotes(text);
  return quoted.substr(1, quoted.size() - 2);
}

}

bool isInvisible(char32_t character)
{
  return std::any_of(invisible.begin(), invisible.end(), [character](const Range& range) {
    return range.first <= character && character <= range.last;
  });
}

bool isOtherBlank(char32_t character)
{
  return character == 0xA0 || (character >= 0x2000 && character <= 0x200A) || character == 0x202F ||
         character == 0x205F || character == 0x3000;
}

std::u32string decomposed(std::string_view text)
{
  std::u32string result;
  for (const char32_t character : Utf8::decode(text))
    appendDecomposed(result, character);
  sortMarks(result);
  return result;
}

std::u32string appearanceOf(std::string_view text)
{
  auto appearance = decomposed(text);
  std::erase_if(appearance, [](char32_t character) {
    return character >= 0x80 && (isInvisible(character) || isShapeSelector(character));
  });
  std::replace_if(appearance.begin(), appearance.end(), isOtherBlank, U' ');
  return appearance;
}

Lookalikes::Lookalikes(std::string_view text)
    : m_text(text),
      m_appearance(appearanceOf(text)),
      m_looksAscii(std::all_of(m_appearance.begin(), m_appearance.end(), [](char32_t character) {
        return character < 0x80;
      }))
{}

bool Lookalikes::operator()(std::string_view other) const
{
  if (Utf8::isAscii(other)) // which is its own appearance, and can be compared fast
    return m_looksAscii && other != m_text &&
           std::equal(
               other.begin(), other.end(), m_appearance.begin(), m_appearance.end(),
               [](char one, char32_t another) { return static_cast<char32_t>(one) == another; });
  return other != m_text && appearanceOf(other) == m_appearance;
}

std::string spelledApart(std::string_view name, std::string_view other)
{
  const auto characters = Utf8::decode(name);
  const auto others = Utf8::decode(other);
  const auto starts =
      std::mismatch(characters.begin(), characters.end(), others.begin(), others.end());
  const auto ends = std::mismatch(characters.rbegin(), std::make_reverse_iterator(starts.first),
                                  others.rbegin(), std::make_reverse_iterator(starts.second));
  std::string text = "\"";
  for (auto at = characters.begin(); at != characters.end(); ++at)
    text += quotedCharacter(*at, starts.first <= at && at < ends.first.base());
  return text + '"';
}

}
