// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <iterator>
#include <unordered_set>
#include <vector>

namespace Tarvik::PointCollections {

/// The order that results from placing elements (or groups) before or after another one.
///
/// Elements that are given twice count once; elements that are not in the order are ignored. If the
/// target is one of the elements, they gather around its place. If the target is not in the order,
/// nothing moves.
/// @param order     ids; contains none twice
/// @param elements  in their new order
template <class Id>
std::vector<Id> placedBeside(const std::vector<Id>& order,
                             const Id& target,
                             const std::vector<Id>& elements,
                             bool insertBefore)
{
  const auto place = std::find(order.begin(), order.end(), target);
  if (place == order.end())
    return order;

  std::unordered_set<Id> staying(order.begin(), order.end());
  std::vector<Id> block;
  std::copy_if(elements.begin(), elements.end(), std::back_inserter(block),
               [&staying](const Id& id) { return staying.erase(id) > 0; });

  const auto stays = [&staying](const Id& id) { return staying.contains(id); };
  const auto boundary = insertBefore ? place : std::next(place);
  std::vector<Id> result;
  result.reserve(order.size());
  std::copy_if(order.begin(), boundary, std::back_inserter(result), stays);
  result.insert(result.end(), block.begin(), block.end());
  std::copy_if(boundary, order.end(), std::back_inserter(result), stays);
  return result;
}

}
