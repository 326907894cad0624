// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Differences/ListEdit.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <vector>

namespace Tarvik::GroupLists {

/// The sum of the first of some numbers, while these change (a Fenwick tree). Not for hosts.
class PrefixSums {
public:
  /// So many zeros.
  explicit PrefixSums(std::size_t size) : m_sums(size + 1) {}

  void add(std::size_t index, std::size_t number)
  {
    for (++index; index < m_sums.size(); index += lowestBit(index))
      m_sums[index] += number;
  }

  /// Undoes add().
  void subtract(std::size_t index, std::size_t number) { add(index, 0 - number); }

  std::size_t sumOfFirst(std::size_t count) const
  {
    std::size_t sum = 0;
    for (; count > 0; count -= lowestBit(count))
      sum += m_sums[count];
    return sum;
  }

private:
  static std::size_t lowestBit(std::size_t number) { return number & (0 - number); }

  std::vector<std::size_t> m_sums; ///< from 1: of as many numbers as the index's lowest bit says
};

/// Turns moves that happen together into moves that happen one after another.
///
/// The runs move in the order of their new places, each to the place after the entry that comes
/// before it in the end. In the meantime the list has entries that are in their final order (those
/// that stay and those that have moved), and between them runs that wait for their move. So each
/// position is a number of entries in order plus a number of entries that wait.
/// @param moved  ascending by `to`
inline std::vector<MovedRun> oneByOne(const std::vector<MovedRun>& moved)
{
  std::vector<std::size_t> byOldPlace(moved.size());
  std::iota(byOldPlace.begin(), byOldPlace.end(), std::size_t{0});
  std::sort(byOldPlace.begin(), byOldPlace.end(),
            [&moved](std::size_t a, std::size_t b) { return moved[a].from < moved[b].from; });

  // How many entries stay before each run: in the old order and in the new one.
  std::vector<std::size_t> stayingBeforeOld;
  std::vector<std::size_t> ranks(moved.size());
  PrefixSums waiting(moved.size());
  std::size_t sum = 0;
  for (const auto run : byOldPlace) {
    ranks[run] = stayingBeforeOld.size();
    waiting.add(ranks[run], moved[run].count);
    stayingBeforeOld.push_back(moved[run].from - sum);
    sum += moved[run].count;
  }
  std::vector<std::size_t> stayingBeforeNew;
  std::vector<std::size_t> countBeforeNew; // of entries that move
  sum = 0;
  for (const auto& run : moved) {
    stayingBeforeNew.push_back(run.to - sum);
    countBeforeNew.push_back(sum);
    sum += run.count;
  }
  countBeforeNew.push_back(sum);

  std::vector<MovedRun> moves;
  for (std::size_t run = 0; run < moved.size(); ++run) {
    const auto rank = ranks[run];
    const auto count = moved[run].count;
    // Before the run are its staying entries and the moved runs that are before the next of those.
    const auto staying = stayingBeforeOld[rank];
    const auto runsBefore = static_cast<std::size_t>(
        std::upper_bound(stayingBeforeNew.begin(), stayingBeforeNew.end(), staying) -
        stayingBeforeNew.begin());
    const auto from =
        staying + countBeforeNew[(std::min)(runsBefore, run)] + waiting.sumOfFirst(rank);
    waiting.subtract(rank, count);
    // Before its new place are those that wait before the last entry that stays before it.
    const auto ranksBefore = static_cast<std::size_t>(
        std::lower_bound(stayingBeforeOld.begin(), stayingBeforeOld.end(), stayingBeforeNew[run]) -
        stayingBeforeOld.begin());
    moves.push_back({from, count, moved[run].to + waiting.sumOfFirst(ranksBefore)});
  }
  return moves;
}

}
