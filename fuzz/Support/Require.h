// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <iostream>
#include <string_view>

namespace Tarvik {

/// Ends the program when something does not hold: a fuzzer keeps the input then, and a replay
/// fails.
inline void require(bool holds, std::string_view what)
{
  if (holds)
    return;
  std::cerr << "found: " << what << std::endl;
  std::abort();
}

}
