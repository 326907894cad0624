// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace Tarvik {

/// What the library asks of names, identifiers and archives while it is recorded.
class Recording {
public:
  Recording();
  Recording(const Recording&) = delete;
  Recording& operator=(const Recording&) = delete;
  ~Recording();

  const std::vector<std::string>& calls() const { return m_calls; }

  /// Whether there is a recording.
  static bool isActive();

  /// Writes a call down, when there is a recording.
  static void note(const std::string& operation, const std::string& argument = "");

private:
  std::vector<std::string> m_calls;
};

}
