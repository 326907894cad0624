// SPDX-License-Identifier: MIT
#include "PointCollections/Input/AlikeNames.h"

#include "PointCollections/Text/Spelling.h"
#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/Utf8.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>

namespace Tarvik::PointCollections {
namespace {

/// The ASCII names by their appearance. No two of them look the same.
std::unordered_map<std::u32string, std::string_view>
asciiNames(const std::vector<PointCollection>& collections)
{
  std::unordered_map<std::u32string, std::string_view> names;
  for (const auto& each : collections) {
    if (Utf8::isAscii(each.name))
      names.try_emplace(std::u32string(each.name.begin(), each.name.end()), each.name);
  }
  return names;
}

}

std::string warningAboutAlikeNames(const std::vector<PointCollection>& collections)
{
  if (std::all_of(collections.begin(), collections.end(),
                  [](const auto& each) { return Utf8::isAscii(each.name); }))
    return {};
  auto names = asciiNames(collections);
  std::string warning;
  std::size_t count = 0;
  for (const auto& each : collections) {
    if (Utf8::isAscii(each.name))
      continue;
    const auto [found, isNew] = names.try_emplace(appearanceOf(each.name), each.name);
    if (isNew || count++ > 0)
      continue;
    warning =
        translated("the names {} and {} look the same, but are written differently; they are two "
                   "elements",
                   spelledApart(found->second, each.name), spelledApart(each.name, found->second));
  }
  if (count < 2)
    return warning;
  // For translators: follows a text about the names of two elements, which are a pair
  return warning + translatedCount(count - 1, "; the same goes for {} more pair",
                                   "; the same goes for {} more pairs");
}

}
