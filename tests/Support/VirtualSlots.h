// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <numeric>
#include <vector>

/// Where virtual operations stand in their class's table: their order is part of the binary
/// interface. Reads pointers to members as the Itanium C++ ABI lays them out, which GCC and Clang
/// follow on Linux and on Windows.
namespace Tarvik {

/// The slots of the operations, in the order given.
template <class... Operations>
std::vector<std::size_t> virtualSlots(Operations... operations)
{
  const auto slotOf = [](auto operation) {
    std::uintptr_t offset = 0; // with its lowest bit set where that tells a virtual operation
    std::memcpy(&offset, &operation, sizeof offset);
    return static_cast<std::size_t>(offset / sizeof(void*));
  };
  return {slotOf(operations)...};
}

/// The first `count` slots behind a virtual destructor, which takes two.
inline std::vector<std::size_t> slotsBehindDestructor(std::size_t count)
{
  std::vector<std::size_t> slots(count);
  std::iota(slots.begin(), slots.end(), std::size_t{2});
  return slots;
}

}
