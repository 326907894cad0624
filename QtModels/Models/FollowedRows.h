// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Differences/ListEdit.h"
#include "HighLevelServices/GroupCommands/Search.h"
#include "QtModels/Models/KeptRuns.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iterator>
#include <optional>
#include <vector>

namespace Tarvik::ShownLists {

/// Where some rows of elements are after a change. An element that leaves one list and comes into
/// another one is the same row.
///
/// Call follow() for each row and start(); then came() and rearranged() for the lists that change,
/// once for each list; then finish(), and placeOf() for each row. Time is n log n in the rows and
/// the pieces of the lists that have such rows. If rows have left, all elements that came are
/// searched for them.
/// @tparam List  what a list is called: a pointer
template <class T, class List>
class FollowedRows {
public:
  struct Place {
    List list;
    std::size_t position;

    friend bool operator==(const Place& a, const Place& b)
    {
      return a.list == b.list && a.position == b.position;
    }
  };

  void follow(const Place& place) { m_rows.push_back({place, place}); }
  void start();

  /// Elements come into a list.
  /// @param position  of the first of them, after the change
  /// @param elements  must live and stay as they are until finish()
  void came(List list, std::size_t position, const std::vector<T>& elements);

  /// The elements of a list stay, leave, or go to other places in it.
  /// @param elements  of the list, before
  /// @param pieces    the list after, from runs of the list before
  void rearranged(List list, const std::vector<T>& elements, const GroupLists::Pieces& pieces);

  void finish();

  /// Where a row is that was there; nothing if it is gone.
  std::optional<Place> placeOf(const Place& before) const;

private:
  struct Row {
    Place before;
    std::optional<Place> now;
  };

  /// Elements that came into a list.
  struct Arrival {
    Place first;
    const std::vector<T>* elements;
  };

  static bool isBefore(const Place& a, const Place& b)
  {
    return a.list != b.list ? std::less<List>()(a.list, b.list) : a.position < b.position;
  }

  void leave(Row& row, const T& element);

  std::vector<Row> m_rows; ///< sorted by their place before
  std::vector<std::size_t> m_leaving;
  std::vector<T> m_leavingElements;
  std::vector<Arrival> m_arrivals;
};

template <class T, class List>
void FollowedRows<T, List>::start()
{
  std::sort(m_rows.begin(), m_rows.end(),
            [](const Row& a, const Row& b) { return isBefore(a.before, b.before); });
  m_rows.erase(std::unique(m_rows.begin(), m_rows.end(),
                           [](const Row& a, const Row& b) { return a.before == b.before; }),
               m_rows.end());
}

template <class T, class List>
void FollowedRows<T, List>::came(List list, std::size_t position, const std::vector<T>& elements)
{
  m_arrivals.push_back({{list, position}, &elements});
}

template <class T, class List>
void FollowedRows<T, List>::rearranged(List list,
                                       const std::vector<T>& elements,
                                       const GroupLists::Pieces& pieces)
{
  auto row = std::lower_bound(
      m_rows.begin(), m_rows.end(), Place{list, 0},
      [](const Row& each, const Place& place) { return isBefore(each.before, place); });
  if (row == m_rows.end() || row->before.list != list)
    return;
  const KeptRuns kept(pieces);
  for (; row != m_rows.end() && row->before.list == list; ++row) {
    if (!row->now)
      continue;
    auto& position = row->now->position;
    if (const auto newPosition = kept.newPositionOf(position))
      position = *newPosition;
    else
      leave(*row, elements[position]);
  }
}

template <class T, class List>
void FollowedRows<T, List>::leave(Row& row, const T& element)
{
  m_leavingElements.push_back(element);
  m_leaving.push_back(static_cast<std::size_t>(&row - m_rows.data()));
  row.now.reset();
}

/// Finds the rows that left among the elements that came.
template <class T, class List>
void FollowedRows<T, List>::finish()
{
  if (m_leaving.empty())
    return;
  GroupLists::Search<T> leaving(m_leavingElements);
  for (const Arrival& arrival : m_arrivals) {
    leaving.match(*arrival.elements, [&](std::size_t position, std::size_t row) {
      m_rows[m_leaving[row]].now = Place{arrival.first.list, arrival.first.position + position};
    });
  }
}

template <class T, class List>
auto FollowedRows<T, List>::placeOf(const Place& before) const -> std::optional<Place>
{
  const auto row = std::lower_bound(
      m_rows.begin(), m_rows.end(), before,
      [](const Row& each, const Place& place) { return isBefore(each.before, place); });
  return row != m_rows.end() && row->before == before ? row->now : std::nullopt;
}

}
