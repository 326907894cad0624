// SPDX-License-Identifier: MIT
#pragma once

#include <exception>

/// Work that the user can stop, for example with Ctrl-C.
namespace Tarvik::PointCollections {

/// The user has stopped the work. Nothing has changed.
class Interrupted : public std::exception {
public:
  const char* what() const noexcept override { return "stopped; nothing has changed"; }
};

/// While it lives, work may be stopped. There is one at a time.
class Interruptible {
public:
  /// Forgets requests that came before.
  Interruptible() noexcept;
  Interruptible(const Interruptible&) = delete;
  Interruptible& operator=(const Interruptible&) = delete;
  ~Interruptible();

  /// Asks for the end of the work. May be called at any time, on any thread and in a signal
  /// handler; it only counts while an Interruptible lives.
  static void request() noexcept;

  /// Whether work may be stopped, and somebody has asked for it.
  static bool isRequested() noexcept;

  /// Forgets a request that was not meant for the work.
  static void forget() noexcept;
};

/// While it lives, an Interruptible around it cannot be stopped, for the rescue of unsaved changes
/// for example. Requests that come meanwhile count afterwards.
class Uninterruptible {
public:
  Uninterruptible() noexcept;
  Uninterruptible(const Uninterruptible&) = delete;
  Uninterruptible& operator=(const Uninterruptible&) = delete;
  ~Uninterruptible();

private:
  bool m_wasPossible;
};

/// Call this often in work that can take long, while everything can still be left as it was.
/// @throws Interrupted if Interruptible::isRequested(), but only once for each Interruptible: what
///         has been done can be taken back then
void checkInterruption();

}
