// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <iostream>
#include <string_view>

namespace Tarvik {

/// Ends the program when something is not true: a fuzzer then keeps the input, and a replay fails.
inline void require(bool holds, std::string_view what)
{
  if (holds)
    return;
  std::cerr << "found: " << what << std::endl;
  std::abort();
}

}
