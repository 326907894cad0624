// SPDX-License-Identifier: MIT
#include "Translator/UserLanguages.h"

#include "Translator/SystemLanguages.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace Tarvik {
namespace {

std::string_view environment(const char* variable)
{
  const char* const value = std::getenv(variable);
  return value != nullptr ? value : "";
}

std::string_view locale()
{
  for (const auto* const variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    if (const auto value = environment(variable); !value.empty())
      return value;
  }
  return {};
}

bool isUntranslated(std::string_view locale)
{
  const auto name = locale.substr(0, locale.find('.'));
  return name == "C" || name == "POSIX";
}

}

std::vector<std::string> UserLanguages::wanted()
{
  const auto wantedLocale = locale();
  if (wantedLocale.empty())
    return systemLanguages();
  std::vector<std::string> languages;
  if (!isUntranslated(wantedLocale)) {
    auto list = environment("LANGUAGE");
    while (!list.empty()) {
      const auto end = std::min(list.find(':'), list.size());
      if (end > 0)
        languages.emplace_back(list.substr(0, end));
      list.remove_prefix(std::min(end + 1, list.size()));
    }
  }
  languages.emplace_back(wantedLocale);
  return languages;
}

}
