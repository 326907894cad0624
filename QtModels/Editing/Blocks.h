// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace Tarvik {

/// Whether a list stays as it is when some of its items are moved before a position: they are in
/// one piece, in this order, and the position is within the piece or at one of its ends.
/// @param moved     not empty, each item once
/// @param position  from 0 to the number of items in the list
template <class Item>
bool isBlockAt(const std::vector<Item>& list, const std::vector<Item>& moved, std::size_t position)
{
  const auto found = std::find(list.begin(), list.end(), moved.front());
  const auto first = static_cast<std::size_t>(found - list.begin());
  if (position < first || position - first > moved.size() || list.size() - first < moved.size())
    return false;
  return std::equal(moved.begin(), moved.end(), found);
}

}
