// SPDX-License-Identifier: MIT
#include "Identifier/IdentifierBits.h"

#if defined(_WIN32)
#include <random>
#else
#include <pthread.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#endif

namespace Tarvik {

namespace {

constexpr std::uint64_t blockSize = 65536;

/// The bits that the thread gives out next; it needs a new block when `low` is a multiple of the
/// block size. Built without code, so that reaching it costs no check.
constinit thread_local IdentifierBits next{};

/// 128 bits from the system's source of randomness.
IdentifierBits randomBits()
{
  IdentifierBits bits;
#if defined(_WIN32)
  std::random_device source;
  for (std::uint64_t* const word : {&bits.high, &bits.low})
    *word = std::uint64_t{source()} << 32U | source();
#else
  // not std::random_device: it may ask the processor instead, and some answer the same every time
  if (getentropy(&bits, sizeof bits) != 0)
    throw std::system_error(errno, std::generic_category(), "no randomness for identifiers");
#endif
  return bits;
}

IdentifierBits takeNext()
{
  const auto bits = next;
  ++next.low;
  return bits;
}

IdentifierBits takeFirstOfNewBlock()
{
  const auto [high, low] = randomBits();
  next.high = (high & ~0xF000ULL) | 0x8000ULL;                                 // version 8
  next.low = ((low & ~(blockSize - 1)) & ~(3ULL << 62U)) | 1ULL << 63U | 1ULL; // variant 10
  return takeNext();
}

#if !defined(_WIN32)
/// A forked child goes on with a copy of the forking thread's block, which the parent still uses.
class ForkHandler {
public:
  ForkHandler()
  {
    if (const int error = pthread_atfork(nullptr, nullptr, [] { next.low = 0; }); error != 0)
      throw std::system_error(error, std::generic_category(), "identifiers would not be unique");
  }
};

const ForkHandler forkHandler;
#endif

}

IdentifierBits IdentifierBits::unique()
{
  return next.low % blockSize != 0 ? takeNext() : takeFirstOfNewBlock();
}

}
