// SPDX-License-Identifier: MIT
#include "Support/Allocations.h"

#if defined(__MINGW32__)
#include "Support/ImportTable.h"
#endif

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <new>

namespace Tarvik {
namespace {

struct Watched {
  bool active = false;
  std::size_t failing = AllocationWatch::none;
  std::size_t failures = 1;
  std::size_t count = 0;
  std::size_t largest = 0;
  std::size_t released = 0;
};

constinit thread_local Watched watched{};

std::atomic<std::size_t> faults = 0;

/// Says at the end how many allocations have failed, for scripts/attack.
struct FaultReport {
  ~FaultReport()
  {
    if (std::getenv("TKM_REPORT_FAULTS") != nullptr)
      std::printf("allocation faults: %zu\n", faults.load());
  }
};

const FaultReport report;

/// Null when the allocation fails.
void* allocate(std::size_t size) noexcept
{
  if (watched.active) {
    watched.largest = std::max(watched.largest, size);
    const std::size_t number = watched.count++;
    if (number >= watched.failing && number - watched.failing < watched.failures) {
      ++faults;
      return nullptr;
    }
  }
  return std::malloc(std::max<std::size_t>(size, 1));
}

void release(void* memory) noexcept
{
  if (memory != nullptr)
    ++watched.released;
  std::free(memory);
}

void* allocateOrThrow(std::size_t size)
{
  void* const memory = allocate(size);
  if (memory == nullptr)
    throw std::bad_alloc();
  return memory;
}

#if defined(__MINGW32__)
/// The operators below are the program's alone on Windows: DLLs use those of the C++ runtime that
/// they share, which take their memory from the C library. So the runtime is watched there.
[[maybe_unused]] const bool watchesTheRuntime = [] {
  const HMODULE runtime = ImportTable::module("libstdc++-6.dll");
  const HMODULE library = ImportTable::module("msvcrt.dll");
  ImportTable::redirect(runtime, library, "malloc", &allocate);
  ImportTable::redirect(runtime, library, "free", &release);
  return true;
}();
#endif

}

AllocationWatch::AllocationWatch(std::size_t failing, std::size_t failures)
{
  watched = {.active = true, .failing = failing, .failures = failures};
}

AllocationWatch::~AllocationWatch()
{
  watched.active = false;
}

std::size_t AllocationWatch::count()
{
  return watched.count;
}

std::size_t AllocationWatch::largest()
{
  return watched.largest;
}

std::size_t AllocationWatch::released()
{
  return watched.released;
}

bool AllocationWatch::hasFailed()
{
  return watched.count > watched.failing;
}

}

void* operator new(std::size_t size)
{
  return Tarvik::allocateOrThrow(size);
}

void* operator new[](std::size_t size)
{
  return Tarvik::allocateOrThrow(size);
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
  return Tarvik::allocate(size);
}

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept
{
  return Tarvik::allocate(size);
}

void operator delete(void* memory) noexcept
{
  Tarvik::release(memory);
}

void operator delete[](void* memory) noexcept
{
  Tarvik::release(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
  Tarvik::release(memory);
}

void operator delete[](void* memory, std::size_t) noexcept
{
  Tarvik::release(memory);
}

void operator delete(void* memory, const std::nothrow_t&) noexcept
{
  Tarvik::release(memory);
}

void operator delete[](void* memory, const std::nothrow_t&) noexcept
{
  Tarvik::release(memory);
}
