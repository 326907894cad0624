// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"
#include "PointCollections/Editor/Editor.h"

#include <memory>
#include <string>
#include <vector>

/// Changes for tests.
namespace Tarvik::PointCollections {

/// Adds an empty group.
inline void createGroup(Editor& editor, const std::string& name)
{
  editor.execute(
      {.context = "CreateTKGroupCmd", .text = "Create Group", .makeCommand = [name](auto provider) {
         return std::make_shared<CreateTKGroupCmd<GUIdentifier>>(provider,
                                                                 std::vector<GUIdentifier>(), name);
       }});
}

}
