// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace Tarvik::PointCollections {

/// A text in the user's language for the moment when memory runs out. It is translated before, and
/// stays in English if there is no memory even then.
class TextInNeed {
public:
  /// @param english  a literal that translatable() marks
  explicit TextInNeed(const char* english) noexcept;

  std::string_view text() const noexcept
  {
    return m_translation.empty() ? m_english : m_translation;
  }

private:
  std::string_view m_english;
  std::string m_translation;
};

}
