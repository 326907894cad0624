// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandBase.h"

#include <QtCore/QString>

namespace Tarvik {

/// The description of a command; empty if the command cannot tell it. Views ask for it at any time,
/// and cannot do anything about an exception.
inline QString descriptionOf(const CommandBase& command) noexcept
{
  try {
    return QString::fromStdString(command.getDescription());
  } catch (...) {
    return {};
  }
}

}
