// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandHistory.h"
#include "Platform/CommandPattern/DocumentCommands.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Tarvik {

/// All that a history shows, in one line: its entries, `|` at the position and `*` at the clean
/// mark. "A * B | C": A and B are in effect, C can be redone, and the state after A is clean.
inline std::string view(const CommandHistory& history)
{
  std::vector<std::string> parts;
  for (std::size_t i = 0; i <= history.entries().size(); ++i) {
    if (history.cleanPosition() == i)
      parts.emplace_back("*");
    if (history.position() == i)
      parts.emplace_back("|");
    if (i < history.entries().size())
      parts.push_back(history.entries()[i]->getDescription());
  }
  if (history.cleanPosition() > history.entries().size())
    parts.emplace_back("with a clean mark after its end");
  return joined(parts, " ");
}

/// A history and the document that its commands change.
class HistoryTest : public ::testing::Test {
protected:
  /// Executes one command for each name: `execute("A B C!")`, where `!` marks those that are not
  /// redo-capable.
  void execute(const std::string& names)
  {
    for (const auto& name : words(names))
      history.execute(append(document, name));
  }

  Document document;
  CommandHistory history;
};

}
