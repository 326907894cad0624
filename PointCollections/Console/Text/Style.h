// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace Tarvik::PointCollections {

/// How parts of the output stand out on a terminal that shows colours; plain text otherwise.
struct Style {
  bool isColored = false;

  std::string strong(std::string_view text) const { return wrapped("\x1b[1m", text); }
  std::string faint(std::string_view text) const { return wrapped("\x1b[2m", text); }
  std::string alarming(std::string_view text) const { return wrapped("\x1b[31m", text); }

private:
  std::string wrapped(std::string_view start, std::string_view text) const
  {
    return isColored ? std::string(start).append(text).append("\x1b[0m") : std::string(text);
  }
};

}
