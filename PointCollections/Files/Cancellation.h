// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>

namespace Tarvik::PointCollections {

/// Lets one thread cancel what another one does, up to a point of no return. Both always agree on
/// whether it was cancelled.
class Cancellation {
public:
  /// Asks the other thread to stop.
  /// @return false if it is too late: what was to be cancelled is being done
  bool cancel() { return leave(State::Cancelled); }

  /// The other thread asks this now and then, and stops if it is true.
  bool isCancelled() const { return m_state == State::Cancelled; }

  /// The other thread calls this before it does what cannot be taken back.
  /// @return false if it must not do that, because it was cancelled
  bool passPointOfNoReturn() { return leave(State::Done); }

private:
  enum class State { Open, Cancelled, Done };

  /// @return whether the state is the other one now
  bool leave(State other)
  {
    auto open = State::Open;
    return m_state.compare_exchange_strong(open, other) || open == other;
  }

  std::atomic<State> m_state = State::Open;
};

}
