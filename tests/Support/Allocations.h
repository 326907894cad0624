// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

/// Watches and fails the allocations of the test program and of the libraries it runs. One thread.
namespace Tarvik::Allocations {

/// How often memory was asked for and given back since the program started.
struct Counts {
  std::size_t taken;
  std::size_t released;
};

Counts counts();

/// Lets `successes` more allocations succeed and fails the one after them with std::bad_alloc;
/// later ones succeed again. Ends with the scope.
class FailAfter {
public:
  explicit FailAfter(std::size_t successes);
  FailAfter(const FailAfter&) = delete;
  FailAfter& operator=(const FailAfter&) = delete;
  ~FailAfter();

  /// Whether the failing allocation has come.
  static bool hasFailed();
};

}
