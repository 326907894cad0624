// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandBase.h"
#include "Recording.h"

#include <algorithm>
#include <cstddef>
#include <list>
#include <memory>
#include <string>
#include <utility>

namespace Tarvik {

/// Writes down that memory is taken for it.
class MacroCommand : public CommandBase {
public:
  static void* operator new(std::size_t size)
  {
    Recording::note("new MacroCommand");
    return ::operator new(size);
  }
  static void operator delete(void* memory) { ::operator delete(memory); }

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
