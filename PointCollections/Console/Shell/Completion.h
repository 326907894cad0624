// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Console/Session/Session.h"
#include "PointCollections/Console/Terminal/LineReader.h"

#include <string>
#include <string_view>
#include <vector>

namespace Tarvik::PointCollections {

/// Completes the last word of a line: a verb, an option of the verb, or a name of the kind that
/// the verb expects there.
///
/// The candidates are the names that start with the word. If there are none, the case of A to Z is
/// ignored. Only what the verb accepts there is a candidate: not the groups and elements that the
/// line already names, nor an option that excludes another one of the line. Files are candidates if
/// their names end in .tkpc or .csv, as the verb wants it; folders always are.
///
/// Where elements are selected, "Europe:" is completed with the members of that group, ":" with the
/// ungrouped elements, and "@" with files. An escape that is half typed is completed, too; what is
/// typed never goes away.
/// @param line  the part before the cursor; may be any bytes
Completion complete(Session& session, std::string_view line);

/// Completes the answer to a question: one of the answers. If it is a verb, its arguments are
/// completed, too.
Completion
completeAnswer(Session& session, const std::vector<std::string>& answers, std::string_view line);

}
