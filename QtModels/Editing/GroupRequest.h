// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Commands/CompactTKGroupCmd.h"

#include <functional>
#include <string>

/// @file
/// What a user asks to be done to the groups, and who does it.

namespace Tarvik {

/// One change that a user asks for.
template <class T>
struct GroupRequest {
  /// The context of the description that the command gives to the Translator.
  const char* context = "";

  /// The text of that description, in English.
  const char* text = "";

  /// Makes the command, on the provider that it is given.
  typename CompactTKGroupCmd<T>::MakeCommand makeCommand;

  /// What the description of the step names after a colon: "Europe". Called once, after the command
  /// has run. May be empty.
  std::function<std::string()> subject = {};
};

/// Executes a request as one step that can be undone. An application that has its own history gives
/// its own function.
/// @return whether anything has changed
template <class T>
using GroupRequestHandler = std::function<bool(GroupRequest<T>)>;

}
