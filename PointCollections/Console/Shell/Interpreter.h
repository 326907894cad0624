// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Console/Session/Session.h"

#include <string>
#include <string_view>

namespace Tarvik::PointCollections {

/// How the program treats a line.
enum class LineKind {
  Blank,   ///< nothing but blanks
  Note,    ///< ## or #!: only for readers of the script
  Comment, ///< any other #: printed in the transcript
  Command
};

LineKind kindOf(std::string_view line);

/// The text of a comment line, without its # and the blank after it.
std::string_view textOfComment(std::string_view line);

/// Runs one command line. Blank lines and comments do nothing.
/// @return what the user reads, without a line end
/// @throws UserError if the line is wrong or cannot be done; nothing has changed then. There is one
///         exception: when there is no memory left, only some of several steps may be undone or
///         redone, and the error says that
/// @throws std::bad_alloc if there is not even the memory to start; nothing has changed then
std::string runLine(Session& session, std::string_view line);

}
