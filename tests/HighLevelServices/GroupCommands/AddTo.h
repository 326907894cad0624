// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/GroupCommands/AddToTKGroupCmd.h"
#include "Support/RecordingHost.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Tarvik {

/// Adds elements to the group of that name, as a host would.
template <class T>
void addTo(const std::shared_ptr<RecordingHost<T>>& host,
           const std::string& targetName,
           const std::vector<T>& elements,
           std::optional<int> insertIndex = std::nullopt)
{
  AddToTKGroupCmd<T> command(host, elements, host->idOf(targetName));
  if (insertIndex)
    command.setInsertIndex(*insertIndex);
  command.execute();
}

}
