// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Document/PointDocument.h"

#include <cstddef>
#include <string>
#include <vector>

/// Which groups the elements are about to leave. Call these functions before the change.
namespace Tarvik::PointCollections {

/// A group that elements leave.
struct Origin {
  const TKGroup<GUIdentifier>* group; ///< valid until the list of groups changes
  std::size_t elements;               ///< how many leave it
};

/// The groups that hold any of the elements, in the order of the list. Each element counts for its
/// first holder only, and as often as it is given.
std::vector<Origin> originsOf(PointDocument& document, const std::vector<GUIdentifier>& elements);

/// The same as text: " (2 from Europe, 1 moved within it)". Empty if all elements are ungrouped. Of
/// many groups, only the first are named.
/// @param target  the group they go to; null if it does not exist yet, or there is none
std::string describeMovement(PointDocument& document,
                             const std::vector<GUIdentifier>& elements,
                             const TKGroup<GUIdentifier>* target);

}
