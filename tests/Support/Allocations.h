// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <limits>

namespace Tarvik {

/// Counts the calling thread's uses of `operator new` and `operator delete` while it lives, and can
/// make allocations fail. Use one watch at a time in each thread.
///
/// It sees the allocations of the libraries on Linux and, with MinGW, on Windows. With MSVC it sees
/// only those of the program, since each DLL has its own operators there.
class AllocationWatch {
public:
  static constexpr std::size_t none = std::numeric_limits<std::size_t>::max();

  /// @param failing   the first allocation that throws std::bad_alloc, counted from 0
  /// @param failures  how many fail, one after the other
  explicit AllocationWatch(std::size_t failing = none, std::size_t failures = 1);
  AllocationWatch(const AllocationWatch&) = delete;
  AllocationWatch& operator=(const AllocationWatch&) = delete;
  ~AllocationWatch();

  /// The number of allocations, including the failed ones.
  static std::size_t count();

  /// The number of releases, also of memory that was allocated before.
  static std::size_t released();

  /// Whether an allocation has failed.
  static bool hasFailed();

  /// The largest allocation, in bytes.
  static std::size_t largest();
};

}
