// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/ChangeListeners.h"
#include "CommandPattern/CommandBase.h"
#include "PlatformExport.h"

#include <cstddef>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Tarvik {

/// The commands that a user has executed, and the way back and forth through them.
///
/// The entries stand in the order in which they were executed. The position is the number of
/// entries that are in effect: the entry in front of it is undone next, the one behind it redone
/// next. Executing a command cuts off the entries behind the position.
///
/// An operation that throws because a command threw leaves the history as it was, with the one
/// exception that jumpTo() states. A command must not operate the history that runs it
/// (std::logic_error), nor the one that it is released by; a listener may, but must not destroy it.
/// One thread at a time.
class TKM_COMMANDPATTERN_API CommandHistory {
public:
  /// Learns of every change of entries, position, clean mark or limit, after it has happened.
  using Listener = std::function<void(const CommandHistory&)>;

  /// Keeps a listener subscribed for as long as it lives; may outlive the history.
  using Subscription = ChangeListeners::Subscription;

  /// No limit on the number of commands. Defined in the source file: MinGW's GCC exports no other.
  static const std::size_t unlimited = (std::numeric_limits<std::size_t>::max)();

  /// An empty history with the clean mark at its start.
  /// @param limit  the most commands that it keeps
  explicit CommandHistory(std::size_t limit = unlimited);

  CommandHistory(const CommandHistory&) = delete;
  CommandHistory& operator=(const CommandHistory&) = delete;
  ~CommandHistory();

  /// Executes the command and keeps it as the last entry.
  /// @throws std::invalid_argument when the command is null, and whatever its execute() throws;
  /// nothing is kept or cut off then
  void execute(std::shared_ptr<CommandBase> command);

  /// Undoes the entry in front of the position. An entry that is not redo-capable then leaves the
  /// history together with all behind it.
  /// @return false when there is nothing to undo
  bool undo();

  /// Redoes the entry behind the position.
  /// @return false when there is nothing to redo
  bool redo();

  /// Undoes or redoes until the position is reached; listeners are told once. Entries that are not
  /// redo-capable leave the history on the way, as in undo(). When a command throws, the steps
  /// made so far are taken back, as far as redo-capable commands allow, and the exception goes on.
  /// @throws std::out_of_range when `position` is greater than the number of entries
  void jumpTo(std::size_t position);

  /// Whether an entry stands in front of the position.
  bool canUndo() const noexcept;

  /// Whether an entry stands behind the position.
  bool canRedo() const noexcept;

  /// The description of what undo() would undo; empty when there is nothing.
  std::string undoDescription() const;

  /// The description of what redo() would redo; empty when there is nothing.
  std::string redoDescription() const;

  /// All entries, oldest first. The reference is valid until the next change.
  const std::vector<std::shared_ptr<CommandBase>>& entries() const noexcept;

  /// How many of the entries are in effect, from 0 to their number.
  std::size_t position() const noexcept;

  /// Marks the present state as clean, which usually means saved.
  void markClean();

  /// Whether the present state is the one marked clean.
  bool isClean() const noexcept;

  /// The position that is marked clean; none once that state cannot be reached any more because
  /// its branch was cut off or the limit took a command on the way to it.
  std::optional<std::size_t> cleanPosition() const noexcept;

  /// The most commands that the history keeps.
  std::size_t limit() const noexcept;

  /// Changes the most commands that the history keeps. The oldest commands go first; where all
  /// that are left are undone, those that would be redone last go, since a command can only be
  /// redone when all before it have been.
  /// @param limit  0 keeps no command at all: everything executed is final
  void setLimit(std::size_t limit);

  /// Forgets all entries. A clean state stays clean; a clean mark elsewhere is lost.
  void clear();

  /// Subscribes a listener, which is told from the next change on. An exception of a listener
  /// reaches whoever made the change, once all listeners have been told; the change stands. It
  /// gives way to the exception of a command in jumpTo().
  /// @throws std::invalid_argument when the listener is empty
  [[nodiscard]] Subscription subscribe(Listener listener);

private:
  void stepBack();
  void stepForward();
  void retrace(std::size_t position) noexcept;
  void trimToLimit() noexcept;
  void eraseBehind(std::size_t position) noexcept;
  void checkNotRunning(const char* operation) const;

  std::vector<std::shared_ptr<CommandBase>> m_entries;
  std::size_t m_position = 0;
  std::optional<std::size_t> m_cleanPosition = 0;
  std::size_t m_limit;
  bool m_isRunning = false;
  ChangeListeners m_listeners;
};

}
