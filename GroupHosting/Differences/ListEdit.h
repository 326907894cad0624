// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/GroupCommands/ElementTable.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <utility>
#include <vector>

namespace Tarvik::GroupLists {

/// Consecutive positions in a list.
struct Run {
  std::size_t position;
  std::size_t count;
};

/// Consecutive entries of a list that go to another place, together with others.
struct MovedRun {
  std::size_t from; ///< in the order before all moves
  std::size_t count;
  std::size_t to; ///< in the order after all moves
};

/// How one list becomes another, without the contents: what leaves, then what changes its place
/// among the entries that are kept, then what comes. Not for hosts.
struct ListEdit {
  std::size_t sizeBefore = 0;
  std::size_t sizeAfter = 0;
  std::vector<Run> removed;    ///< ascending; positions in the list before
  std::vector<MovedRun> moved; ///< ascending by `to`; positions among the entries that are kept
  std::vector<std::uint32_t> order; ///< instead of `moved`: by new position, the old one
  std::vector<Run> inserted;        ///< ascending; positions in the list after
};

/// Whether nothing changes.
inline bool isEmpty(const ListEdit& edit)
{
  return edit.removed.empty() && edit.moved.empty() && edit.order.empty() && edit.inserted.empty();
}

/// How many entries the runs have.
inline std::size_t totalOf(const std::vector<Run>& runs)
{
  return std::accumulate(runs.begin(), runs.end(), std::size_t{0},
                         [](std::size_t sum, const Run& run) { return sum + run.count; });
}

/// The edit that makes the list before of the list after.
inline ListEdit reversed(const ListEdit& edit)
{
  ListEdit result{edit.sizeAfter, edit.sizeBefore, edit.inserted, edit.moved, {}, edit.removed};
  for (auto& run : result.moved)
    std::swap(run.from, run.to);
  std::sort(result.moved.begin(), result.moved.end(),
            [](const MovedRun& a, const MovedRun& b) { return a.to < b.to; });
  result.order.resize(edit.order.size());
  for (std::size_t i = 0; i < edit.order.size(); ++i)
    result.order[edit.order[i]] = static_cast<std::uint32_t>(i);
  return result;
}

/// Puts the entries that are kept into their new order.
inline std::vector<std::size_t> rearranged(const std::vector<std::size_t>& kept,
                                           const ListEdit& edit)
{
  std::vector<std::size_t> result;
  result.reserve(kept.size());
  for (const auto position : edit.order)
    result.push_back(kept[position]);
  if (!edit.order.empty())
    return result;

  auto byOldPlace = edit.moved;
  std::sort(byOldPlace.begin(), byOldPlace.end(),
            [](const MovedRun& a, const MovedRun& b) { return a.from < b.from; });
  std::size_t next = 0; // of the entries that stay
  auto passed = byOldPlace.begin();
  const auto appendThoseThatStay = [&](std::size_t end) {
    while (result.size() < end) {
      if (passed != byOldPlace.end() && passed->from == next)
        next += passed++->count;
      else
        result.push_back(kept[next++]);
    }
  };
  for (const auto& run : edit.moved) {
    appendThoseThatStay(run.to);
    for (std::size_t i = 0; i < run.count; ++i)
      result.push_back(kept[run.from + i]);
  }
  appendThoseThatStay(kept.size());
  return result;
}

/// For each position after the edit the position before it, or nowhere for an entry that comes.
inline std::vector<std::size_t> positionsBefore(const ListEdit& edit)
{
  std::vector<std::size_t> kept;
  kept.reserve(edit.sizeBefore);
  std::size_t next = 0;
  const auto keepUpTo = [&kept, &next](std::size_t end) {
    for (; next < end; ++next)
      kept.push_back(next);
  };
  for (const auto& run : edit.removed) {
    keepUpTo(run.position);
    next += run.count;
  }
  keepUpTo(edit.sizeBefore);
  if (!edit.moved.empty() || !edit.order.empty())
    kept = rearranged(kept, edit);

  std::vector<std::size_t> result;
  result.reserve(edit.sizeAfter);
  auto source = kept.begin();
  const auto takeUpTo = [&result, &source](std::size_t end) {
    const auto count = static_cast<std::ptrdiff_t>(end - result.size());
    result.insert(result.end(), source, source + count);
    source += count;
  };
  for (const auto& run : edit.inserted) {
    takeUpTo(run.position);
    result.insert(result.end(), run.count, nowhere);
  }
  takeUpTo(edit.sizeAfter);
  return result;
}

/// The memory of a vector, without what its entries keep elsewhere.
template <class Entry>
std::size_t bytesOf(const std::vector<Entry>& entries)
{
  return entries.capacity() * sizeof(Entry);
}

/// The memory of an edit, without the object itself.
inline std::size_t bytesOf(const ListEdit& edit)
{
  return bytesOf(edit.removed) + bytesOf(edit.moved) + bytesOf(edit.order) + bytesOf(edit.inserted);
}

}
