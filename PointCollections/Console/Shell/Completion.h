// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Console/Session/Session.h"
#include "PointCollections/Console/Terminal/LineReader.h"

#include <string_view>

namespace Tarvik::PointCollections {

/// Completes the last word of a line: a verb, an option of the verb, or a name of the kind that
/// the verb expects there.
///
/// The candidates are the names that start with the word. If there are none, the case of A to Z is
/// ignored. Groups and elements that the line already names are left out. Files are candidates if
/// their names end in .tkpc or .csv; folders always are.
/// @param line  the part before the cursor; may be any bytes
Completion complete(Session& session, std::string_view line);

}
