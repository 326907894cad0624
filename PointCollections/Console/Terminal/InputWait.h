// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>
#include <optional>

/// Waiting for the user, who may go away. Each operating system has its own source file.
namespace Tarvik::PointCollections {

/// Waits until the terminal has input. Returns false to end the input.
using InputWait = std::function<bool()>;

/// What is done while the program waits. Returns when to call it again; nothing if never.
using IdleAction = std::function<std::optional<std::chrono::steady_clock::time_point>()>;

/// From now on, signals that ask the program to end (SIGTERM, SIGHUP; a closed window on Windows)
/// do not end it at once: they end the input. Call this once.
void catchEndSignals();

/// Whether such a signal has come.
bool isAskedToEnd();

/// Ends the program as the signal would have done. Returns if none has come.
void endAsAsked();

/// Waits until standard input can be read; calls the action at once and then when it wants to.
/// @return false if the program is asked to end
bool waitForInput(const IdleAction& action);

}
