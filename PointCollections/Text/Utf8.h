// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

/// UTF-8, as strict as the Unicode standard requires: no overlong forms, no surrogates, nothing
/// above U+10FFFF.
namespace Tarvik::PointCollections::Utf8 {

/// The size of the first character in bytes, 1 to 4; 0 if the text is empty or does not start with
/// a valid character.
std::size_t characterLength(std::string_view text);

/// The index of the first byte that is not part of a character; `npos` if there is none.
std::size_t findInvalid(std::string_view text);

/// Whether all characters are below U+0080.
bool isAscii(std::string_view text);

/// How many characters the text has; each invalid byte counts as one.
std::size_t countCharacters(std::string_view text);

/// The characters as numbers; each invalid byte becomes U+FFFD.
std::u32string decode(std::string_view text);

/// A character, which is not a surrogate and not above U+10FFFF, as text.
std::string encode(char32_t character);

/// The first `count` characters, or all if there are fewer.
std::string_view prefix(std::string_view text, std::size_t count);

/// The path that the text names. std::filesystem itself would assume another encoding on some
/// systems.
std::filesystem::path toPath(std::string_view text);

/// The path as text.
std::string fromPath(const std::filesystem::path& path);

}
