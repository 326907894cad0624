// SPDX-License-Identifier: MIT
#include "PointCollections/Text/NearestName.h"

#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Spelling.h"
#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/Utf8.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace Tarvik::PointCollections {
namespace {

constexpr std::size_t longestWord = 64;
using Row = std::array<std::size_t, longestWord + 1>;

std::u32string folded(std::string_view text)
{
  auto result = Utf8::decode(text);
  std::transform(result.begin(), result.end(), result.begin(),
                 [](char32_t c) { return c >= U'A' && c <= U'Z' ? c + (U'a' - U'A') : c; });
  return result;
}

/// Whether a text of so many bytes, one to four for each character, may have a length from
/// `least` to `most`.
bool mayHaveLength(std::string_view text, std::size_t least, std::size_t most)
{
  return text.size() >= least && text.size() <= 4 * most;
}

/// Drops the characters that both texts start and end with. The distance stays the same.
void dropCommonEnds(std::u32string_view& a, std::u32string_view& b)
{
  const auto starts = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
  a.remove_prefix(static_cast<std::size_t>(starts.first - a.begin()));
  b.remove_prefix(static_cast<std::size_t>(starts.second - b.begin()));
  const auto ends = std::mismatch(a.rbegin(), a.rend(), b.rbegin(), b.rend());
  a.remove_suffix(static_cast<std::size_t>(ends.first - a.rbegin()));
  b.remove_suffix(static_cast<std::size_t>(ends.second - b.rbegin()));
}

/// How many insertions, deletions, replacements and swaps of neighbours turn one into the other;
/// `limit` if there are that many or more. Most names differ early, and take a few rows only.
std::size_t editDistance(std::u32string_view a, std::u32string_view b, std::size_t limit)
{
  dropCommonEnds(a, b);
  Row beforeLast{};
  Row last{};
  Row current{};
  for (std::size_t j = 0; j <= b.size(); ++j)
    last[j] = j;
  std::size_t leastOfLast = 0;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    current[0] = i;
    std::size_t least = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t replaced = last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
      current[j] = std::min({last[j] + 1, current[j - 1] + 1, replaced});
      if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
        current[j] = std::min(current[j], beforeLast[j - 2] + 1);
      least = std::min(least, current[j]);
    }
    if (least >= limit && leastOfLast + 1 >= limit) // a later row is made of these two
      return limit;
    leastOfLast = least;
    beforeLast = last;
    last = current;
  }
  return std::min(last[b.size()], limit);
}

std::size_t lengthDifference(const std::u32string& a, const std::u32string& b)
{
  return a.size() > b.size() ? a.size() - b.size() : b.size() - a.size();
}

}

std::optional<std::string> nearestName(std::string_view word,
                                       const std::vector<std::string>& candidates)
{
  const auto wanted = folded(Utf8::prefix(word, longestWord + 1));
  if (wanted.empty() || wanted.size() > longestWord)
    return std::nullopt;

  const std::size_t most =
      std::min({std::max<std::size_t>(1, wanted.size() / 3), std::size_t(3), wanted.size() - 1});
  std::size_t best = most + 1;
  std::optional<std::string> result;
  for (const std::string& candidate : candidates) {
    if (!mayHaveLength(candidate, wanted.size() - most, longestWord))
      continue;
    const auto name = folded(candidate);
    if (name.size() > longestWord || lengthDifference(name, wanted) >= best)
      continue;
    const std::size_t distance = editDistance(wanted, name, best);
    if (distance < best && distance < std::max<std::size_t>(1, name.size())) {
      best = distance;
      result = candidate;
    }
  }
  if (result)
    return result;

  const auto start = std::string(word) + ' ';
  const auto longer = std::find_if(candidates.begin(), candidates.end(), [&](const auto& name) {
    return name.starts_with(start) && name.size() <= 4 * longestWord;
  });
  return longer != candidates.end() ? std::optional(*longer) : std::nullopt;
}

std::optional<std::string> lookalike(std::string_view word,
                                     const std::vector<std::string>& candidates)
{
  const auto found = std::find_if(candidates.begin(), candidates.end(), Lookalikes(word));
  return found != candidates.end() ? std::optional(*found) : std::nullopt;
}

std::string questionAbout(const std::string& typed)
{
  // For translators: follows a message, as in "there is no group named Berlni"
  return translated("; did you mean {}?", typed);
}

std::string hint(std::string_view text)
{
  // For translators: joins a hint to the message before it, as in "there is no group named
  // Berlni; show lists the groups"
  return translated("; {}", text);
}

std::string suggestion(std::string_view word,
                       const std::vector<std::string>& candidates,
                       std::string_view otherwise)
{
  if (const auto same = lookalike(word, candidates))
    // For translators: follows a message, as in "there is no group named Berlin"
    return translated("; did you mean {}, which looks the same but is written differently?",
                      spelledApart(*same, word));
  const auto nearest = nearestName(word, candidates);
  return nearest ? questionAbout(asTyped(*nearest)) : hint(otherwise);
}

}
