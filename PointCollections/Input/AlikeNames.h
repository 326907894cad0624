// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Document/PointCollection.h"

#include <string>
#include <vector>

namespace Tarvik::PointCollections {

/// A warning about elements whose names look the same, but are written differently, such as an ü in
/// one or two characters: they are easily taken for one element. Empty if there are none.
std::string warningAboutAlikeNames(const std::vector<PointCollection>& collections);

}
