// SPDX-License-Identifier: MIT
#pragma once

#include "Identifier/GUIdentifier.h"

#include <vector>

namespace Tarvik::PointCollections {

/// The order that results from placing elements in front of or behind another one.
///
/// Elements that are given twice count once, those that the order does not hold not at all. When
/// the target is one of the elements, they gather around the place where it stands. Without the
/// target in it, the order stays as it is.
/// @param order     no element stands in it twice
/// @param elements  in the order in which they are to stand
std::vector<GUIdentifier> placedBeside(const std::vector<GUIdentifier>& order,
                                       const GUIdentifier& target,
                                       const std::vector<GUIdentifier>& elements,
                                       bool insertBefore);

}
