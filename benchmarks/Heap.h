// SPDX-License-Identifier: MIT
#pragma once

#include <limits>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace Tarvik {

/// Without this, the time to return pages to the system and get them again hides all other times.
inline void keepPagesOfTheHeap()
{
#if defined(__GLIBC__)
  mallopt(M_MMAP_MAX, 0);
  mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
  mallopt(M_TOP_PAD, 64 * 1024 * 1024);
#endif
}

}
