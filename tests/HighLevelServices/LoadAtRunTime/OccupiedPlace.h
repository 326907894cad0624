// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>

#if defined(_WIN32)
#include <windows.h>
#else
#include <sys/mman.h>
#endif

namespace Tarvik {

/// The memory around an address, taken so that no library is loaded there.
class OccupiedPlace {
public:
  /// @throws std::runtime_error when the memory is not free
  explicit OccupiedPlace(void* address) : m_memory(take(address))
  {
    if (m_memory == nullptr)
      throw std::runtime_error("this place is not free");
  }
  OccupiedPlace(const OccupiedPlace&) = delete;
  OccupiedPlace& operator=(const OccupiedPlace&) = delete;
  ~OccupiedPlace() { giveBack(m_memory); }

private:
#if defined(_WIN32)
  static void* take(void* address)
  {
    return VirtualAlloc(address, 1, MEM_RESERVE, PAGE_NOACCESS);
  }
  static void giveBack(void* memory)
  {
    VirtualFree(memory, 0, MEM_RELEASE);
  }
#else
  /// The system takes another place when that one is not free.
  static void* take(void* address)
  {
    void* const memory = mmap(address, 1, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    const auto* const found = static_cast<char*>(memory);
    const auto* const wanted = static_cast<char*>(address);
    if (memory != MAP_FAILED && found <= wanted && wanted < found + page)
      return memory;
    if (memory != MAP_FAILED)
      giveBack(memory);
    return nullptr;
  }
  static void giveBack(void* memory)
  {
    munmap(memory, 1);
  }

  static constexpr int page = 65536; // or less
#endif

  void* m_memory;
};

}
