// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/Model/Operation.h"

#include <cstddef>
#include <cstdint>

namespace Tarvik::Modelling {

/// Some groups to begin with and then as many other operations. Equal arguments give equal
/// operations, on any platform.
///
/// Awkward arguments are frequent: elements that are given twice, have two holders or are unknown
/// to the host; groups that do not exist or share an id; names that are taken, are empty or differ
/// only in case.
/// @param crowd  as for ModelHost; with a crowd, all selections are parts of it, of any size
Operations randomOperations(std::uint64_t seed, std::size_t length, std::size_t crowd = 0);

}
