// SPDX-License-Identifier: MIT
#include "Translator/SystemLanguages.h"

#if defined(_WIN32)
#include <windows.h>

#include <winnls.h>

#include <algorithm>
#endif

namespace Tarvik {

#if defined(_WIN32)
std::vector<std::string> systemLanguages()
{
  ULONG count = 0;
  ULONG length = 0;
  if (GetUserPreferredUILanguages(MUI_LANGUAGE_NAME, &count, nullptr, &length) == 0)
    return {};
  std::wstring names(length, L'\0'); // each ends in NUL, and so does the list
  if (GetUserPreferredUILanguages(MUI_LANGUAGE_NAME, &count, names.data(), &length) == 0)
    return {};
  std::vector<std::string> languages;
  for (std::size_t at = 0; at < names.size() && names[at] != L'\0';) {
    const auto end = (std::min)(names.find(L'\0', at), names.size());
    languages.emplace_back();
    for (const auto c : names.substr(at, end - at))
      languages.back() += static_cast<char>(c); // they are in ASCII
    at = end + 1;
  }
  return languages;
}
#else
std::vector<std::string> systemLanguages()
{
  return {};
}
#endif

}
