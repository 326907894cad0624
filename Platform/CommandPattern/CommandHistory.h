// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/ChangeListeners.h"
#include "CommandPattern/CommandBase.h"
#include "CommandPattern/EntryList.h"
#include "PlatformExport.h"

#include <cstddef>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace Tarvik {

class OpenTransaction;

/// Runs commands, and undoes and redoes them.
///
/// The entries are in the order in which they were executed. The position is the number of entries
/// in effect: undo() undoes the entry before it, redo() redoes the entry after it. Executing a
/// command releases the entries after the position. A CommandTransaction makes several commands one
/// entry.
///
/// When a command throws, the exception reaches the caller and the history is as it was before the
/// call; jumpTo() states the one exception to this. A GUI toolkit's event loop may not let
/// exceptions through: catch them in the slot or handler that calls the history.
///
/// A command must not change the history that runs it or releases it: that throws std::logic_error.
/// In a destructor, such an exception ends the program unless it is caught there. A listener may
/// change the history, but must not destroy it. One thread at a time.
///
/// Memory: a history keeps every command until it is cleared or destroyed, unless it has a limit, a
/// budget, or both. A command that keeps two lists of all groups takes 32 bytes for each member:
/// with a million members in the groups, a thousand commands take 32 GB. A budget counts what the
/// commands say that they keep: as a HistoryEntry, or through the size function of the host. The
/// history itself takes up to 48 bytes more for each entry.
///
/// Lifetime: commands usually share their host's provider. A provider must therefore not own the
/// history of its commands: each would keep the other alive, and neither would be destroyed. Keep
/// the history beside the provider, in the object that owns both, or clear() it before you release
/// the provider.
class TKM_COMMANDPATTERN_API CommandHistory {
public:
  /// Called after every change of entries, position, clean mark, limit or budget, and after the
  /// outermost transaction, even if it was rolled back: something can be undone again.
  using Listener = std::function<void(const CommandHistory&)>;

  /// Keeps a listener subscribed until it is destroyed. May outlive the history.
  using Subscription = ChangeListeners::Subscription;

  /// How many bytes a command keeps.
  using SizeFunction = std::function<std::size_t(const CommandBase&)>;

  /// Whether the document is the same with and without a command that has been executed.
  using NoChangeFunction = std::function<bool(const CommandBase&)>;

  /// Lets go of memory. Returns whether to try again.
  using OutOfMemoryHandler = std::function<bool(CommandHistory&)>;

  /// No limit on the number of entries, no budget.
  // Not inline: MinGW's GCC would not export it.
  static const std::size_t unlimited = (std::numeric_limits<std::size_t>::max)();

  /// An empty history, whose state is clean.
  /// @param limit  the greatest number of entries
  explicit CommandHistory(std::size_t limit = unlimited);

  CommandHistory(const CommandHistory&) = delete;
  CommandHistory& operator=(const CommandHistory&) = delete;
  ~CommandHistory();

  /// Executes the command and keeps it as the last entry. If the last command is a HistoryEntry
  /// that takes the new one over, there is no new entry; this never happens in a clean state. If
  /// the two together change nothing, both are released.
  /// @param command      not null; not executed before
  /// @param sizeInBytes  how many bytes the command keeps; if none, the command or the size
  /// function is asked
  /// @return false when the command changed nothing and is therefore not kept, see
  /// setDropsCommandsWithoutChange(); the history is then unchanged
  /// @throws std::invalid_argument when the command is null, and whatever its execute() throws; the
  /// entries are then unchanged. What a listener throws, when the command is kept
  bool execute(std::shared_ptr<CommandBase> command,
               std::optional<std::size_t> sizeInBytes = std::nullopt);

  /// Like execute(), for a command whose execute() has been called already. When this throws, the
  /// command is not kept, and undoing it is up to the caller. Only if a listener throws, the
  /// command is kept, see subscribe().
  bool keep(std::shared_ptr<CommandBase> command,
            std::optional<std::size_t> sizeInBytes = std::nullopt);

  /// Undoes the entry before the position. If that entry is not redo-capable before or after that,
  /// it is then released, with all entries after it.
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

  /// Whether undo() would undo an entry. False while a transaction is open.
  bool canUndo() const noexcept;

  /// Whether redo() would redo an entry. False while a transaction is open.
  bool canRedo() const noexcept;

  /// The description of what undo() would undo; empty when there is nothing.
  std::string undoDescription() const;

  /// The description of what redo() would redo; empty when there is nothing.
  std::string redoDescription() const;

  /// All entries, oldest first. Valid until the next change.
  std::span<const std::shared_ptr<CommandBase>> entries() const noexcept;

  /// How many entries are in effect: from 0 to entries().size().
  std::size_t position() const noexcept;

  /// Marks the current state as clean, which usually means saved.
  void markClean();

  /// Forgets the clean mark, for instance because another program has changed the file. The history
  /// is not clean then until the next markClean().
  void forgetCleanMark();

