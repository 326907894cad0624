// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandBase.h"

#include <algorithm>
#include <cstddef>
#include <list>
#include <memory>
#include <string>
#include <utility>

namespace Tarvik {

/// Records its allocations.
class MacroCommand : public CommandBase {
public:
  // Not inline: GCC would warn that the two do not match where it sees only one of them.
  static void* operator new(std::size_t size);
  static void operator delete(void* memory);

  explicit MacroCommand(std::list<std::shared_ptr<CommandBase>> commands)
      : CommandBase(std::string()), m_commands(std::move(commands))
  {}

  void execute() override
  {
    for (const auto& command : m_commands)
      command->execute();
  }
  void undo() override
  {
    std::for_each(m_commands.rbegin(), m_commands.rend(),
                  [](const auto& command) { command->undo(); });
  }
  void redo() override
  {
    for (const auto& command : m_commands)
      command->redo();
  }

protected:
  // NOLINTBEGIN(performance-unnecessary-value-param): as they are called
  virtual void prepareExecute(std::shared_ptr<CommandBase>) {}
  virtual void finalizeExecute(std::shared_ptr<CommandBase>) {}
  // NOLINTEND(performance-unnecessary-value-param)

private:
  std::list<std::shared_ptr<CommandBase>> m_commands;
};

}
