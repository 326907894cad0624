// SPDX-License-Identifier: MIT
#include "PointCollections/Input/TextInput.h"

#include "PointCollections/Input/Encoding.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/UserError.h"
#include "PointCollections/Text/Utf8.h"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <new>
#include <string_view>
#include <system_error>

namespace Tarvik::PointCollections {
namespace {

std::string shown(const std::filesystem::path& path)
{
  return path.empty() ? "\"\"" : printable(Utf8::fromPath(path));
}

[[noreturn]] void refuseNul(const std::string& name, std::string_view text, std::size_t nul)
{
  refuseOtherEncodings(text, name);
  const auto before = text.substr(0, nul);
  const auto line = std::count(before.begin(), before.end(), '\n') + 1;
  throw UserError(fmt::format("{}:{}: a NUL byte; expected a text file in UTF-8", name, line));
}

}

std::ifstream openText(const std::filesystem::path& path)
{
  std::error_code ignored;
  if (std::filesystem::is_directory(path, ignored))
    throw UserError(fmt::format("{}: this is a directory; expected a file", shown(path)));
  errno = 0;
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    const int reason = errno;
    throw UserError(fmt::format("{}: the file cannot be opened{}", shown(path),
                                reason != 0 ? " (" + std::generic_category().message(reason) + ")"
                                            : std::string()));
  }
  return file;
}

std::string readText(const std::filesystem::path& path)
{
  auto file = openText(path);
  return readText(file, shown(path));
}

std::string readText(std::istream& input, const std::string& name)
{
  constexpr std::size_t chunk = std::size_t(1) << 20U;
  std::string text;
  while (input) {
    const std::size_t start = text.size();
    text.resize(start + chunk);
    input.read(text.data() + start, static_cast<std::streamsize>(chunk));
    text.resize(start + static_cast<std::size_t>(input.gcount()));
    const std::size_t nul = text.find('\0', start);
    if (nul != std::string::npos)
      refuseNul(name, text, nul);
  }
  if (input.bad())
    throw UserError(fmt::format("{}: reading the file failed", name));
  return text;
}

std::optional<std::string> readLine(std::istream& input)
{
  std::string line;
  char c = 0;
  try {
    while (input.get(c) && c != '\n') {
      if (line.size() == longestLine)
        throw UserError(
            fmt::format("a line of more than {} bytes; expected a shorter one", longestLine));
      line += c;
    }
  } catch (const std::bad_alloc&) {
    input.ignore(longestLine, '\n'); // the rest would be taken for a line of its own
    throw;
  }
  if (input.bad())
    throw UserError("reading failed");
  if (!input && line.empty())
    return std::nullopt;
  if (line.ends_with('\r'))
    line.pop_back();
  return line;
}

}
