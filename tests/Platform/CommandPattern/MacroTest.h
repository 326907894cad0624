// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/MacroCommand.h"
#include "Platform/CommandPattern/DocumentCommands.h"

#include <gtest/gtest.h>

#include <list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik {

using SubCommands = std::list<std::shared_ptr<CommandBase>>;

/// A macro whose hooks note their calls.
class HookedMacro : public MacroCommand {
public:
  HookedMacro(Document& document, SubCommands commands)
      : MacroCommand(std::move(commands)), m_document(document)
  {}

protected:
  void prepareExecute(std::shared_ptr<CommandBase> command) override
  {
    m_document.note("prepare " + command->getDescription());
  }

  void finalizeExecute(std::shared_ptr<CommandBase> command) override
  {
    m_document.note("finalize " + command->getDescription());
  }

private:
  Document& m_document;
};

/// Macros of commands that change a document.
class MacroTest : public ::testing::Test {
protected:
  /// One sub-command for each name: `commands("A B C")`.
  SubCommands commands(const std::string& names)
  {
    SubCommands result;
    for (const auto& name : words(names))
      result.push_back(append(document, name));
    return result;
  }

  std::shared_ptr<MacroCommand> macro(const std::string& names)
  {
    return std::make_shared<MacroCommand>(commands(names));
  }

  Document document;
};

/// "execute A, execute B" for `each("execute", "A B")`.
inline std::string each(const std::string& operation, const std::string& names)
{
  std::vector<std::string> calls;
  for (const auto& name : words(names))
    calls.push_back(std::string(operation).append(" ").append(name));
  return joined(calls, ", ");
}

}
