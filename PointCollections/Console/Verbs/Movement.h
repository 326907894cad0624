// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Document/PointDocument.h"

#include <cstddef>
#include <string>
#include <vector>

/// Which groups elements are about to leave. Ask before the change.
namespace Tarvik::PointCollections {

/// A group, and how many of the elements it holds.
struct Origin {
  const TKGroup<GUIdentifier>* group; ///< valid until the list of groups changes
  std::size_t elements;
};

/// The groups that hold any of the elements. An element counts for the first that does.
std::vector<Origin> originsOf(PointDocument& document, const std::vector<GUIdentifier>& elements);

/// The same in words: " (2 from Europe, 1 moved within it)". Empty when no group holds any.
/// @param target  the group they go to, or null when it does not exist yet or there is none
std::string movementInWords(PointDocument& document,
                            const std::vector<GUIdentifier>& elements,
                            const TKGroup<GUIdentifier>* target);

}
