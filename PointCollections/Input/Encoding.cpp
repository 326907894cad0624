// SPDX-License-Identifier: MIT
#include "PointCollections/Input/Encoding.h"

#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/UserError.h"
#include "PointCollections/Text/Utf8.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>

namespace Tarvik::PointCollections {
namespace {

using namespace std::string_view_literals;

constexpr auto byteOrderMark = "\xEF\xBB\xBF"sv;

/// Whether each second byte is NUL, from that one on, and no other byte is: the Latin letters,
/// digits and separators of a table look like that in UTF-16.
bool hasNulAtEverySecond(std::string_view bytes, std::size_t first)
{
  if (bytes.size() < 4)
    return false;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if ((bytes[i] == '\0') != (i % 2 == first))
      return false;
  }
  return true;
}

/// Its name; empty if it may be UTF-8.
std::string_view encodingOf(std::string_view start)
{
  if (start.starts_with("\xFF\xFE\0\0"sv) || start.starts_with("\0\0\xFE\xFF"sv))
    return "UTF-32";
  if (start.starts_with("\xFF\xFE"sv) || start.starts_with("\xFE\xFF"sv))
    return "UTF-16";
  constexpr std::size_t enough = 16;
  const auto first = start.substr(0, std::min(start.size(), enough));
  return hasNulAtEverySecond(first, 0) || hasNulAtEverySecond(first, 1) ? "UTF-16" : "";
}

}

void refuseOtherEncodings(std::string_view start)
{
  const auto encoding = encodingOf(start);
  if (!encoding.empty())
    throw UserError(translated("this text is in {}; save it as UTF-8", encoding));
}

void refuseOtherEncodings(std::string_view start, const std::string& name)
{
  try {
    refuseOtherEncodings(start);
  } catch (const UserError& error) {
    throw UserError(fmt::format("{}: {}", name, error.what()));
  }
}

std::string_view checkedUtf8(std::string_view text, const std::string& name)
{
  if (text.starts_with(byteOrderMark))
    text.remove_prefix(byteOrderMark.size());
  refuseOtherEncodings(text, name);
  const std::size_t invalid = Utf8::findInvalid(text);
  if (invalid == std::string_view::npos)
    return text;
  const auto before = text.substr(0, invalid);
  throw UserError(fmt::format("{}:{}: {}", name, std::count(before.begin(), before.end(), '\n') + 1,
                              translated("the byte {} is not UTF-8; save the file as UTF-8",
                                         printable(text.substr(invalid, 1)))));
}

}
