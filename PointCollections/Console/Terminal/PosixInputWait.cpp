// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Terminal/InputWait.h"

#include "PointCollections/Console/Terminal/Terminal.h"
#include "PointCollections/Text/Interruption.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>

namespace Tarvik::PointCollections {
namespace {

volatile std::sig_atomic_t endSignal = 0;
std::array<int, 2> wakeUp = {-1, -1}; // a pipe, so that a signal just before poll() is not missed

/// Only does what is allowed in a signal handler.
void noteEndSignal(int signal)
{
  const int error = errno;
  endSignal = signal;
  Interruptible::request(); // a command may wait for a pipe for ever
  static_cast<void>(write(wakeUp[1], "", 1) == 1);
  errno = error;
}

/// In milliseconds, rounded up; -1 for ever.
int timeUntil(const std::optional<std::chrono::steady_clock::time_point>& moment)
{
  using std::chrono::milliseconds;
  if (!moment)
    return -1;
  const auto left = std::chrono::ceil<milliseconds>(*moment - std::chrono::steady_clock::now());
  return static_cast<int>(std::clamp<milliseconds::rep>(left.count(), 0, INT_MAX));
}

}

void catchEndSignals()
{
  if (pipe(wakeUp.data()) != 0)
    return; // the signals end the program, as usual
  for (const int end : wakeUp) {
    fcntl(end, F_SETFD, FD_CLOEXEC);
    fcntl(end, F_SETFL, O_NONBLOCK);
  }
  struct sigaction action = {};
  action.sa_handler = noteEndSignal;
  sigaction(SIGTERM, &action, nullptr);
  sigaction(SIGHUP, &action, nullptr);
}

bool isAskedToEnd()
{
  return endSignal != 0;
}

void endAsAsked()
{
  if (endSignal == 0)
    return;
  std::signal(endSignal, SIG_DFL);
  std::raise(endSignal);
}

bool waitForInput(const IdleAction& action)
{
  std::array<pollfd, 2> watched = {pollfd{STDIN_FILENO, POLLIN, 0}, pollfd{wakeUp[0], POLLIN, 0}};
  while (!isAskedToEnd()) {
    std::optional<std::chrono::steady_clock::time_point> next;
    doWithoutSignals([&] { next = action(); }); // libedit's handlers allocate memory, as this does
    const int limit = timeUntil(next);
    const int ready = poll(watched.data(), watched.size(), limit);
    if (isAskedToEnd())
      break;
    if (ready > 0 || (ready < 0 && errno != EINTR))
      return true;
  }
  return false;
}

}
