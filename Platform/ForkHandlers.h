// SPDX-License-Identifier: MIT
#pragma once

#if !defined(_WIN32)
#include <pthread.h>

#include <system_error>
#endif

/// What the libraries do when the process is forked. Not for hosts. Windows cannot fork: nothing is
/// called there.
namespace Tarvik::ForkHandlers {

using Function = void (*)();

/// Calls the functions at each fork() until the library that calls this is unloaded. Null means
/// nothing.
/// @param before  in the parent, before the fork
/// @param inParent, inChild  after it
/// @throws std::system_error when there is no memory for it
inline void add([[maybe_unused]] Function before,
                [[maybe_unused]] Function inParent,
                [[maybe_unused]] Function inChild)
{
#if !defined(_WIN32)
  if (const int error = pthread_atfork(before, inParent, inChild); error != 0)
    throw std::system_error(error, std::generic_category(), "no memory to survive a fork");
#endif
}

}
