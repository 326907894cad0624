// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Document/PointDocument.h"

#include <cstddef>
#include <span>
#include <vector>

namespace Tarvik::PointCollections {

/// A place of an element in a group, both counted from 0.
struct Membership {
  std::size_t group; ///< in the list of groups
  std::size_t place; ///< among its members
};

/// Whether a member may be in several groups, or twice in one. Takes time that grows with the
/// number of groups only, and so cannot tell such members from those that are not in the document.
bool mayHaveRepeatedMembers(PointDocument& document);

/// Which groups hold the elements of a document, at which places. PointDocument::holderOf() tells
/// the first group only, and no place.
class Memberships {
public:
  /// Looks at all groups once. Later changes of the document are not noticed.
  /// @param document  must outlive this
  explicit Memberships(PointDocument& document);

  /// The memberships of an element of the document, in the order of the list of groups; none if it
  /// is ungrouped.
  std::span<const Membership> of(const PointCollection& collection) const;

private:
  std::size_t indexOf(const PointCollection& collection) const;

  const PointDocument& m_document;
  std::vector<Membership> m_memberships; ///< element after element
  std::vector<std::size_t> m_ends;       ///< of each element; it starts where the last one ends
};

}
