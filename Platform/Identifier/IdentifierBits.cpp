// SPDX-License-Identifier: MIT
#include "Identifier/IdentifierBits.h"

#include <random>

#if defined(__unix__)
#include <pthread.h>
#endif

namespace Tarvik {

namespace {

constexpr std::uint64_t blockSize = 65536;

/// The bits that the thread gives out next; it needs a new block when `low` is a multiple of the
/// block size. Built without code, so that reaching it costs no check.
constinit thread_local IdentifierBits next{};

std::uint64_t randomWord(std::random_device& source)
{
  static_assert(std::random_device::min() == 0 && std::random_device::max() == 0xFFFFFFFF);
  const std::uint64_t upper = source();
  return upper << 32U | source();
}

IdentifierBits takeNext()
{
  const auto bits = next;
  ++next.low;
  return bits;
}

IdentifierBits takeFirstOfNewBlock()
{
  std::random_device source;
  const auto high = randomWord(source);
  const auto low = randomWord(source);
  next.high = (high & ~0xF000ULL) | 0x8000ULL;                                 // version 8
  next.low = ((low & ~(blockSize - 1)) & ~(3ULL << 62U)) | 1ULL << 63U | 1ULL; // variant 10
  return takeNext();
}

#if defined(__unix__)
/// A forked child goes on with a copy of the forking thread's block, which the parent still uses.
const int forkHandlerInstalled = pthread_atfork(nullptr, nullptr, [] { next.low = 0; });
#endif

}

IdentifierBits IdentifierBits::unique()
{
  return next.low % blockSize != 0 ? takeNext() : takeFirstOfNewBlock();
}

}
