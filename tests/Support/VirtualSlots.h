// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <numeric>
#include <vector>

/// The slots of virtual operations in the table of their class: their order is part of the binary
/// interface. Reads pointers to members as laid out by the Itanium C++ ABI, which GCC and Clang
/// follow on Linux and on Windows.
namespace Tarvik {

/// The slots of the operations, in the order given.
template <class... Operations>
std::vector<std::size_t> virtualSlots(Operations... operations)
{
  const auto slotOf = [](auto operation) {
    std::uintptr_t offset = 0; // in some ABIs the lowest bit marks a virtual operation
    std::memcpy(&offset, &operation, sizeof offset);
    return static_cast<std::size_t>(offset / sizeof(void*));
  };
  return {slotOf(operations)...};
}

/// The first `count` slots after a virtual destructor, which takes two.
inline std::vector<std::size_t> slotsAfterDestructor(std::size_t count)
{
  std::vector<std::size_t> slots(count);
  std::iota(slots.begin(), slots.end(), std::size_t{2});
  return slots;
}

}
