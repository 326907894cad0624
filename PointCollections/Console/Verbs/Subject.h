// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Document/PointDocument.h"

#include <string>
#include <vector>

/// What a step was done to, as the descriptions of steps name it. Call these functions before the
/// change.
namespace Tarvik::PointCollections {

/// One element by its name, several as "3 elements".
std::string subjectOf(PointDocument& document, const std::vector<GUIdentifier>& elements);

/// A group with the number of its members: "Europe (10)".
std::string subjectOf(const TKGroup<GUIdentifier>& group);

/// Up to three groups by their names, more as "12 groups".
std::string subjectOf(const std::vector<const TKGroup<GUIdentifier>*>& groups);

/// "Berlin → Europe"
std::string subjectGoingInto(const std::string& subject, const std::string& target);

/// "Berlin → before Paris"
std::string
subjectGoingBeside(const std::string& subject, bool isBefore, const std::string& target);

}
