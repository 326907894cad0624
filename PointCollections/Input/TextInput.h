// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <istream>
#include <optional>
#include <string>

/// Reading text, with messages for the user where that fails.
namespace Tarvik::PointCollections {

/// The longest line that readLine() takes, in bytes: far beyond what anyone writes, and a bound
/// for what an endless input can take up.
constexpr std::size_t longestLine = std::size_t(1) << 20U;

/// Opens a file for reading.
/// @throws UserError when there is no such file, it is a directory or it cannot be opened
std::ifstream openText(const std::filesystem::path& path);

/// All bytes of a file. A file with a NUL byte is no text and not read beyond it.
/// @throws UserError as openText() does, and when reading fails or a NUL byte comes
std::string readText(const std::filesystem::path& path);

/// The next line without its line end (LF or CRLF); nothing at the end of the input. The last
/// line need not be ended.
/// @throws UserError when the line is longer than longestLine or reading fails
std::optional<std::string> readLine(std::istream& input);

}
