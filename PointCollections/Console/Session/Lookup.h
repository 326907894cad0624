// SPDX-License-Identifier: MIT
#pragma once

#include "Identifier/GUIdentifier.h"
#include "Identifier/Identifier.h"
#include "PointCollections/Console/Text/Words.h"
#include "PointCollections/Document/PointDocument.h"

#include <cstddef>
#include <string>
#include <vector>

/// From the words that the user types to the things they name.
///
/// Names are matched exactly. A group can also be given by its place in the list, as `@2` for the
/// second one, which tells groups of the same name apart.
namespace Tarvik::PointCollections {

/// The names of the groups, or of the elements, in the document's order.
std::vector<std::string> groupNames(PointDocument& document);
std::vector<std::string> elementNames(const PointDocument& document);

/// The names of the elements that lie in a group, group after group.
std::vector<std::string> memberNames(PointDocument& document);

/// Where the group stands in the list of groups, counted from 0.
/// @throws UserError when no group or more than one has the name
std::size_t groupPlace(PointDocument& document, const Word& word);

/// The group that the word names; valid until the list of groups changes.
/// @throws UserError as groupPlace()
const TKGroup<GUIdentifier>& groupNamed(PointDocument& document, const Word& word);

/// The ids of the groups that the words name, in that order.
/// @throws UserError as groupPlace(), or when a group is given twice
std::vector<Identifier> groupsNamed(PointDocument& document, const std::vector<Word>& words);

/// The element with that name.
/// @throws UserError when there is none
GUIdentifier elementNamed(const PointDocument& document, const Word& word);

/// The elements with those names, in that order.
/// @throws UserError when there is none of a name, or a name is given twice
std::vector<GUIdentifier> elementsNamed(const PointDocument& document,
                                        const std::vector<Word>& words);

/// The whole number that the word gives, which must be at least 1. Numbers beyond the range of
/// the result give its largest value.
/// @param what  what the number is, for messages: "the number of steps"
/// @throws UserError when it is anything else
std::size_t positiveNumber(const Word& word, const std::string& what);

}
