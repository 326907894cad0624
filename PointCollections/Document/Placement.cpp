// SPDX-License-Identifier: MIT
#include "PointCollections/Document/Placement.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <unordered_map>
#include <utility>

namespace Tarvik::PointCollections {
namespace {

constexpr auto nowhere = static_cast<std::uint32_t>(-1);

std::ptrdiff_t offset(std::size_t position)
{
  return static_cast<std::ptrdiff_t>(position);
}

}

bool Placement::movesAny() const
{
  std::vector<std::uint32_t> same(from.size());
  std::iota(same.begin(), same.end(), static_cast<std::uint32_t>(to));
  return from != same;
}

Placement placementBeside(const Order& order,
                          const GUIdentifier& target,
                          const std::vector<GUIdentifier>& elements,
                          bool insertBefore)
{
  const auto found = std::find(order.begin(), order.end(), target);
  if (found == order.end())
    return {};
  const auto boundary = static_cast<std::size_t>(found - order.begin()) + (insertBefore ? 0 : 1);

  std::unordered_map<GUIdentifier, std::uint32_t> positions;
  positions.reserve(elements.size());
  for (const auto& element : elements)
    positions.emplace(element, nowhere);
  for (std::size_t i = 0; i < order.size(); ++i) {
    const auto moving = positions.find(order[i]);
    if (moving != positions.end())
      moving->second = static_cast<std::uint32_t>(i);
  }

  Placement placement;
  placement.from.reserve(positions.size());
  placement.to = boundary;
  for (const auto& element : elements) {
    const auto position = std::exchange(positions.find(element)->second, nowhere);
    if (position == nowhere)
      continue;
    placement.from.push_back(position);
    if (position < boundary)
      --placement.to;
  }
  return placement;
}

Order placed(const Order& order, const Placement& placement)
{
  auto leaving = placement.from;
  std::sort(leaving.begin(), leaving.end());
  Order result;
  result.reserve(order.size());
  auto next = order.begin();
  for (const auto position : leaving) {
    result.insert(result.end(), next, order.begin() + offset(position));
    next = order.begin() + offset(position) + 1;
  }
  result.insert(result.end(), next, order.end());

  Order block;
  block.reserve(placement.from.size());
  std::transform(placement.from.begin(), placement.from.end(), std::back_inserter(block),
                 [&order](auto position) { return order[position]; });
  result.insert(result.begin() + offset(placement.to), block.begin(), block.end());
  return result;
}

Order putBack(const Order& order, const Placement& placement)
{
  const auto block = order.begin() + offset(placement.to);
  std::vector<std::pair<std::uint32_t, GUIdentifier>> returning;
  returning.reserve(placement.from.size());
  std::transform(placement.from.begin(), placement.from.end(), block, std::back_inserter(returning),
                 [](auto position, const auto& element) { return std::pair(position, element); });
  std::sort(returning.begin(), returning.end(),
            [](const auto& a, const auto& b) { return a.first < b.first; });

  Order staying(order.begin(), block);
  staying.insert(staying.end(), block + offset(placement.from.size()), order.end());
  Order result;
  result.reserve(order.size());
  auto next = staying.begin();
  for (const auto& [position, element] : returning) {
    const auto count = offset(position) - offset(result.size());
    result.insert(result.end(), next, next + count);
    next += count;
    result.push_back(element);
  }
  result.insert(result.end(), next, staying.end());
  return result;
}

}
