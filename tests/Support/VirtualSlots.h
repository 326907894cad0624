// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <numeric>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

/// The slots of virtual operations in the table of their class: their order is part of the binary
/// interface.
namespace Tarvik {

#if defined(_MSC_VER)

/// How Visual C++ lays out tables: a pointer to a member is the address of code that calls the
/// operation by its slot. So such a pointer is called on an object with a table of this header's
/// own, whose functions tell their slot.
namespace SlotsInTable {

constexpr std::size_t slotsOfDestructor = 1;

/// Thrown by the function in that slot. It does not return, so it may be called as any operation.
struct Called {
  std::size_t slot;
};

template <std::size_t slot>
[[noreturn]] void tell()
{
  throw Called{slot};
}

using Table = std::array<void (*)(), 16>;

template <std::size_t... slots>
constexpr Table tableOf(std::index_sequence<slots...>)
{
  return {&tell<slots>...};
}

inline constexpr Table table = tableOf(std::make_index_sequence<std::tuple_size_v<Table>>());

/// Calls the operation with arguments that nobody reads.
template <class Class, class Operation, class... Arguments>
std::size_t slotOf(Operation operation, std::tuple<Arguments...> arguments)
{
  const void* object = table.data(); // an object begins with the address of its table
  auto& called = *reinterpret_cast<Class*>(&object);
  try {
    std::apply([&](const auto&... each) { (void)(called.*operation)(each...); }, arguments);
  } catch (const Called& told) {
    return told.slot;
  }
  return table.size();
}

template <class Result, class Class, class... Arguments>
std::size_t slotOf(Result (Class::*operation)(Arguments...))
{
  return slotOf<Class>(operation, std::tuple<std::decay_t<Arguments>...>());
}

template <class Result, class Class, class... Arguments>
std::size_t slotOf(Result (Class::*operation)(Arguments...) const)
{
  return slotOf<Class>(operation, std::tuple<std::decay_t<Arguments>...>());
}

}

#else

/// How the Itanium C++ ABI lays out tables, which GCC and Clang follow on Linux and on Windows with
/// MinGW: a pointer to a member has the offset in the table.
namespace SlotsInTable {

constexpr std::size_t slotsOfDestructor = 2;

template <class Operation>
std::size_t slotOf(Operation operation)
{
  std::uintptr_t offset = 0; // in some ABIs the lowest bit marks a virtual operation
  std::memcpy(&offset, &operation, sizeof offset);
  return static_cast<std::size_t>(offset / sizeof(void*));
}

}

#endif

/// The slots of the operations, in the order given.
template <class... Operations>
std::vector<std::size_t> virtualSlots(Operations... operations)
{
  return {SlotsInTable::slotOf(operations)...};
}

/// The first `count` slots after a virtual destructor.
inline std::vector<std::size_t> slotsAfterDestructor(std::size_t count)
{
  std::vector<std::size_t> slots(count);
  std::iota(slots.begin(), slots.end(), SlotsInTable::slotsOfDestructor);
  return slots;
}

}
