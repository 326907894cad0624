// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Console/Session/Session.h"
#include "PointCollections/Console/Shell/Transcript.h"
#include "PointCollections/Console/Terminal/LineReader.h"

#include <istream>
#include <string>
#include <vector>

/// The ways in which commands reach the program. All of them return when the session is over or
/// the transcript cannot be written any more.
namespace Tarvik::PointCollections {

/// Carries out the commands given as arguments of the program, until one is wrong.
/// @return whether none was
bool runCommands(Session& session,
                 Transcript& transcript,
                 const std::vector<std::string>& commands);

/// Carries out the lines of a script, until one is wrong. A byte order mark is skipped.
/// @param name  what error messages call the script
/// @return whether none was
bool runScript(Session& session,
               Transcript& transcript,
               std::istream& script,
               const std::string& name);

/// Carries out what the user types until the input ends; mistakes are told and forgotten. The
/// verbs may ask the user questions, and leaving does when there are changes that are not saved.
void runInteractively(Session& session, Transcript& transcript, LineReader& reader);

/// Says so when changes are not saved, at the end of what cannot be asked.
void tellOfUnsaved(const Session& session, Transcript& transcript);

}
