// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Console/Session/Session.h"
#include "PointCollections/Console/Shell/Transcript.h"
#include "PointCollections/Console/Shell/UnsavedChanges.h"
#include "PointCollections/Recovery/Recovery.h"

/// What the user is told about work that an earlier run of the program could not save.
namespace Tarvik::PointCollections {

/// Tells what was found, and asks about each until the answer is recover, discard or later. After
/// recover, the work is the open document, and all others stay for later.
/// @param recovery  of the session; takes over what is recovered
void offerUnsavedWork(Session& session,
                      Transcript& transcript,
                      Recovery& recovery,
                      FoundWork found,
                      const Question& ask);

/// Only tells that something was found, where nobody can be asked.
void tellOfUnsavedWork(const Session& session, Transcript& transcript, const FoundWork& found);

}
