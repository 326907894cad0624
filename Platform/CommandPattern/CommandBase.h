// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/LegacyProgress.h"
#include "PlatformExport.h"

#include <string>

namespace Tarvik {

/// One undoable change, with a description for the user.
///
/// Life cycle: execute() once, then undo() and redo() in turn, any number of times. A call that
/// throws leaves everything as it was before the call; CommandHistory and MacroCommand build
/// their own promises on that.
class TKM_COMMANDPATTERN_API CommandBase {
public:
  /// @param description  what the user reads in an undo menu, already translated; may be empty
  explicit CommandBase(std::string description);

  CommandBase(const CommandBase&) = delete;
  CommandBase& operator=(const CommandBase&) = delete;

  /// Takes over the description; the source's is left empty.
  CommandBase(CommandBase&& other) noexcept;

  /// Takes over the description; assigning a command to itself changes nothing.
  CommandBase& operator=(CommandBase&& other) noexcept;

  virtual ~CommandBase();

  /// Works the change out and makes it. Called once, before undo() and redo().
  virtual void execute() = 0;

  /// Takes the change back. Called after execute() or redo().
  virtual void undo() = 0;

  /// Makes the change again. Called after undo().
  virtual void redo() = 0;

  /// The description given at construction.
  virtual const std::string& getDescription() const;

  /// How long one of the three operations may take; `Instant` unless overridden.
  virtual LegacyProgress::Speed::Rate getSpeedRate();

  /// Whether redo() may follow undo(); true unless overridden. A history forgets a command that
  /// answers false as soon as it is undone, along with all commands after it.
  virtual bool isRedoCapable();

private:
  std::string m_description;
};

}
