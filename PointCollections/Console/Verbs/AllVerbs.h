// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Console/Verbs/Verb.h"

#include <string>
#include <vector>

namespace Tarvik::PointCollections {

/// One function for each verb, defined in a file of its own.
Verb showVerb();
Verb createVerb();
Verb addVerb();
Verb moveVerb();
Verb removeVerb();
Verb renameVerb();
Verb deleteVerb();
Verb sortVerb();
Verb undoVerb();
Verb redoVerb();
Verb historyVerb();
Verb saveVerb();
Verb openVerb();
Verb helpVerb();
Verb quitVerb();

/// All verbs, in the order in which help lists them.
const std::vector<Verb>& allVerbs();

/// The names of all verbs, in that order.
std::vector<std::string> verbNames();

/// The verb with exactly that name.
/// @throws UserError when there is none
const Verb& verbNamed(const std::string& name);

}
