// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace Tarvik {

/// The library's calls of names, identifiers and archives while this object lives.
class Recording {
public:
  Recording();
  Recording(const Recording&) = delete;
  Recording& operator=(const Recording&) = delete;
  ~Recording();

  const std::vector<std::string>& calls() const { return m_calls; }

  /// Whether there is a recording.
  static bool isActive();

  /// Records a call if there is a recording.
  static void note(const std::string& operation, const std::string& argument = "");

private:
  std::vector<std::string> m_calls;
};

}
