// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandHistory.h"
#include "PlatformExport.h"

#include <cstddef>
#include <string>

namespace Tarvik {

/// Several commands that a history keeps as one entry, or not at all.
///
/// From construction on, the history executes commands as before, but they belong to the
/// transaction. commit() makes them one entry. rollBack(), or the destructor, undoes them: the
/// document and the history are then as they were, but for entries that have been released. The
/// listeners are called once, when the outermost transaction has ended, whatever its end.
///
/// Until the transaction has ended, nothing can be undone, redone or marked clean. The history only
/// allows execute(), keep(), releaseOldest(), releaseUndone(), forgetCleanMark() and the setters:
/// other changes throw std::logic_error. Transactions nest: an inner one becomes one command of the
/// outer one. Inner ones must end first. The history must outlive its transactions.
class TKM_COMMANDPATTERN_API CommandTransaction {
public:
  /// Starts a transaction. Takes the memory that commit() will need.
  /// @param history      must outlive the transaction
  /// @param description  for the user; when empty, that of the first command
  [[nodiscard]] explicit CommandTransaction(CommandHistory& history, std::string description = {});

  CommandTransaction(const CommandTransaction&) = delete;
  CommandTransaction& operator=(const CommandTransaction&) = delete;

  /// Rolls back unless the transaction has ended, inner ones included. Drops the exceptions of
  /// rollBack().
  ~CommandTransaction();

  /// Keeps the commands as one entry: a MacroCommand. Releases the undone entries.
  /// @return false when there are no commands; the history is then unchanged
  /// @throws std::logic_error when the transaction has ended or an inner one is open, and what a
  /// listener throws; the entry is then kept
  bool commit();

  /// Undoes the commands, latest first. When one cannot be undone, it and those before it become an
  /// entry as in commit(), so that nothing is in effect that the history does not know.
  /// @throws std::logic_error as in commit(), what the command throws that cannot be undone, and
  /// what a listener throws
  void rollBack();

private:
  CommandHistory& m_history;
  std::size_t m_number;
};

}
