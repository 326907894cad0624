// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Terminal/InputWait.h"

#include <windows.h>

#include <algorithm>
#include <atomic>

namespace Tarvik::PointCollections {
namespace {

std::atomic<bool> isEndWanted = false;

DWORD timeUntil(const std::optional<std::chrono::steady_clock::time_point>& moment)
{
  using std::chrono::milliseconds;
  if (!moment)
    return INFINITE;
  const auto left = std::chrono::ceil<milliseconds>(*moment - std::chrono::steady_clock::now());
  return static_cast<DWORD>(std::clamp<milliseconds::rep>(left.count(), 0, INFINITE - 1));
}

/// Runs in a thread of its own. The system ends the program when this returns, so main() gets time
/// to end it first.
BOOL WINAPI noteEnd(DWORD event)
{
  if (event != CTRL_CLOSE_EVENT && event != CTRL_LOGOFF_EVENT && event != CTRL_SHUTDOWN_EVENT)
    return FALSE;
  constexpr DWORD patience = 4000; // milliseconds; the system waits for 5000
  isEndWanted = true;
  CancelIoEx(GetStdHandle(STD_INPUT_HANDLE), nullptr);
  Sleep(patience);
  return TRUE;
}

}

void catchEndSignals()
{
  SetConsoleCtrlHandler(noteEnd, TRUE);
}

bool isAskedToEnd()
{
  return isEndWanted;
}

void endAsAsked()
{
  // main() returns, which ends the program
}

/// The console edits the line itself: once the user types, nothing is done until Enter.
bool waitForInput(const IdleAction& action)
{
  constexpr DWORD longest = 200; // milliseconds, after which to look whether the end is wanted
  auto* const input = GetStdHandle(STD_INPUT_HANDLE);
  while (!isAskedToEnd()) {
    const auto limit = std::min(timeUntil(action()), longest);
    if (WaitForSingleObject(input, limit) != WAIT_TIMEOUT)
      return !isAskedToEnd();
  }
  return false;
}

}
