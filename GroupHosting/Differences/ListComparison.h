// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Differences/ListEdit.h"
#include "HighLevelServices/GroupCommands/Search.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>
#include <numeric>
#include <optional>
#include <utility>
#include <vector>

/// Finds the smallest edit from one list to another.
namespace Tarvik::GroupLists {

/// Appends a position, to the last run if it is the next one.
inline void append(std::vector<Run>& runs, std::size_t position)
{
  if (!runs.empty() && runs.back().position + runs.back().count == position)
    ++runs.back().count;
  else
    runs.push_back({position, 1});
}

/// Which of the numbers belong to the longest ascending subsequence. The numbers are different, and
/// there is one at least.
///
/// `last[n]` is the index of the smallest number that ends an ascending subsequence of n + 1
/// numbers. Each number is put after the longest one that it can continue; going back from the last
/// one gives the longest of all.
inline std::vector<bool> longestAscending(const std::vector<std::size_t>& numbers)
{
  std::vector<std::size_t> last;
  std::vector<std::size_t> previous(numbers.size(), nowhere);
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    const auto place = std::lower_bound(
        last.begin(), last.end(), numbers[i],
        [&numbers](std::size_t index, std::size_t number) { return numbers[index] < number; });
    if (place != last.begin())
      previous[i] = *(place - 1);
    if (place != last.end())
      *place = i;
    else
      last.push_back(i);
  }
  std::vector<bool> belongs(numbers.size());
  for (auto i = last.back(); i != nowhere; i = previous[i])
    belongs[i] = true;
  return belongs;
}

/// Whether a new order of so many entries takes less memory than so many moves.
inline bool isSmallerAsOrder(std::size_t entries, std::size_t moves)
{
  constexpr std::size_t most = (std::numeric_limits<std::uint32_t>::max)();
  const bool fits = entries <= most;
  const auto bytes = entries * sizeof(std::uint32_t) + sizeof(std::vector<std::uint32_t>);
  return fits & (bytes < moves * sizeof(MovedRun));
}

/// Sets `moved` or `order` of an edit.
/// @param oldPlaces   of the entries that are kept and that are not at the begin or the end, in
/// their
///                    new order: their old position among these
/// @param begin       how many entries are kept before these
/// @param numberKept  how many entries are kept in all
inline void setMoves(ListEdit& edit,
                     const std::vector<std::size_t>& oldPlaces,
                     std::size_t begin,
                     std::size_t numberKept)
{
  if (std::is_sorted(oldPlaces.begin(), oldPlaces.end()))
    return;
  const auto stays = longestAscending(oldPlaces);
  for (std::size_t i = 0; i < oldPlaces.size(); ++i) {
    if (stays[i])
      continue;
    const auto from = begin + oldPlaces[i];
    const auto to = begin + i;
    auto* const last = edit.moved.empty() ? nullptr : &edit.moved.back();
    if (last != nullptr && last->from + last->count == from && last->to + last->count == to)
      ++last->count;
    else
      edit.moved.push_back({from, 1, to});
  }
  if (!isSmallerAsOrder(numberKept, edit.moved.size()))
    return;
  edit.moved = {};
  edit.order.resize(numberKept);
  std::iota(edit.order.begin(), edit.order.end(), std::uint32_t{0});
  for (std::size_t i = 0; i < oldPlaces.size(); ++i)
    edit.order[begin + i] = static_cast<std::uint32_t>(begin + oldPlaces[i]);
}

/// The edit for lists of which only the middle is different.
/// @param edit     with both sizes
/// @param matches  for each entry in the middle of the list after: its position in the middle of
/// the
///                 list before, or nowhere
/// @param middle   the middle of the list before
inline void setChanges(ListEdit& edit, const std::vector<std::size_t>& matches, const Run& middle)
{
  std::vector<bool> isKept(middle.count);
  for (std::size_t i = 0; i < matches.size(); ++i) {
    if (matches[i] == nowhere)
      append(edit.inserted, middle.position + i);
    else
      isKept[matches[i]] = true;
  }
  std::vector<std::size_t> places(middle.count); // among those that are kept
  std::size_t numberKept = 0;
  for (std::size_t i = 0; i < middle.count; ++i) {
    places[i] = numberKept;
    if (isKept[i])
      ++numberKept;
    else
      append(edit.removed, middle.position + i);
  }
  std::vector<std::size_t> oldPlaces;
  oldPlaces.reserve(numberKept);
  for (const auto match : matches) {
    if (match != nowhere)
      oldPlaces.push_back(places[match]);
  }
  setMoves(edit, oldPlaces, middle.position, edit.sizeBefore - (middle.count - numberKept));
  edit.removed.shrink_to_fit();
  edit.moved.shrink_to_fit();
  edit.inserted.shrink_to_fit();
}

/// Finds some entries among others, in the same order.
/// @return by entry: its position among the others; nothing when they are not all there in order
template <class Iterator>
std::optional<std::vector<std::size_t>>
positionsInOrder(Iterator first, Iterator last, Iterator others, Iterator end)
{
  if (last - first > end - others)
    return {};
  std::vector<std::size_t> positions;
  positions.reserve(static_cast<std::size_t>(last - first));
  const auto begin = others;
  for (; first != last; ++first) {
    others = std::find(others, end, *first);
    if (others == end)
      return {};
    positions.push_back(static_cast<std::size_t>(others++ - begin));
  }
  return positions;
}

/// For each entry of the list after its position in the list before, or nowhere.
template <class Iterator>
std::vector<std::size_t>
matchesOf(Iterator beginBefore, Iterator endBefore, Iterator beginAfter, Iterator endAfter)
{
  if (auto kept = positionsInOrder(beginAfter, endAfter, beginBefore, endBefore))
    return *std::move(kept); // entries only leave
  std::vector<std::size_t> matches(static_cast<std::size_t>(endAfter - beginAfter), nowhere);
  if (const auto kept = positionsInOrder(beginBefore, endBefore, beginAfter, endAfter)) {
    for (std::size_t i = 0; i < kept->size(); ++i) // entries only come
      matches[(*kept)[i]] = i;
    return matches;
  }
  const std::vector before(beginBefore, endBefore);
  const std::vector after(beginAfter, endAfter);
  Search<typename std::iterator_traits<Iterator>::value_type>(before).match(
      after, [&matches](std::size_t position, std::size_t entry) { matches[position] = entry; });
  return matches;
}

/// The edit from one list to another. As few entries as possible leave, come or move, unless a list
/// has the same entry several times: then one of these may move although it could stay.
template <class T>
ListEdit editBetween(const std::vector<T>& before, const std::vector<T>& after)
{
  ListEdit edit;
  edit.sizeBefore = before.size();
  edit.sizeAfter = after.size();
  const auto begins = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
  if (begins.first == before.end() && begins.second == after.end())
    return edit;
  const auto ends = std::mismatch(before.rbegin(), std::make_reverse_iterator(begins.first),
                                  after.rbegin(), std::make_reverse_iterator(begins.second));
  const auto endBefore = ends.first.base();
  setChanges(edit, matchesOf(begins.first, endBefore, begins.second, ends.second.base()),
             {static_cast<std::size_t>(begins.first - before.begin()),
              static_cast<std::size_t>(endBefore - begins.first)});
  return edit;
}

}
