// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/Model/Operation.h"

#include <functional>

namespace Tarvik::Modelling {

/// Makes operations that fail fewer and simpler for as long as they still fail.
///
/// In the end no operation, no two operations and no element can be left out.
/// @param failing  have to fail
/// @param fails    whether some operations fail; has to answer the same every time
Operations shrunk(const Operations& failing, const std::function<bool(const Operations&)>& fails);

}
