// SPDX-License-Identifier: MIT
#pragma once

#include <locale>

namespace Tarvik {

/// Puts a global locale in place for a scope.
class GlobalLocale {
public:
  explicit GlobalLocale(const std::locale& locale) : m_earlier(std::locale::global(locale)) {}
  GlobalLocale(const GlobalLocale&) = delete;
  GlobalLocale& operator=(const GlobalLocale&) = delete;
  ~GlobalLocale() { std::locale::global(m_earlier); }

private:
  std::locale m_earlier;
};

}
