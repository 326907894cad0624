// SPDX-License-Identifier: MIT
#pragma once

#include "Identifier/GUIdentifier.h"
#include "Identifier/Identifier.h"
#include "PointCollections/Document/PointDocument.h"
#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/Words.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

/// From the words that the user types to the groups and elements that they name.
///
/// Names must match exactly; the class Selection also finds elements by less than their names. A
/// group can also be given by its place in the list: `@2` is the second one. That tells groups with
/// the same name apart.
namespace Tarvik::PointCollections {

/// The names of the groups, or of the elements, in the document's order.
std::vector<std::string> groupNames(PointDocument& document);
std::vector<std::string> elementNames(const PointDocument& document);

/// The names of the elements that are in groups, group after group.
std::vector<std::string> memberNames(PointDocument& document);

/// The index of the group in the list of groups.
/// @throws UserError if no group or more than one has the name
std::size_t groupIndex(PointDocument& document, const Word& word);

/// The group that the word names; valid until the list of groups changes.
/// @throws UserError as groupIndex()
const TKGroup<GUIdentifier>& groupNamed(PointDocument& document, const Word& word);

/// The groups that the words name, in that order; valid until the list of groups changes.
/// @throws UserError as groupIndex(), or if a group is given twice
std::vector<const TKGroup<GUIdentifier>*> groupsNamed(PointDocument& document,
                                                      std::span<const Word> words);

/// The ids of groups, in the same order.
std::vector<Identifier> idsOf(const std::vector<const TKGroup<GUIdentifier>*>& groups);

/// The element with that name.
/// @throws UserError if there is none
GUIdentifier elementNamed(const PointDocument& document, const Word& word);

/// The whole number that the word gives, at least 1. A number that is too large for the result
/// gives the largest value.
/// @param mistake  the message about another word, in English, which is translated when it is
///                 needed: translatable("the place is {}; expected a whole number from 1 up")
/// @throws UserError if it is anything else
std::size_t positiveNumber(const Word& word, fmt::format_string<const std::string&> mistake);

}
