// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Differences/ListEdit.h"
#include "QtModels/Models/OrderOfMoves.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace Tarvik::ShownLists {

/// The steps of one list, to be done all in one pass. One by one, each step would shift the rest of
/// the list: with a hundred thousand steps in a million entries, users would wait for a minute.
///
/// The result is the same because of the order of steps in a GroupsChange:
///
/// - Entries leave first, from the last to the first. Those that have left already came after it,
///   so the position of each step is the one in the old list.
/// - Then the entries that are kept move, or get one new order.
/// - Entries come at the end, from the first to the last. Those that come later will be after it,
///   so the position of each step is the one in the new list.
class CollectedSteps {
public:
  /// @param size  of the list before the steps
  explicit CollectedSteps(std::size_t size) { m_edit.sizeBefore = size; }

  void remove(std::size_t position, std::size_t count)
  {
    m_edit.removed.push_back({position, count});
  }
  void move(std::size_t from, std::size_t count, std::size_t to)
  {
    if (!m_moves)
      m_moves.emplace(m_edit.sizeBefore - GroupLists::totalOf(m_edit.removed));
    m_moves->move(from, count, to);
  }
  void reorder(const std::vector<std::uint32_t>& order) { m_edit.order = order; }
  void insert(std::size_t position, std::size_t count)
  {
    m_edit.inserted.push_back({position, count});
  }

  /// Whether entries leave the list, and nothing else happens.
  bool onlyRemove() const { return !m_moves && m_edit.order.empty() && m_edit.inserted.empty(); }

  /// The list after the steps, from runs of the list before. What comes is at nowhere.
  GroupLists::Pieces pieces() const
  {
    auto edit = m_edit;
    std::reverse(edit.removed.begin(), edit.removed.end());
    if (m_moves)
      edit.order = m_moves->order();
    return GroupLists::piecesOf(edit);
  }

private:
  GroupLists::ListEdit m_edit; ///< what is removed is descending here
  std::optional<OrderOfMoves> m_moves;
};

}
