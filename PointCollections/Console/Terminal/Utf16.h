// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace Tarvik::PointCollections {

/// The UTF-16 text in UTF-8. Half a surrogate pair becomes U+FFFD.
inline std::string toUtf8(std::wstring_view text)
{
  const auto convert = [text](char* result, int size) {
    return WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), result, size,
                               nullptr, nullptr);
  };
  std::string result(static_cast<std::size_t>(convert(nullptr, 0)), '\0');
  convert(result.data(), static_cast<int>(result.size()));
  return result;
}

}
