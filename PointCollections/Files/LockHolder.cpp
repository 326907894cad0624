// SPDX-License-Identifier: MIT
#include "PointCollections/Files/LockHolder.h"

#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>

namespace Tarvik::PointCollections {
namespace {

constexpr std::size_t longestHolder = 200; // characters
constexpr std::string_view beforeNumber = "process ";
constexpr std::string_view beforeProgram = " (";

}

std::string textOfHolder(std::uint64_t process, const std::string& program)
{
  return fmt::format("{}{}{}{})", beforeNumber, process, beforeProgram, program);
}

std::string shownHolder(std::string_view text)
{
  if (text.empty()) // For translators: as the subject of "{} saves in this file at this moment"
    return translated("another program");
  auto shown = printable(abbreviated(text, longestHolder));
  const auto start = std::min(beforeNumber.size(), shown.size());
  const auto end = std::min(shown.find_first_not_of("0123456789", start), shown.size());
  const auto rest = std::string_view(shown).substr(end);
  const bool isOurs = shown.starts_with(beforeNumber) && end > start &&
                      rest.starts_with(beforeProgram) && rest.ends_with(')');
  if (!isOurs)
    return shown;
  // For translators: the number and the name of a program, as the subject of "{} saves in this
  // file at this moment"
  return translated("process {} ({})", std::string_view(shown).substr(start, end - start),
                    rest.substr(beforeProgram.size(), rest.size() - beforeProgram.size() - 1));
}

}
