// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Bytes as tests write them: "04 03 02 01".
namespace Tarvik {

using Bytes = std::vector<std::byte>;

inline std::string hex(std::span<const std::byte> bytes)
{
  constexpr std::string_view digits = "0123456789abcdef";
  std::string text;
  for (const std::byte byte : bytes) {
    if (!text.empty())
      text += ' ';
    text += digits[std::to_integer<std::size_t>(byte >> 4)];
    text += digits[std::to_integer<std::size_t>(byte & std::byte{0x0F})];
  }
  return text;
}

inline Bytes fromHex(std::string_view text)
{
  constexpr std::string_view digits = "0123456789abcdef";
  Bytes bytes;
  for (std::size_t i = 0; i + 1 < text.size(); i += 3)
    bytes.push_back(static_cast<std::byte>(digits.find(text[i]) << 4U | digits.find(text[i + 1])));
  return bytes;
}

}
