// SPDX-License-Identifier: MIT
#pragma once

#include "QtModels/Editing/GroupPlace.h"
#include "QtModels/QtModelsExport.h"

#include <cstddef>
#include <string>
#include <vector>

/// What a step was done to, as its description names it after the colon. All texts are UTF-8, in
/// the language of the moment. Names of more than 60 characters are cut.
namespace Tarvik::GroupSubjects {

/// A group and how many elements went into it: "Europe (10)"; without elements "Europe".
TKM_QTMODELS_API std::string groupWith(const std::string& name, std::size_t elements);

/// One element by its name, several as "3 elements".
TKM_QTMODELS_API std::string elements(std::size_t count, const std::string& nameOfFirst);

/// Up to three groups by their names, more as "12 groups".
TKM_QTMODELS_API std::string groups(const std::vector<std::string>& names);

/// "Paris → Europe".
TKM_QTMODELS_API std::string into(const std::string& subject, const std::string& target);

/// "Paris → before Rome".
TKM_QTMODELS_API std::string
beside(const std::string& subject, Side side, const std::string& target);

}
