// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <vector>

namespace Tarvik::GroupLists {

/// After how many members two lists go on alike.
struct Gap {
  std::ptrdiff_t before = 0;
  std::ptrdiff_t after = 0;
};

/// The smallest gap after which the lists go on alike; none if that takes too long.
/// @param budget  how many comparisons are left
template <class Iterator>
Gap smallestGap(
    Iterator before, Iterator beforeEnd, Iterator after, Iterator afterEnd, std::ptrdiff_t& budget)
{
  const auto most = (std::max)(beforeEnd - before, afterEnd - after);
  for (std::ptrdiff_t gap = 1; gap < most && budget > 0; ++gap) {
    budget -= 3;
    const bool isInBefore = gap < beforeEnd - before;
    const bool isInAfter = gap < afterEnd - after;
    if (isInBefore && before[gap] == *after)
      return {gap, 0};
    if (isInAfter && *before == after[gap])
      return {0, gap};
    if (isInBefore && isInAfter && before[gap] == after[gap])
      return {gap, gap};
  }
  return {};
}

/// Calls `left(begin, end)` for members that only the list before has, and `came(begin, end)` for
/// those that only the list after has, with iterators. Members that go to another place may be in
/// both. Not for hosts.
///
/// Where the lists differ, it goes on after the smallest gap. So it finds in one pass what was
/// removed, inserted or moved here and there. Where that takes more comparisons than a pass, as
/// after a sort, all the rest is both.
template <class T, class Left, class Came>
void align(const std::vector<T>& before, const std::vector<T>& after, Left left, Came came)
{
  auto old = before.begin();
  auto next = after.begin();
  auto budget = 2 * static_cast<std::ptrdiff_t>(before.size() + after.size());
  while (true) {
    const auto differing = std::mismatch(old, before.end(), next, after.end());
    old = differing.first;
    next = differing.second;
    if (old == before.end() || next == after.end())
      break;
    const auto gap = smallestGap(old, before.end(), next, after.end(), budget);
    if (gap.before == 0 && gap.after == 0)
      break;
    if (gap.before > 0)
      left(old, old + gap.before);
    if (gap.after > 0)
      came(next, next + gap.after);
    old += gap.before;
    next += gap.after;
  }
  const auto ends = std::mismatch(before.rbegin(), std::make_reverse_iterator(old), after.rbegin(),
                                  std::make_reverse_iterator(next));
  if (old != ends.first.base())
    left(old, ends.first.base());
  if (next != ends.second.base())
    came(next, ends.second.base());
}

}
