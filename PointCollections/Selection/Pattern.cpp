// SPDX-License-Identifier: MIT
#include "PointCollections/Selection/Pattern.h"

#include "PointCollections/Text/Utf8.h"

#include <algorithm>
#include <utility>

namespace Tarvik::PointCollections {
namespace {

std::size_t afterCharacter(std::string_view name, std::size_t at)
{
  return at + std::max<std::size_t>(1, Utf8::characterLength(name.substr(at)));
}

}

bool Pattern::isPattern(const Word& word)
{
  return word.findPlain("*?") != std::string::npos;
}

Pattern::Pattern(Word word) : m_word(std::move(word)) {}

/// Only the last star can take more characters: an earlier one that takes fewer leaves more for it.
bool Pattern::matches(std::string_view name) const
{
  constexpr auto none = std::string_view::npos;
  const std::string_view pattern = m_word.text;
  std::size_t inPattern = 0;
  std::size_t inName = 0;
  std::size_t afterStar = none;
  std::size_t endOfStar = 0; // in the name
  while (inName < name.size() || inPattern < pattern.size()) {
    const bool isNameOver = inName == name.size();
    if (isSpecial(inPattern, '*')) {
      afterStar = ++inPattern;
      endOfStar = inName;
    } else if (!isNameOver && isSpecial(inPattern, '?')) {
      inName = afterCharacter(name, inName);
      ++inPattern;
    } else if (!isNameOver && inPattern < pattern.size() && pattern[inPattern] == name[inName] &&
               !isSpecial(inPattern, '?')) {
      ++inName;
      ++inPattern;
    } else {
      if (afterStar == none || endOfStar == name.size())
        return false;
      inName = endOfStar = afterCharacter(name, endOfStar);
      inPattern = afterStar;
    }
  }
  return true;
}

bool Pattern::isSpecial(std::size_t index, char character) const
{
  return index < m_word.text.size() && m_word.text[index] == character && m_word.isPlainAt(index);
}

}
