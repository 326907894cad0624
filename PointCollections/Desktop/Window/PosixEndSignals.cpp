// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Window/EndSignals.h"

#include <QtCore/QSocketNotifier>

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

namespace Tarvik::PointCollections {
namespace {

volatile std::sig_atomic_t endSignal = 0;
std::array<int, 2> wakeUp = {-1, -1}; // a pipe, which the event loop watches

/// Only does what is allowed in a signal handler.
void noteEndSignal(int signal)
{
  const int error = errno;
  endSignal = signal;
  static_cast<void>(write(wakeUp[1], "", 1) == 1);
  errno = error;
}

void handleEndSignals(void (*handler)(int))
{
  struct sigaction action = {};
  action.sa_handler = handler;
  sigaction(SIGTERM, &action, nullptr);
  sigaction(SIGHUP, &action, nullptr);
}

}

EndSignals::EndSignals(QObject* parent) : QObject(parent)
{
  if (pipe(wakeUp.data()) != 0)
    return; // the signals end the program, as usual
  for (const int end : wakeUp) {
    fcntl(end, F_SETFD, FD_CLOEXEC);
    fcntl(end, F_SETFL, O_NONBLOCK);
  }
  auto* const notifier = new QSocketNotifier(wakeUp[0], QSocketNotifier::Read, this);
  connect(notifier, &QSocketNotifier::activated, this, [this] {
    char byte = 0;
    static_cast<void>(read(wakeUp[0], &byte, 1) == 1);
    Q_EMIT received();
  });
  handleEndSignals(noteEndSignal);
}

EndSignals::~EndSignals()
{
  handleEndSignals(SIG_DFL);
  for (int& end : wakeUp) {
    close(end);
    end = -1;
  }
}

void EndSignals::endAsAsked()
{
  if (endSignal == 0)
    return;
  std::signal(endSignal, SIG_DFL);
  std::raise(endSignal);
}

}
