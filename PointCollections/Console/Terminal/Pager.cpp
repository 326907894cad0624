// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Terminal/Pager.h"

#include "PointCollections/Console/Terminal/Terminal.h"
#include "PointCollections/Console/Text/DisplayWidth.h"

#include <algorithm>

namespace Tarvik::PointCollections {

std::size_t rowsOf(std::string_view text, std::size_t columns)
{
  std::size_t rows = 0;
  for (bool isOver = false; !isOver;) {
    const auto end = std::min(text.find('\n'), text.size());
    const auto characters = std::max<std::size_t>(1, displayWidth(text.substr(0, end)));
    rows += (characters + columns - 1) / columns;
    isOver = end == text.size();
    text.remove_prefix(isOver ? end : end + 1);
  }
  return rows;
}

bool showLongText(const std::string& text, const std::function<void()>& beforeReading)
{
  const auto size = terminalSize();
  if (!size || size->columns == 0)
    return false;
  const bool fits = rowsOf(text, size->columns) < size->rows; // the prompt takes the last row
  if (fits)
    return false;
  beforeReading();
  return showInPager(text);
}

}
