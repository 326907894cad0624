// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Document/PointDocument.h"

#include <string>

namespace Tarvik::PointCollections {

/// What is to be said about a group that looks like another one, but is written differently, after
/// a semicolon; empty if there is none.
std::string remarkOnAlikeGroup(PointDocument& document, const std::string& name);

}
