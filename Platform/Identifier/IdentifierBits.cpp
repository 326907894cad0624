// SPDX-License-Identifier: MIT
#if defined(_WIN32)
#define _CRT_RAND_S // NOLINT(bugprone-reserved-identifier): asks for rand_s(), before any header
#endif

#include "Identifier/IdentifierBits.h"

#include "ForkHandlers.h"

#include <chrono>
#include <functional>
#include <system_error>

#if defined(_WIN32)
#include <cstdlib>
#else
#include <unistd.h>

#include <cerrno>
#endif

namespace Tarvik {

namespace {

/// Each block of random bits gives one identifier fewer than this: a `low` that is a multiple of it
/// means that the block is used up.
constexpr std::uint64_t blockSize = 65536;

/// The bits that the thread gives out next. Initialised without code, so that reading it costs no
/// check.
constinit thread_local IdentifierBits next{};

// A UUID says in six of its bits how to read the others: RFC 9562, section 4.1 (the variant, the
// two highest bits of the low word) and 4.2 (the version, the lowest bits of the high word but
// twelve). Version 8, section 5.8, leaves all other bits to us.
constexpr std::uint64_t versionField = 0xF000;
constexpr std::uint64_t version8 = 0x8000;
constexpr std::uint64_t variantField = 0xC000'0000'0000'0000;
constexpr std::uint64_t variantOfTheRfc = 0x8000'0000'0000'0000;

constexpr std::uint64_t withVersion(std::uint64_t high)
{
  return (high & ~versionField) | version8;
}

constexpr std::uint64_t withVariant(std::uint64_t low)
{
  return (low & ~variantField) | variantOfTheRfc;
}

// Reads the system's source of randomness. Not std::random_device: it may ask the processor
// instead, and some processors always answer the same.
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

/// Falls back on the time and on where the system put the library: better a seed that is easier to
/// guess than a program that does not start.
IdentifierBits randomSeed() noexcept
{
  try {
    return randomBits();
  } catch (const std::system_error&) {
    const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
    return {.high = static_cast<std::uint64_t>(now) * 0x9e3779b97f4a7c15U,
            .low = std::uint64_t{std::hash<const void*>{}(&next)} * 0xbf58476d1ce4e5b9U};
  }
}

const IdentifierBits seed = randomSeed();

IdentifierBits takeNext()
{
  const auto bits = next;
  ++next.low;
  return bits;
}

IdentifierBits takeFirstOfNewBlock()
{
  const auto [high, low] = randomBits();
  const auto startOfBlock = withVariant(low - low % blockSize);
  next = {.high = withVersion(high), .low = startOfBlock + 1};
  return takeNext();
}

/// Ends the current block in a forked child: the child has a copy, and the parent still uses it.
[[maybe_unused]] const bool endsBlockInChild = [] {
  ForkHandlers::add(nullptr, nullptr, [] { next.low = 0; });
  return true;
}();

}

const std::uint64_t IdentifierBits::seedHigh = seed.high;
const std::uint64_t IdentifierBits::seedLow = seed.low;

IdentifierBits IdentifierBits::unique()
{
  return next.low % blockSize != 0 ? takeNext() : takeFirstOfNewBlock();
}

}
