// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/GroupCommands/Search.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <optional>
#include <utility>
#include <vector>

namespace Tarvik::ShownLists {

/// Where some rows of elements are after a change. An element that leaves one list and comes into
/// another one is the same row.
///
/// Call follow() for each row, start(), then one function for each step of the change, finish(),
/// and placeOf() for each row. Time grows with the rows and the steps, and with the elements only
/// of lists that have such rows.
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

  void inserted(List list, std::size_t position, const std::vector<T>& elements);
  void removed(List list, std::size_t position, const std::vector<T>& elements);
  void moved(List list, std::size_t from, std::size_t count, std::size_t to);
  void reordered(List list, const std::vector<std::uint32_t>& order);
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

  template <class Change>
  void changePositions(List list, Change change);

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

/// Calls `change(row, position)` for each row that is still in its list.
template <class T, class List>
template <class Change>
void FollowedRows<T, List>::changePositions(List list, Change change)
{
  auto row = std::lower_bound(
      m_rows.begin(), m_rows.end(), Place{list, 0},
      [](const Row& each, const Place& place) { return isBefore(each.before, place); });
  for (; row != m_rows.end() && row->before.list == list; ++row) {
    if (row->now)
      change(*row, row->now->position);
  }
}

template <class T, class List>
void FollowedRows<T, List>::inserted(List list,
                                     std::size_t position,
                                     const std::vector<T>& elements)
{
  m_arrivals.push_back({{list, position}, &elements});
  changePositions(list, [&](Row&, std::size_t& row) {
    if (row >= position)
      row += elements.size();
  });
}

template <class T, class List>
void FollowedRows<T, List>::removed(List list, std::size_t position, const std::vector<T>& elements)
{
  changePositions(list, [&](Row& each, std::size_t& row) {
    if (row >= position + elements.size()) {
      row -= elements.size();
    } else if (row >= position) {
      m_leavingElements.push_back(elements[row - position]);
      m_leaving.push_back(static_cast<std::size_t>(&each - m_rows.data()));
      each.now.reset();
    }
  });
}

template <class T, class List>
void FollowedRows<T, List>::moved(List list, std::size_t from, std::size_t count, std::size_t to)
{
  changePositions(list, [&](Row&, std::size_t& row) {
    if (row >= from && row < from + count)
      row = row - from + to;
    else if (row >= from + count && row < to + count)
      row -= count;
    else if (row >= to && row < from)
      row += count;
  });
}

template <class T, class List>
void FollowedRows<T, List>::reordered(List list, const std::vector<std::uint32_t>& order)
{
  std::vector<std::size_t> newPositions;
  changePositions(list, [&](Row&, std::size_t& row) {
    if (newPositions.empty()) {
      newPositions.resize(order.size());
      for (std::size_t i = 0; i < order.size(); ++i)
        newPositions[order[i]] = i;
    }
    row = newPositions[row];
  });
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
