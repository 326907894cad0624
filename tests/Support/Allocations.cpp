// SPDX-License-Identifier: MIT
#include "Support/Allocations.h"

#include <cstdint>
#include <cstdlib>
#include <limits>
#include <new>

namespace Tarvik::Allocations {

namespace {

constexpr std::size_t never = std::numeric_limits<std::size_t>::max();

thread_local Counts current{};
thread_local std::size_t successesLeft = never;
thread_local bool failed = false;

void* allocate(std::size_t size)
{
  if (successesLeft == 0) {
    successesLeft = never;
    failed = true;
    throw std::bad_alloc();
  }
  if (successesLeft != never)
    --successesLeft;
  if (void* const memory = std::malloc(size)) { // NOLINT: this is operator new
    ++current.taken;
    return memory;
  }
  throw std::bad_alloc();
}

void release(void* memory) noexcept
{
  if (memory != nullptr)
    ++current.released;
  std::free(memory); // NOLINT: this is operator delete
}

}

Counts counts()
{
  return current;
}

FailAfter::FailAfter(std::size_t successes)
{
  failed = false;
  successesLeft = successes;
}

FailAfter::~FailAfter()
{
  successesLeft = never;
}

bool FailAfter::hasFailed()
{
  return failed;
}

}

void* operator new(std::size_t size)
{
  return Tarvik::Allocations::allocate(size != 0 ? size : 1);
}

void operator delete(void* memory) noexcept
{
  Tarvik::Allocations::release(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
  Tarvik::Allocations::release(memory);
}
