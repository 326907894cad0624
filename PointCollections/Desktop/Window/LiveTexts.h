// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <utility>
#include <vector>

namespace Tarvik::PointCollections {

/// The texts of widgets that stay open while the user switches the language.
class LiveTexts {
public:
  /// Sets texts now, and again in each other language.
  /// @param setTexts  what it sets must live as long as this
  void keep(std::function<void()> setTexts)
  {
    setTexts();
    m_texts.push_back(std::move(setTexts));
  }

  /// There is another language.
  void retranslate() const
  {
    for (const auto& setTexts : m_texts)
      setTexts();
  }

private:
  std::vector<std::function<void()>> m_texts;
};

}
