// SPDX-License-Identifier: MIT
#pragma once

#include "Identifier/GUIdentifier.h"

#include <cstddef>
#include <cstdint>
#include <vector>

/// Moving elements next to another one. All of this takes time that grows with the order, and
/// memory that grows with the elements that move.
namespace Tarvik::PointCollections {

using Order = std::vector<GUIdentifier>;

/// Which elements of an order move, and where to, by their positions counted from 0.
struct Placement {
  std::vector<std::uint32_t> from; ///< where each of them was; they are in their new order
  std::size_t to = 0;              ///< where the first of them is afterwards

  /// Whether the order changes.
  bool movesAny() const;
};

/// Places elements before or after another one.
///
/// Elements that are given twice count once; elements that are not in the order are ignored. If the
/// target is one of the elements, they gather around its place. If the target is not in the order,
/// nothing moves.
/// @param order     contains no element twice
/// @param elements  in their new order
Placement placementBeside(const Order& order,
                          const GUIdentifier& target,
                          const std::vector<GUIdentifier>& elements,
                          bool insertBefore);

/// The order after the placement.
Order placed(const Order& order, const Placement& placement);

/// The order from before the placement, given the one after it.
Order putBack(const Order& order, const Placement& placement);

}
