// SPDX-License-Identifier: MIT
#pragma once

#include <utility>

namespace Tarvik::GroupLists {

/// Runs a function at the end of the scope, unless succeed() was called. Not for hosts.
///
/// A handler that rethrows does the same in one place. But with Visual C++ it keeps the whole stack
/// until the exception has been handled, so nested commands with such handlers would exhaust it.
/// The bundled platform has the same class, but a host may bring another platform.
template <class Function>
class FailureGuard {
public:
  /// @param onFailure  must not throw
  explicit FailureGuard(Function onFailure) : m_onFailure(std::move(onFailure)) {}
  FailureGuard(const FailureGuard&) = delete;
  FailureGuard& operator=(const FailureGuard&) = delete;
  ~FailureGuard()
  {
    if (!m_hasSucceeded)
      m_onFailure();
  }

  /// Nothing is left that could fail.
  void succeed() noexcept { m_hasSucceeded = true; }

private:
  Function m_onFailure;
  bool m_hasSucceeded = false;
};

}
