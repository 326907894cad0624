// SPDX-License-Identifier: MIT
#if defined(_WIN32)
#define _CRT_RAND_S // NOLINT(bugprone-reserved-identifier): asks for rand_s(), before any header
#endif

#include "Identifier/IdentifierBits.h"

#include <system_error>

#if defined(_WIN32)
#include <cstdlib>
#else
#include <pthread.h>
#include <unistd.h>

#include <cerrno>
#endif

namespace Tarvik {

namespace {

constexpr std::uint64_t blockSize = 65536;

/// The bits that the thread gives out next; it needs a new block when `low` is a multiple of the
/// block size. Built without code, so that reaching it costs no check.
constinit thread_local IdentifierBits next{};

// The system's source of randomness. Not std::random_device: it may ask the processor instead, and
// some answer the same every time.
#if defined(_WIN32)
std::uint64_t randomWord()
{
  std::uint64_t word = 0;
  for (int half = 0; half < 2; ++half) {
    unsigned int drawn = 0;
    if (const int error = rand_s(&drawn); error != 0)
      throw std::system_error(error, std::generic_category(), "no randomness for identifiers");
    word = word << 32U | drawn;
  }
  return word;
}

IdentifierBits randomBits()
{
  return {.high = randomWord(), .low = randomWord()};
}
#else
IdentifierBits randomBits()
{
  IdentifierBits bits;
  if (getentropy(&bits, sizeof bits) != 0)
    throw std::system_error(errno, std::generic_category(), "no randomness for identifiers");
  return bits;
}
#endif

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
