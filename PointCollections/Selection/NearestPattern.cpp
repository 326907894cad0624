// SPDX-License-Identifier: MIT
#include "PointCollections/Selection/NearestPattern.h"

#include "PointCollections/Selection/Pattern.h"
#include "PointCollections/Text/NearestName.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Utf8.h"

#include <algorithm>
#include <optional>
#include <unordered_set>

namespace Tarvik::PointCollections {
namespace {

constexpr std::size_t longestStart = 64;

/// Adds the starts of the names with so many characters, without blanks at their ends.
void addStarts(std::vector<std::string>& starts,
               const std::vector<std::string>& names,
               std::size_t characters)
{
  std::unordered_set<std::string_view> seen;
  for (const std::string& name : names) {
    auto start = Utf8::prefix(name, characters);
    start = start.substr(0, start.find_last_not_of(' ') + 1);
    if (!start.empty() && seen.insert(start).second)
      starts.emplace_back(start);
  }
}

/// Nothing if no start is close.
std::optional<Word> nearestPattern(const Word& pattern, const std::vector<std::string>& names)
{
  const auto end = std::min(pattern.findPlain("*?"), pattern.text.size());
  const auto start = pattern.text.substr(0, end);
  const auto length = Utf8::countCharacters(start);
  if (length < 2 || length > longestStart)
    return std::nullopt;
  const auto rest = asTyped(pattern.part(end, pattern.text.size()));
  std::vector<std::string> starts;
  for (const auto characters : {length, length + 1, length - 1})
    addStarts(starts, names, characters);
  const auto nearest = nearestName(start, starts);
  if (!nearest)
    return std::nullopt;
  const auto other = splitWords(asTyped(*nearest) + rest).front();
  const Pattern matcher(other);
  const bool matchesAny = std::any_of(names.begin(), names.end(),
                                      [&](const auto& name) { return matcher.matches(name); });
  return matchesAny ? std::optional(other) : std::nullopt;
}

}

std::string patternSuggestion(const Word& pattern,
                              const std::vector<std::string>& names,
                              std::string_view otherwise)
{
  const auto nearest = nearestPattern(pattern, names);
  return nearest ? questionAbout(asTyped(*nearest)) : hint(otherwise);
}

}
