// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Console/Verbs/Verb.h"

#include <vector>

/// One function for each verb. Each is defined in a file of the same name: AddVerb.cpp.
namespace Tarvik::PointCollections {

Verb showVerb();
Verb findVerb();
Verb whereVerb();
Verb selectVerb();
Verb createVerb();
Verb addVerb();
Verb moveVerb();
Verb moveGroupVerb();
Verb removeVerb();
Verb renameVerb();
Verb deleteVerb();
Verb sortVerb();
Verb undoVerb();
Verb redoVerb();
Verb historyVerb();
Verb saveVerb();
Verb openVerb();
Verb exportVerb();

/// @param verbs  returns the verbs that help lists and explains, itself included
Verb helpVerb(const std::vector<Verb>& (*verbs)());

Verb quitVerb();

}
