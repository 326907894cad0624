// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <new>
#include <span>

#if defined(_WIN32)
#include <windows.h>
#else
#include <sys/mman.h>
#endif

namespace Tarvik {

/// 4 GiB that take no memory as long as only the first page is read.
class UntouchedMemory {
public:
  static constexpr std::size_t size = std::size_t{1} << 32U;

  UntouchedMemory()
  {
    if (m_memory == nullptr)
      throw std::bad_alloc();
  }
  UntouchedMemory(const UntouchedMemory&) = delete;
  UntouchedMemory& operator=(const UntouchedMemory&) = delete;
  ~UntouchedMemory() { giveBack(m_memory); }

  std::span<const std::byte> bytes() const
  {
    return {static_cast<const std::byte*>(m_memory), size};
  }

  template <std::size_t count>
  const std::array<std::uint8_t, count>& numbers() const
  {
    static_assert(count <= size);
    return *static_cast<const std::array<std::uint8_t, count>*>(m_memory);
  }

private:
#if defined(_WIN32)
  static void* reserve()
  {
    constexpr std::size_t page = 4096;
    void* const memory = VirtualAlloc(nullptr, size, MEM_RESERVE, PAGE_READONLY);
    return memory != nullptr ? VirtualAlloc(memory, page, MEM_COMMIT, PAGE_READONLY) : nullptr;
  }
  static void giveBack(void* memory)
  {
    VirtualFree(memory, 0, MEM_RELEASE);
  }
#else
  static void* reserve()
  {
    constexpr int flags = MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE;
    void* const memory = mmap(nullptr, size, PROT_READ, flags, -1, 0);
    return memory != MAP_FAILED ? memory : nullptr;
  }
  static void giveBack(void* memory)
  {
    munmap(memory, size);
  }
#endif

  void* m_memory = reserve();
};

}
