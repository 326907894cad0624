// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

/// UTF-8, as strict as the Unicode standard asks: no overlong forms, no surrogates, nothing above
/// U+10FFFF.
namespace Tarvik::PointCollections::Utf8 {

/// How many bytes the character at the start of the text takes, 1 to 4; 0 when the text is empty
/// or starts with something else than a character.
std::size_t characterLength(std::string_view text);

/// Where the first byte stands that is not part of a character; `npos` when all are.
std::size_t findInvalid(std::string_view text);

/// How many characters the text has; each invalid byte counts as one.
std::size_t countCharacters(std::string_view text);

/// The characters as numbers; each invalid byte becomes U+FFFD.
std::u32string decode(std::string_view text);

/// The first `count` characters, or all when there are no more.
std::string_view prefix(std::string_view text, std::size_t count);

/// The path that the text names. std::filesystem takes a `char` text in another encoding on some
/// systems.
std::filesystem::path toPath(std::string_view text);

/// The path as text.
std::string fromPath(const std::filesystem::path& path);

}
