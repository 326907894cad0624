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

/// Runs commands, and undoes and redoes them.
///
/// The entries are in the order in which they were executed. The position is the number of entries
/// in effect: undo() undoes the entry before it, redo() redoes the entry after it. Executing a
/// command releases the entries after the position.
///
/// When a command throws, the exception reaches the caller and the history is as it was before the
/// call; jumpTo() states the one exception to this. A GUI toolkit's event loop may not let
/// exceptions through: catch them in the slot or handler that calls the history.
///
/// A command must not change the history that runs it (std::logic_error), nor the one that is
/// releasing it. A listener may, but must not destroy it. One thread at a time.
///
/// Memory: a history without a limit keeps every command until it is cleared or destroyed. A
/// command that keeps two lists of all groups takes 32 bytes for each member: with a million
/// members in the groups, a thousand commands take 32 GB. Set a limit if the lists may become
/// large.
///
/// Lifetime: commands usually share their host's provider. A provider must therefore not own the
/// history of its commands: each would keep the other alive, and neither would be destroyed. Keep
/// the history beside the provider, in the object that owns both, or clear() it before you release
/// the provider.
class TKM_COMMANDPATTERN_API CommandHistory {
public:
  /// Called after every change of entries, position, clean mark or limit.
  using Listener = std::function<void(const CommandHistory&)>;

  /// Keeps a listener subscribed until it is destroyed. May outlive the history.
  using Subscription = ChangeListeners::Subscription;

  /// No limit on the number of entries.
  // Not inline: MinGW's GCC would not export it.
  static const std::size_t unlimited = (std::numeric_limits<std::size_t>::max)();

  /// An empty history, whose state is clean.
  /// @param limit  the greatest number of entries
  explicit CommandHistory(std::size_t limit = unlimited);

  CommandHistory(const CommandHistory&) = delete;
  CommandHistory& operator=(const CommandHistory&) = delete;
  ~CommandHistory();

  /// Executes the command and keeps it as the last entry.
  /// @throws std::invalid_argument when the command is null, and whatever its execute() throws; the
  /// entries are then unchanged
  void execute(std::shared_ptr<CommandBase> command);

  /// Undoes the entry before the position. If that entry is not redo-capable, it is then released,
  /// with all entries after it.
  /// @return false when there is nothing to undo
  bool undo();

  /// Redoes the entry after the position.
  /// @return false when there is nothing to redo
  bool redo();

  /// Undoes or redoes until the position is reached, then calls the listeners once. Entries that
  /// are not redo-capable are released on the way, as in undo(). When a command throws, the steps
  /// made so far are reversed, except where an entry has been released, and the caller gets the
  /// exception.
  /// @throws std::out_of_range when `position` is greater than the number of entries, and whatever
  /// a command throws
  void jumpTo(std::size_t position);

  /// Whether there is an entry before the position.
  bool canUndo() const noexcept;

  /// Whether there is an entry after the position.
  bool canRedo() const noexcept;

  /// The description of what undo() would undo; empty when there is nothing.
  std::string undoDescription() const;

  /// The description of what redo() would redo; empty when there is nothing.
  std::string redoDescription() const;

  /// All entries, oldest first. The reference is valid until the next change.
  const std::vector<std::shared_ptr<CommandBase>>& entries() const noexcept;

  /// How many entries are in effect: from 0 to entries().size().
  std::size_t position() const noexcept;

  /// Marks the current state as clean, which usually means saved.
  void markClean();

  /// Whether the current state is the one marked clean.
  bool isClean() const noexcept;

  /// The position that is marked clean. None when undo() and redo() cannot reach that state any
  /// more, since a command on the way to it has been released.
  std::optional<std::size_t> cleanPosition() const noexcept;

  /// The greatest number of entries.
  std::size_t limit() const noexcept;

  /// Changes the greatest number of entries. The oldest entries in effect are released first. When
  /// only undone entries are left, the last ones are released, since redo() needs all before them.
  /// @param limit  0: the history keeps no command, and nothing can be undone
  void setLimit(std::size_t limit);

  /// Releases all entries. A clean state stays clean; a clean mark at another position is lost.
  void clear();

  /// Calls the listener after every change from now on. If a listener throws, the others are still
  /// called, the change remains, and the caller that made it gets the exception. In a jumpTo() that
  /// fails, the caller gets the exception of the command instead.
  /// @throws std::invalid_argument when the listener is empty
  [[nodiscard]] Subscription subscribe(Listener listener);

private:
  void stepBack();
  void stepForward();
  void retrace(std::size_t position) noexcept;
  void trimToLimit() noexcept;
  void eraseAfter(std::size_t position) noexcept;
  void checkNotRunning(const char* operation) const;

  std::vector<std::shared_ptr<CommandBase>> m_entries;
  std::size_t m_position = 0;
  std::optional<std::size_t> m_cleanPosition = 0;
  std::size_t m_limit;
  bool m_isRunning = false;
  ChangeListeners m_listeners;
};

}
