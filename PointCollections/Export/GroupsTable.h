// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Document/PointDocument.h"

#include <string>

namespace Tarvik::PointCollections {

/// Groups and members as a table in CSV (RFC 4180), in UTF-8, with a line of column names:
///
///     group,place,collection
///     Europe,1,Lisbon
///     Europe,2,"Isle of Man, Douglas"
///
/// A member has a place in its group, counted from 1. An empty group has one line, without a place
/// and a collection. Members that are not in the document have empty names.
std::string groupsAsCsv(PointDocument& document);

}
