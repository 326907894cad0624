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

/// Which of the numbers belong to the longest ascending subsequence. The numbers are different.
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
  for (auto i = last.empty() ? nowhere : last.back(); i != nowhere; i = previous[i])
    belongs[i] = true;
  return belongs;
}

/// Whether a new order of so many entries takes less memory than so many moves.
inline bool isSmallerAsOrder(std::size_t entries, std::size_t moves)
{
  constexpr std::size_t most = (std::numeric_limits<std::uint32_t>::max)();
  return moves > 1 && entries <= most &&
         entries * sizeof(std::uint32_t) + sizeof(ListEdit::order) < moves * sizeof(MovedRun);
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

/// The edit from one list to another. As few entries as possible leave, come or move.
///
/// Of entries that are equal, the first one of the list before counts as the first one of the list
/// after, and so on. So among entries that a list has several times, one more than necessary may
/// move.
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
  const std::vector<T> middleBefore(begins.first, ends.first.base());
  const std::vector<T> middleAfter(begins.second, ends.second.base());

  std::vector<std::size_t> matches(middleAfter.size(), nowhere);
  Search<T>(middleBefore).match(middleAfter, [&matches](std::size_t position, std::size_t entry) {
    matches[position] = entry;
  });
  setChanges(edit, matches,
             {static_cast<std::size_t>(begins.first - before.begin()), middleBefore.size()});
  return edit;
}

}
