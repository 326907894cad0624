// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <limits>

namespace Tarvik {

/// Counts what the calling thread takes with `operator new` and gives back while it lives, and can
/// let one of these allocations fail. One at a time in each thread.
///
/// It reaches into the libraries on Linux and, with MinGW, on Windows. With MSVC it sees what the
/// program itself takes, since each DLL has operators of its own there.
class AllocationWatch {
public:
  static constexpr std::size_t none = std::numeric_limits<std::size_t>::max();

  /// @param failing  which allocation throws std::bad_alloc, counted from 0
  explicit AllocationWatch(std::size_t failing = none);
  AllocationWatch(const AllocationWatch&) = delete;
  AllocationWatch& operator=(const AllocationWatch&) = delete;
  ~AllocationWatch();

  /// How many allocations were asked for, the failed one included.
  static std::size_t count();

  /// How many allocations were given back, those from before included.
  static std::size_t released();

  /// Whether the failing allocation has come.
  static bool hasFailed();

  /// The most bytes that were asked for at once.
  static std::size_t largest();
};

}
