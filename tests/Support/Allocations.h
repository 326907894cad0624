// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <limits>

namespace Tarvik {

/// Counts the calling thread's uses of `operator new` and `operator delete` while it lives, and can
/// make one allocation fail. Use one watch at a time in each thread.
///
/// It sees the allocations of the libraries on Linux and, with MinGW, on Windows. With MSVC it sees
/// only those of the program, since each DLL has its own operators there.
class AllocationWatch {
public:
  static constexpr std::size_t none = std::numeric_limits<std::size_t>::max();

  /// @param failing  which allocation throws std::bad_alloc, counted from 0
  explicit AllocationWatch(std::size_t failing = none);
  AllocationWatch(const AllocationWatch&) = delete;
  AllocationWatch& operator=(const AllocationWatch&) = delete;
  ~AllocationWatch();

  /// The number of allocations, including the failed one.
  static std::size_t count();

  /// The number of releases, also of memory that was allocated before.
  static std::size_t released();

  /// Whether the failing allocation has happened.
  static bool hasFailed();

  /// The largest allocation, in bytes.
  static std::size_t largest();
};

}
