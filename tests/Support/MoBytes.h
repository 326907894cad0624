// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Tarvik {

enum class ByteOrder { Little, Big };

/// One text in a .mo file. The key is "text" or "context\4text"; with plural forms, a NUL and the
/// plural follow. Forms are separated by NULs.
using MoEntry = std::pair<std::string, std::string>;

/// A NUL, to put strings with one together.
inline const std::string nul(1, '\0');

inline void
setMoWord(std::string& bytes, std::size_t position, std::uint32_t value, ByteOrder order)
{
  for (std::size_t i = 0; i < 4; ++i) {
    const auto shift = 8U * (order == ByteOrder::Little ? i : 3 - i);
    bytes[position + i] = static_cast<char>(static_cast<unsigned char>(value >> shift));
  }
}

/// The bytes of a .mo file with these entries, which are in the order of their keys.
inline std::string moBytes(const std::vector<MoEntry>& entries, ByteOrder order = ByteOrder::Little)
{
  constexpr std::size_t startSize = 28;
  const auto count = static_cast<std::uint32_t>(entries.size());
  std::string bytes(startSize + 16 * entries.size(), '\0');
  std::size_t word = 0;
  const auto put = [&](std::size_t value) {
    setMoWord(bytes, word, static_cast<std::uint32_t>(value), order);
    word += 4;
  };
  put(0x950412de);
  put(0);
  put(count);
  put(startSize);
  put(startSize + 8 * entries.size());
  put(0);
  put(0);
  const auto add = [&](const std::string& text) {
    put(text.size());
    put(bytes.size());
    bytes += text + nul;
  };
  for (const auto& entry : entries)
    add(entry.first);
  for (const auto& entry : entries)
    add(entry.second);
  return bytes;
}

}
