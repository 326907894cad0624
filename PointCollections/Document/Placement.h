// SPDX-License-Identifier: MIT
#pragma once

#include "Identifier/GUIdentifier.h"

#include <vector>

namespace Tarvik::PointCollections {

/// The order that results from placing elements before or after another one.
///
/// Elements that are given twice count once; elements that are not in the order are ignored. If the
/// target is one of the elements, they gather around its place. If the target is not in the order,
/// nothing moves.
/// @param order     contains no element twice
/// @param elements  in their new order
std::vector<GUIdentifier> placedBeside(const std::vector<GUIdentifier>& order,
                                       const GUIdentifier& target,
                                       const std::vector<GUIdentifier>& elements,
                                       bool insertBefore);

}
