// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Document/PointDocument.h"
#include "PointCollections/Selection/SelectionTerm.h"

#include <string>
#include <vector>

/// The lists that a word of a selection looks into, and what it finds there.
namespace Tarvik::PointCollections {

/// The members of a group, the ungrouped elements or all elements.
struct ElementList {
  enum class Kind { All, Ungrouped, Group };

  const std::vector<GUIdentifier>* elements; ///< valid until the groups change; not null
  Kind kind = Kind::All;
  std::string group = {}; ///< its name for messages, as displayName() shows it
};

/// The lists of a term that is no file.
/// @throws UserError if there is no such group
std::vector<ElementList> listsOf(PointDocument& document, const SelectionTerm& term);

/// What the term selects in the lists, list after list.
/// @throws UserError if it selects nothing, or places after the end of a single list
std::vector<GUIdentifier> selectedIn(const PointDocument& document,
                                     const std::vector<ElementList>& lists,
                                     const SelectionTerm& term);

}
