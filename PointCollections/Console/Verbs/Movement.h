// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Document/PointDocument.h"

#include <cstddef>
#include <string>
#include <vector>

/// Which groups elements leave, and which still hold them.
namespace Tarvik::PointCollections {

/// A group that elements leave.
struct Origin {
  const TKGroup<GUIdentifier>* group; ///< valid until the list of groups changes
  std::size_t elements;               ///< how many leave it
};

/// The groups that hold any of the elements, in the order of the list. Each element counts for its
/// first holder only, and as often as it is given. Call this before the change.
std::vector<Origin> originsOf(PointDocument& document, const std::vector<GUIdentifier>& elements);

/// The same as text: " (2 from Europe, 1 moved within it)". Empty if all elements are ungrouped. Of
/// many groups, only the first are named. Call this before the change.
/// @param target  the group they go to; null if it does not exist yet, or there is none
std::string describeMovement(PointDocument& document,
                             const std::vector<GUIdentifier>& elements,
                             const TKGroup<GUIdentifier>* target);

/// "; A is still in H" if a command has taken an element out of the first of its places only;
/// otherwise empty. Call this after the change.
/// @param elements  each given once
/// @param target    the group that they are in now; null if they were to be ungrouped
std::string remarkOnOtherPlaces(PointDocument& document,
                                const std::vector<GUIdentifier>& elements,
                                const TKGroup<GUIdentifier>* target);

}
