// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Text/Wrapping.h"

#include "PointCollections/Console/Text/DisplayWidth.h"
#include "PointCollections/Text/Utf8.h"

#include <algorithm>
#include <utility>

namespace Tarvik::PointCollections {
namespace {

/// How far the lines after the first one are moved in.
std::size_t indentOf(std::string_view line, std::size_t columns)
{
  const auto start = std::min(line.find_first_not_of(' '), line.size());
  const auto gap = line.find("  ", start);
  const auto column = gap == std::string_view::npos ? start : line.find_first_not_of(' ', gap);
  if (column == std::string_view::npos)
    return 0;
  const auto width = displayWidth(line.substr(0, column));
  return width <= columns / 2 ? width : 0;
}

/// Closing punctuation and other characters that belong to the one before them.
bool mayStartLine(char32_t character)
{
  constexpr std::u32string_view clinging = U"、。，．：；？！・～）〕］｝〉》」』】〙〗〛｠〟々〻ゝ"
                                           U"ゞヽヾーぁぃぅぇぉっゃゅょゎゕゖァィゥェォッャュョヮ"
                                           U"ヵヶ％";
  return clinging.find(character) == std::u32string_view::npos;
}

/// All but opening punctuation.
bool mayEndLine(char32_t character)
{
  constexpr std::u32string_view opening = U"（〔［｛〈《「『【〘〖〚｟〝￥＄";
  return opening.find(character) == std::u32string_view::npos;
}

/// How much of a word has to stay on one line, in bytes. Text in Chinese and Japanese has no
/// blanks: there, a line may end between any two characters, which are both wide.
std::size_t unbreakableLength(std::string_view word)
{
  bool mayEnd = false; // after the character before
  for (std::size_t at = 0; at < word.size();) {
    const auto rest = word.substr(at);
    const auto length = std::max<std::size_t>(1, Utf8::characterLength(rest));
    const bool isWide = displayWidth(rest.substr(0, length)) == 2;
    const auto character = Utf8::decode(rest.substr(0, length)).front();
    if (mayEnd && isWide && mayStartLine(character))
      return at;
    mayEnd = isWide && mayEndLine(character);
    at += length;
  }
  return word.size();
}

/// A short word stays whole, as it may be a name.
bool isBreakable(std::string_view word, std::size_t columns)
{
  constexpr std::size_t shortWord = 8;
  return !Utf8::isAscii(word) && displayWidth(word) > std::min(shortWord, columns);
}

/// Fills lines with words and parts of words.
class LineFiller {
public:
  /// @param result  what is filled goes to its end
  LineFiller(std::string& result, std::size_t columns, std::size_t indent)
      : m_result(result), m_columns(columns), m_indent(indent, ' ')
  {}

  /// @param blanks  how many are before the part; 0 in the midst of a word
  void add(std::size_t blanks, std::string_view part)
  {
    const auto partWidth = displayWidth(part);
    if (!m_isStart && m_width + blanks + partWidth > m_columns) {
      m_result += '\n' + m_indent;
      m_width = m_indent.size();
    } else {
      m_result.append(blanks, ' ');
      m_width += blanks;
    }
    m_result += part;
    m_width += partWidth;
    m_isStart = false;
  }

private:
  std::string& m_result;
  std::size_t m_columns;
  std::string m_indent;
  std::size_t m_width = 0; ///< of the last line in the result
  bool m_isStart = true;   ///< no word is on it yet
};

void wrapLine(std::string_view line, std::size_t columns, std::string& result)
{
  LineFiller filler(result, columns, indentOf(line, columns));
  while (!line.empty()) {
    auto blanks = std::min(line.find_first_not_of(' '), line.size());
    const auto end = std::min(line.find(' ', blanks), line.size());
    auto word = line.substr(blanks, end - blanks);
    const bool hasParts = isBreakable(word, columns);
    do {
      const auto part = word.substr(0, hasParts ? unbreakableLength(word) : word.size());
      filler.add(std::exchange(blanks, 0), part);
      word.remove_prefix(part.size());
    } while (!word.empty());
    line.remove_prefix(end);
  }
}

}

std::string wrapped(std::string_view text, std::size_t columns)
{
  std::string result;
  result.reserve(text.size() + text.size() / 16);
  for (bool isOver = false; !isOver;) {
    const auto end = std::min(text.find('\n'), text.size());
    wrapLine(text.substr(0, end), columns, result);
    isOver = end == text.size();
    if (!isOver)
      result += '\n';
    text.remove_prefix(isOver ? end : end + 1);
  }
  return result;
}

}
