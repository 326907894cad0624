// SPDX-License-Identifier: MIT
#include "Identifier/IdentifierBits.h"

#include <random>

#if defined(__unix__)
#include <pthread.h>
#endif

namespace Tarvik {

namespace {

constexpr std::uint64_t blockSize = 65536;

/// What a thread has left of its block. Built without code, so that reaching it costs no check.
struct Block {
  IdentifierBits next;
  std::uint64_t left = 0;
};

constinit thread_local Block block{};

std::uint64_t randomWord(std::random_device& source)
{
  static_assert(std::random_device::min() == 0 && std::random_device::max() == 0xFFFFFFFF);
  const std::uint64_t upper = source();
  return upper << 32U | source();
}

void drawBlock()
{
  std::random_device source;
  const auto high = randomWord(source);
  const auto low = randomWord(source);
  block.next.high = (high & ~0xF000ULL) | 0x8000ULL;                          // version 8
  block.next.low = ((low & ~(blockSize - 1)) & ~(3ULL << 62U)) | 1ULL << 63U; // variant 10
  block.left = blockSize;
}

#if defined(__unix__)
/// A forked child goes on with a copy of the forking thread's block, which the parent still uses.
const int forkHandlerInstalled = pthread_atfork(nullptr, nullptr, [] { block.left = 0; });
#endif

}

IdentifierBits IdentifierBits::unique()
{
  if (block.left == 0) [[unlikely]]
    drawBlock();
  --block.left;
  const auto bits = block.next;
  ++block.next.low;
  return bits;
}

}
