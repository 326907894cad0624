// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Document/PointDocument.h"

#include <string>

namespace Tarvik::PointCollections {

/// The document as the text of a file of points, with groups: parsePointFile() makes the same
/// elements and groups of it. The elements keep their order; their ids are lost, and so are members
/// of groups that are not in the document.
/// @throws UserError if a group has no name, or the name of another one: the file could not tell
std::string pointFileOf(PointDocument& document);

}
