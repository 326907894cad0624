// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Text/Wrapping.h"

#include "PointCollections/Console/Text/DisplayWidth.h"

#include <algorithm>

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

void wrapLine(std::string_view line, std::size_t columns, std::string& result)
{
  const std::string indent(indentOf(line, columns), ' ');
  std::size_t width = 0; // of the last line in the result
  bool isStart = true;   // no word is on it yet
  while (!line.empty()) {
    const auto blanks = std::min(line.find_first_not_of(' '), line.size());
    const auto end = std::min(line.find(' ', blanks), line.size());
    const auto word = line.substr(blanks, end - blanks);
    const auto wordWidth = displayWidth(word);
    if (!isStart && width + blanks + wordWidth > columns) {
      result += '\n' + indent;
      width = indent.size();
    } else {
      result.append(blanks, ' ');
      width += blanks;
    }
    result += word;
    width += wordWidth;
    isStart = false;
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
