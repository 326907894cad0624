// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/LegacyProgress.h"
#include "PlatformExport.h"

#include <string>

namespace Tarvik {

/// One undoable change, with a description for the user.
///
/// Call execute() once, then undo() and redo() in turn, any number of times. A call that throws
/// must leave everything as it was before the call: CommandHistory and MacroCommand rely on that.
class TKM_COMMANDPATTERN_API CommandBase {
public:
  /// @param description  what the user reads in an undo menu, in the user's language; may be empty
  explicit CommandBase(std::string description);

  CommandBase(const CommandBase&) = delete;
  CommandBase& operator=(const CommandBase&) = delete;

  /// Moves the description; that of `other` is then empty.
  CommandBase(CommandBase&& other) noexcept;

  /// Moves the description. Assigning a command to itself changes nothing.
  CommandBase& operator=(CommandBase&& other) noexcept;

  virtual ~CommandBase();

  /// Makes the change. Called once, before undo() and redo().
  virtual void execute() = 0;

  /// Reverses the change. Called after execute() or redo().
  virtual void undo() = 0;

  /// Makes the change again. Called after undo().
  virtual void redo() = 0;

  /// The description given to the constructor.
  virtual const std::string& getDescription() const;

  /// How long one of the three operations may take; `Instant` unless overridden.
  virtual LegacyProgress::Speed::Rate getSpeedRate();

  /// Whether redo() may follow undo(); true unless overridden. When this is false, a history
  /// releases the command as soon as it is undone, with all commands after it.
  virtual bool isRedoCapable();

private:
  std::string m_description;
};

}
