// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Console/Session/Session.h"
#include "PointCollections/Console/Shell/Transcript.h"
#include "PointCollections/Console/Shell/UnsavedChanges.h"
#include "PointCollections/Console/Terminal/LineReader.h"

#include <istream>
#include <string>
#include <vector>

/// The ways in which commands reach the program. All of these functions return when the session is
/// over or the transcript can no longer be written.
namespace Tarvik::PointCollections {

/// Runs the commands given as arguments of the program. Stops at the first mistake.
/// @return false if there was one
bool runCommands(Session& session,
                 Transcript& transcript,
                 const std::vector<std::string>& commands);

/// Runs the lines of a script. Stops at the first mistake. Skips a byte order mark.
/// @param name  what error messages call the script
/// @return false if there was a mistake
bool runScript(Session& session,
               Transcript& transcript,
               std::istream& script,
               const std::string& name);

/// Calls Session::lookForUnsavedWork, if it is set. If there is not enough memory for it, or the
/// user stops it, prints a warning: the document is open.
void lookForUnsavedWork(const Session& session, Transcript& transcript);

/// Questions to the user through the reader. Both must outlive the result.
Question questionsTo(LineReader& reader, Session& session);

/// Runs the lines that the user types until the input ends. Reports mistakes and goes on. Asks
/// before unsaved changes are discarded. The user can stop a line; see Interruptible.
/// @return false if there are unsaved changes, and the user has not said what to do with them
bool runInteractively(Session& session, Transcript& transcript, LineReader& reader);

}
