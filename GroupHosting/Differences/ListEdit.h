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

/// A list that is put together from runs of another list.
class Pieces {
public:
  std::size_t size() const { return m_size; }

  /// Runs of the other list, in order. A run at nowhere has entries that are not in that list.
  const std::vector<Run>& runs() const { return m_runs; }

  /// Appends a run of the other list.
  void append(const Run& run)
  {
    if (run.count == 0)
      return;
    m_starts.push_back(m_size);
    m_runs.push_back(run);
    m_size += run.count;
  }

  /// Appends what other pieces have at these positions.
  void append(const Pieces& pieces, Run positions)
  {
    const auto after =
        std::upper_bound(pieces.m_starts.begin(), pieces.m_starts.end(), positions.position);
    auto index = static_cast<std::size_t>(after - pieces.m_starts.begin());
    while (positions.count > 0) {
      const auto& run = pieces.m_runs[index - 1];
      const auto skipped = positions.position - pieces.m_starts[index - 1];
      const auto count = (std::min)(run.count - skipped, positions.count);
      append({run.position + skipped, count});
      positions.position += count;
      positions.count -= count;
      ++index;
    }
  }

private:
  std::vector<Run> m_runs;
  std::vector<std::size_t> m_starts; ///< of the runs, in this list
  std::size_t m_size = 0;
};

/// The entries of the list before that are kept, in their old order.
inline Pieces keptPieces(const ListEdit& edit)
{
  Pieces kept;
  std::size_t next = 0;
  for (const auto& run : edit.removed) {
    kept.append({next, run.position - next});
    next = run.position + run.count;
  }
  kept.append({next, edit.sizeBefore - next});
  return kept;
}

/// The entries that are kept, in their new order, when `order` has it.
inline Pieces reorderedPieces(const ListEdit& edit, const Pieces& kept)
{
  Pieces result;
  for (std::size_t i = 0; i < edit.order.size();) {
    const auto begin = i++;
    while (i < edit.order.size() && edit.order[i] == edit.order[i - 1] + 1)
      ++i;
    result.append(kept, {edit.order[begin], i - begin});
  }
  return result;
}

/// The entries that are kept, in their new order, when `moved` has it.
inline Pieces movedPieces(const ListEdit& edit, const Pieces& kept)
{
  auto byOldPlace = edit.moved;
  std::sort(byOldPlace.begin(), byOldPlace.end(),
            [](const MovedRun& a, const MovedRun& b) { return a.from < b.from; });
  byOldPlace.push_back({kept.size(), 0, kept.size()}); // no run is after this one
  Pieces result;
  std::size_t next = 0; // of the entries that stay, with runs that move between them
  auto passing = byOldPlace.begin();
  const auto appendThoseThatStay = [&](std::size_t end) {
    while (result.size() < end) {
      const auto count = (std::min)(end - result.size(), passing->from - next);
      result.append(kept, {next, count});
      next += count;
      if (next == passing->from)
        next += passing++->count;
    }
  };
  for (const auto& run : edit.moved) {
    appendThoseThatStay(run.to);
    result.append(kept, {run.from, run.count});
  }
  appendThoseThatStay(kept.size());
  return result;
}

/// The list after, from runs of the list before. Entries that come are at nowhere.
inline Pieces piecesOf(const ListEdit& edit)
{
  auto kept = keptPieces(edit);
  if (!edit.order.empty())
    kept = reorderedPieces(edit, kept);
  else if (!edit.moved.empty())
    kept = movedPieces(edit, kept);

  Pieces result;
  std::size_t next = 0;
  for (const auto& run : edit.inserted) {
    const auto count = run.position - result.size();
    result.append(kept, {next, count});
    next += count;
    result.append({nowhere, run.count});
  }
  result.append(kept, {next, kept.size() - next});
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
