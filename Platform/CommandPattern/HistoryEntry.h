// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandBase.h"
#include "PlatformExport.h"

#include <cstddef>

namespace Tarvik {

/// What a command can tell the history that keeps it. A command class that has something to tell
/// derives from this class as well as from CommandBase.
///
/// Only override what you know. An operation that throws must have changed nothing; the history
/// then goes on as if the operation were not overridden.
class TKM_COMMANDPATTERN_API HistoryEntry {
public:
  HistoryEntry();
  HistoryEntry(const HistoryEntry&);
  HistoryEntry& operator=(const HistoryEntry&);
  virtual ~HistoryEntry();

  /// How many bytes the command keeps, with all that it alone owns. Asked after execute(), and
  /// after a merge. 0 unless overridden: the command does not know.
  virtual std::size_t sizeInBytes() const;

  /// Whether the document is the same with and without the command; false unless overridden. Asked
  /// after a merge, and after execute(), undo() and redo() if
  /// CommandHistory::setDropsCommandsWithoutChange() says so.
  virtual bool hasChangedNothing() const;

  /// Takes over the change of a command that has been executed directly after this one, so that
  /// undo() and redo() of this command do both. The history then releases the other one. Does
  /// nothing unless overridden.
  /// @param later  a command of any class; not this one
  /// @return whether it has been taken over; if not, nothing has changed
  virtual bool mergeWith(CommandBase& later);
};

}
