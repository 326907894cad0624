// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandBase.h"

#include <list>
#include <memory>
#include <string>

namespace Tarvik {

/// Several commands that the user sees as one.
///
/// Nothing is half done: when a sub-command throws, those that have already run are reversed,
/// latest first, and the caller gets the exception. If a sub-command cannot be reversed (its
/// reversal throws, or it is not redo-capable), the others still are, and the caller gets the first
/// exception. Macros nest. An empty macro does nothing.
class TKM_COMMANDPATTERN_API MacroCommand : public CommandBase {
public:
  /// @param commands     the sub-commands in the order in which they run
  /// @param description  for the user; when empty, that of the first sub-command
  /// @throws std::invalid_argument when a sub-command is null
  explicit MacroCommand(std::list<std::shared_ptr<CommandBase>> commands,
                        std::string description = {});

  /// Moves the description and the sub-commands. Leaves `other` an empty macro.
  MacroCommand(MacroCommand&& other) noexcept;

  /// Like move construction. Assigning a macro to itself changes nothing.
  MacroCommand& operator=(MacroCommand&& other) noexcept;
  ~MacroCommand() override;

  /// Executes every sub-command in order, each between prepareExecute() and finalizeExecute().
  void execute() override;

  /// Undoes every sub-command, latest first.
  void undo() override;

  /// Redoes every sub-command in order.
  void redo() override;

  const std::string& getDescription() const override;

  /// The longest of the sub-commands' rates.
  LegacyProgress::Speed::Rate getSpeedRate() override;

  /// True when every sub-command is redo-capable.
  bool isRedoCapable() override;

protected:
  /// Called before a sub-command executes. Does nothing unless overridden. When it throws, the
  /// sub-command is not executed.
  virtual void prepareExecute(std::shared_ptr<CommandBase> command);

  /// Called after a sub-command has executed. Does nothing unless overridden. When it throws, the
  /// sub-command is undone like those before it.
  virtual void finalizeExecute(std::shared_ptr<CommandBase> command);

private:
  std::list<std::shared_ptr<CommandBase>> m_commands;
};

}