  /// Whether the current state is the one marked clean. False while a transaction has commands.
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

  /// The greatest sum of the sizes of all entries, in bytes; `unlimited` unless it has been set.
  std::size_t budget() const noexcept;

  /// Changes the greatest sum of the sizes. Entries are released as by setLimit(), but one always
  /// stays, however large it is: the user can always undo the last command.
  void setBudget(std::size_t bytes);

  /// The sum of the sizes of all entries, in bytes. The commands of an open transaction do not
  /// count yet. A sum too great for the type is given as `unlimited`.
  std::size_t sizeInBytes() const noexcept;

  /// Sets who is asked for the size of a command that does not know its own. Asked once for each
  /// command, after it has been executed and after it has taken another one over. An exception
  /// counts as the answer 0. Sizes already known stay as they are.
  /// @param function  may be empty: such commands then have the size 0
  void setSizeFunction(SizeFunction function);

  /// Whether commands that changed nothing are dropped; false unless it has been set.
  bool dropsCommandsWithoutChange() const noexcept;

  /// Sets whether commands that changed nothing are dropped: such a command leaves no entry and no
  /// unsaved state, and what can be redone stays. A HistoryEntry says whether it is one; for
  /// those that do not, see setNoChangeFunction(). Entries are also asked after undo() and redo().
  void setDropsCommandsWithoutChange(bool drops);

  /// Sets who is asked whether a command has changed nothing if it does not say so itself. An
  /// exception counts as the answer false.
  /// @param function  may be empty: such commands are kept then
  void setNoChangeFunction(NoChangeFunction function);

  /// Sets what is called when execute(), keep(), undo(), redo() or jumpTo() fails with
  /// std::bad_alloc. The history is then as it was before the call. If the function returns true,
  /// the history tries once more:
  ///
  ///     history.setOutOfMemoryHandler([](CommandHistory& full) {
  ///       return full.releaseOldest(full.entries().size() / 2 + 1) > 0;
  ///     });
  ///
  /// There is no second try if the function has taken away what was to be undone or redone. What
  /// it throws reaches the caller. The failures of listeners are not meant here.
  /// @param handler  may be empty
  void setOutOfMemoryHandler(OutOfMemoryHandler handler);

  /// Releases up to so many entries: the oldest ones in effect first, then those that would be
  /// redone last. Never releases the entry before the position nor the one after it.
  /// @return how many have been released
  std::size_t releaseOldest(std::size_t count);

  /// Releases the entries after the position: nothing can be redone then.
  void releaseUndone();

  /// Releases all entries, and the history's own memory. A clean state stays clean; a clean mark at
  /// another position is lost.
  void clear();

  /// Like clear(), but the history is clean afterwards: for a new document.
  void reset();

  /// Calls the listener after every change from now on. If a listener throws, the others are still
  /// called, the change remains, and the caller that made it gets the exception. In a jumpTo() that
  /// fails, the caller gets the exception of the command instead.
  /// @throws std::invalid_argument when the listener is empty
  [[nodiscard]] Subscription subscribe(Listener listener);

private:
  friend class CommandTransaction;

  std::size_t beginTransaction(std::string description);
  bool commitTransaction(std::size_t number);
  void rollBackTransaction(std::size_t number);
  void abandonTransaction(std::size_t number) noexcept;
  OpenTransaction& innermostTransaction(const char* operation, std::size_t number);
  void closeTransaction() noexcept;

  template <class Action, class Condition>
  void retryWhenOutOfMemory(Action action, Condition isStillPossible);
  bool letGoOfMemory();

  void makeRoom();
  bool add(std::shared_ptr<CommandBase> command, std::optional<std::size_t> size);
  bool mergeIntoLast(EntryList& list, CommandBase& later, std::optional<std::size_t> size);
  std::size_t sizeOf(const CommandBase& command) noexcept;
  bool isToBeDropped(const CommandBase& command) noexcept;

  bool stepBack();
  bool stepForward();
  void walkTo(std::size_t& position);
  void retrace(std::size_t position) noexcept;

  void trim() noexcept;
  void releaseFrom(std::size_t position) noexcept;
  void release(std::shared_ptr<CommandBase> command) noexcept;

  void checkNotBusy(const char* operation) const;
  void checkIdle(const char* operation) const;

  EntryList m_entries;
  std::vector<std::unique_ptr<OpenTransaction>> m_transactions; ///< innermost last
  std::size_t m_lastTransaction = 0;
  std::size_t m_limit;
  std::size_t m_budget = unlimited;
  SizeFunction m_sizeFunction;
  NoChangeFunction m_noChangeFunction;
  OutOfMemoryHandler m_outOfMemoryHandler;
  bool m_dropsCommandsWithoutChange = false;
  bool m_isLettingGo = false;
  const char* m_busyWith = nullptr; ///< what it does with a command: "running", "releasing"
  ChangeListeners m_listeners;
};

}
