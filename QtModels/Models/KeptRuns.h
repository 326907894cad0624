// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Differences/ListEdit.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <optional>
#include <vector>

namespace Tarvik::ShownLists {

/// Where the entries of a list go when the list is put together anew.
class KeptRuns {
public:
  /// @param pieces  the list after, from runs of the list before
  explicit KeptRuns(const GroupLists::Pieces& pieces)
  {
    std::size_t to = 0;
    for (const auto& run : pieces.runs()) {
      if (run.position != GroupLists::nowhere)
        m_runs.push_back({run.position, run.count, to});
      to += run.count;
    }
    std::sort(m_runs.begin(), m_runs.end(),
              [](const auto& a, const auto& b) { return a.from < b.from; });
  }

  /// The new position of an entry; nothing if it leaves.
  std::optional<std::size_t> newPositionOf(std::size_t position) const
  {
    const auto next = std::upper_bound(
        m_runs.begin(), m_runs.end(), position,
        [](std::size_t entry, const GroupLists::MovedRun& run) { return entry < run.from; });
    if (next == m_runs.begin())
      return {};
    const auto& run = *std::prev(next);
    const auto offset = position - run.from;
    return offset < run.count ? std::optional(run.to + offset) : std::nullopt;
  }

private:
  std::vector<GroupLists::MovedRun> m_runs; ///< ascending by `from`
};

}
