// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <istream>
#include <optional>
#include <string>

/// Reading text, with error messages for the user.
namespace Tarvik::PointCollections {

/// The longest line that readLine() accepts, in bytes. It limits the memory that an endless input
/// can take. A generated script can go past it with a file of names: see SelectionTerm.h.
constexpr std::size_t longestLine = std::size_t(16) << 20U;

/// Opens a file for reading.
/// @throws UserError if it does not exist, is a directory or cannot be opened
std::ifstream openText(const std::filesystem::path& path);

/// All bytes of a text file.
/// @throws UserError as openText() does, and if reading fails or the file has a NUL byte
std::string readText(const std::filesystem::path& path);

/// All bytes of a text that comes from somewhere else.
/// @param name  what error messages call it
/// @throws UserError if reading fails or the text has a NUL byte
std::string readText(std::istream& input, const std::string& name);

/// The next line without its line end (LF or CRLF); nothing at the end of the input. The last line
/// need not have a line end.
/// @throws UserError if the line is longer than longestLine, or reading fails
std::optional<std::string> readLine(std::istream& input);

}
