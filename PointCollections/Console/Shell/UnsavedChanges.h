// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Console/Session/Session.h"
#include "PointCollections/Console/Shell/Transcript.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

/// Unsaved changes are never lost unnoticed.
namespace Tarvik::PointCollections {

/// Shows a prompt and returns the line that the user types; nothing at the end of the input. The
/// answers are the words that it can start with.
using Question = std::function<std::optional<std::string>(const std::string& prompt,
                                                          const std::vector<std::string>& answers)>;

/// The first word of an answer; empty if it has none.
std::string firstWord(const std::string& answer);

/// Asks what to do with unsaved changes until the answer is save, discard or cancel. Does not ask
/// if there are none.
/// @throws UserError if the user wants to save and that fails
Confirmation confirmDiscardingChanges(Session& session, const Question& ask);

/// Prints a warning if there are unsaved changes. Call it when the program ends without asking.
void warnOfUnsavedChanges(const Session& session, Transcript& transcript);

}
