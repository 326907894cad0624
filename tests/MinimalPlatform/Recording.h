// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace Tarvik {

/// What the library asks of names, identifiers and archives while it is recorded.
class Recording {
public:
  Recording() { active() = this; }
  Recording(const Recording&) = delete;
  Recording& operator=(const Recording&) = delete;
  ~Recording() { active() = nullptr; }

  const std::vector<std::string>& calls() const { return m_calls; }

  /// Writes a call down, when there is a recording.
  static void note(const std::string& operation, const std::string& argument = "")
  {
    if (active() != nullptr)
      active()->m_calls.push_back(operation + argument);
  }

private:
  static Recording*& active()
  {
    static Recording* recording = nullptr;
    return recording;
  }

  std::vector<std::string> m_calls;
};

}
