// SPDX-License-Identifier: MIT
#pragma once

#include <cerrno>
#include <system_error>

namespace Tarvik::PointCollections {

/// Throws the reason why the last call of the operating system failed.
/// @throws std::system_error  always, with `errno`
[[noreturn]] inline void throwSystemError()
{
  throw std::system_error(errno, std::generic_category());
}

}
