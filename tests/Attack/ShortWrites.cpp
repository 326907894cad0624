// SPDX-License-Identifier: MIT
// Preloaded into a program (LD_PRELOAD), this makes each write to a file write no more bytes than
// the environment variable SHORT_WRITES says, and fail with EINTR between these writes.

#include <dlfcn.h>
#include <sys/types.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdlib>

namespace {

std::size_t most()
{
  const char* const limit = std::getenv("SHORT_WRITES");
  return limit == nullptr ? static_cast<std::size_t>(-1) : std::strtoul(limit, nullptr, 10);
}

}

extern "C" ssize_t write(int file, const void* bytes, std::size_t count)
{
  static const auto next = reinterpret_cast<decltype(&write)>(dlsym(RTLD_NEXT, "write"));
  static const auto limit = most();
  static bool isInterrupted = false;
  if (file <= STDERR_FILENO)
    return next(file, bytes, count);
  isInterrupted = !isInterrupted;
  if (isInterrupted) {
    errno = EINTR;
    return -1;
  }
  return next(file, bytes, std::min(count, limit));
}
