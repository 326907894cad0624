// SPDX-License-Identifier: MIT
#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>
#include <limits>
#include <vector>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace Tarvik {

/// Without this, the time to get pages from the system, return them and get them again hides all
/// other times.
inline void keepPagesOfTheHeap()
{
  constexpr std::size_t enough = 256 * 1024 * 1024;
#if defined(__GLIBC__)
  mallopt(M_MMAP_MAX, 0);
  mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
  mallopt(M_ARENA_MAX, 1);
  mallopt(M_TOP_PAD, 64 * 1024 * 1024);
#endif
  const std::vector<char> touched(enough, 1);
  benchmark::DoNotOptimize(touched.data());
}

}
