// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace Tarvik::PointCollections {

/// Highlights parts of the output on a terminal with colours; otherwise leaves them plain.
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
