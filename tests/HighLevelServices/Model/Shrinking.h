// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/Model/Operation.h"

#include <functional>

namespace Tarvik::Modelling {

/// Leaves out and simplifies operations for as long as they still fail.
///
/// In the end no operation, no two operations and no element can be left out.
/// @param failing  must fail
/// @param fails    whether some operations fail; must always give the same answer
Operations shrunk(const Operations& failing, const std::function<bool(const Operations&)>& fails);

}
