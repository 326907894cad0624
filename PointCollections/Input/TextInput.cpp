// SPDX-License-Identifier: MIT
#include "PointCollections/Input/TextInput.h"

#include "PointCollections/Input/Encoding.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/SystemReason.h"
#include "PointCollections/Text/Translated.h"
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

[[noreturn]] void fail(const std::string& name, const std::string& message)
{
  throw UserError(fmt::format("{}: {}", name, message));
}

[[noreturn]] void refuseNul(const std::string& name, std::string_view text, std::size_t nul)
{
  refuseOtherEncodings(text, name);
  const auto before = text.substr(0, nul);
  const auto line = std::count(before.begin(), before.end(), '\n') + 1;
  throw UserError(fmt::format("{}:{}: {}", name, line,
                              translated("a NUL byte; expected a text file in UTF-8")));
}

}

std::ifstream openText(const std::filesystem::path& path)
{
  std::error_code ignored;
  if (std::filesystem::is_directory(path, ignored))
    fail(shown(path), translated("this is a directory; expected a file"));
  errno = 0;
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    const int reason = errno;
    fail(shown(path), reason != 0 ? translated("the file cannot be opened ({})",
                                               systemReason({reason, std::generic_category()}))
                                  : translated("the file cannot be opened"));
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
    fail(name, translated("reading the file failed"));
  return text;
}

std::optional<std::string> readLine(std::istream& input)
{
  std::string line;
  char c = 0;
  try {
    while (input.get(c) && c != '\n') {
      if (line.size() == longestLine)
        throw UserError(translatedCount(longestLine,
                                        "a line of more than {} byte; expected a shorter one",
                                        "a line of more than {} bytes; expected a shorter one"));
      line += c;
    }
  } catch (const std::bad_alloc&) {
    input.ignore(longestLine, '\n'); // the rest would be taken for a line of its own
    throw;
  }
  if (input.bad())
    throw UserError(translated("reading failed"));
  if (!input && line.empty())
    return std::nullopt;
  if (line.ends_with('\r'))
    line.pop_back();
  return line;
}

}
