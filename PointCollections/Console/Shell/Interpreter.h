// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Console/Session/Session.h"

#include <string>
#include <string_view>

namespace Tarvik::PointCollections {

/// What a line is to the program.
enum class LineKind {
  Blank,   ///< nothing but blanks
  Note,    ///< ## or #!: for those who read the script
  Comment, ///< any other #: for those who read its output
  Command
};

LineKind kindOf(std::string_view line);

/// The text of a comment line, without its # and the blank behind it.
std::string_view textOfComment(std::string_view line);

/// Carries out one command line.
/// @return what the user reads, without a line end
/// @throws UserError where the line is wrong or cannot be carried out; nothing has changed then
std::string runLine(Session& session, std::string_view line);

}
