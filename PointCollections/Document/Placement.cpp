// SPDX-License-Identifier: MIT
#include "PointCollections/Document/Placement.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>

namespace Tarvik::PointCollections {

std::vector<GUIdentifier> placedBeside(const std::vector<GUIdentifier>& order,
                                       const GUIdentifier& target,
                                       const std::vector<GUIdentifier>& elements,
                                       bool insertBefore)
{
  const auto place = std::find(order.begin(), order.end(), target);
  if (place == order.end())
    return order;

  std::unordered_set<GUIdentifier> staying(order.begin(), order.end());
  std::vector<GUIdentifier> block;
  std::copy_if(elements.begin(), elements.end(), std::back_inserter(block),
               [&staying](const GUIdentifier& id) { return staying.erase(id) > 0; });

  const auto stays = [&staying](const GUIdentifier& id) { return staying.contains(id); };
  const auto boundary = insertBefore ? place : std::next(place);
  std::vector<GUIdentifier> result;
  result.reserve(order.size());
  std::copy_if(order.begin(), boundary, std::back_inserter(result), stays);
  result.insert(result.end(), block.begin(), block.end());
  std::copy_if(boundary, order.end(), std::back_inserter(result), stays);
  return result;
}

}
