// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Differences/ListEdit.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <vector>

namespace Tarvik::ShownLists {

/// The new order of a list in which entries move, one move after another.
///
/// A move exchanges two neighbouring parts of the list. It is done to runs of entries that are
/// still together, since moving the entries would take time for each of them. A move makes up to
/// three runs more. When there are too many, they are put into one order, and all entries are one
/// run again.
class OrderOfMoves {
public:
  /// @param size  of the list
  explicit OrderOfMoves(std::size_t size) : m_order(size)
  {
    std::iota(m_order.begin(), m_order.end(), std::uint32_t{0});
    m_runs.push_back({0, size});
  }

  /// @param from  position of the first entry, before the move
  /// @param to    its position after the move
  void move(std::size_t from, std::size_t count, std::size_t to)
  {
    constexpr std::size_t tooMany =
        2'000; // beyond it, walking costs more than a new order now and then
    if (m_runs.size() > tooMany)
      putIntoOrder();
    const auto first = cutAt((std::min)(from, to));
    const auto middle = cutAt(from < to ? from + count : from);
    const auto last = cutAt((std::max)(from, to) + count);
    std::rotate(runAt(first), runAt(middle), runAt(last));
  }

  /// By new position: the old one.
  std::vector<std::uint32_t> order() const
  {
    std::vector<std::uint32_t> order;
    order.reserve(m_order.size());
    for (const auto& run : m_runs) {
      const auto first = m_order.begin() + static_cast<std::ptrdiff_t>(run.position);
      order.insert(order.end(), first, first + static_cast<std::ptrdiff_t>(run.count));
    }
    return order;
  }

private:
  std::vector<GroupLists::Run>::iterator runAt(std::size_t index)
  {
    return m_runs.begin() + static_cast<std::ptrdiff_t>(index);
  }

  /// Makes a run begin at that position.
  /// @return its index, or the number of runs for the position after the last entry
  std::size_t cutAt(std::size_t position)
  {
    std::size_t index = 0;
    while (index < m_runs.size() && position >= m_runs[index].count)
      position -= m_runs[index++].count;
    if (position == 0)
      return index;
    const auto run = m_runs[index];
    m_runs[index].count = position;
    m_runs.insert(runAt(index + 1), {run.position + position, run.count - position});
    return index + 1;
  }

  void putIntoOrder()
  {
    m_order = order();
    m_runs.assign(1, {0, m_order.size()});
  }

  std::vector<std::uint32_t> m_order;  ///< without what the runs say
  std::vector<GroupLists::Run> m_runs; ///< of positions in the order
};

}
