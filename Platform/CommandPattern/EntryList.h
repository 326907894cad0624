// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/ByteSum.h"
#include "CommandPattern/CommandBase.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace Tarvik {

/// The entries of a history with their sizes, the position and the clean mark. Not for hosts.
///
/// Adding an entry at the end and taking one away at either end take constant time on average: the
/// entries move in memory only when the place that they leave at the front is half of all places.
/// An operation that takes an entry away returns its command, since only the caller knows when it
/// may be destroyed: the list is then complete, and the command's destructor may look at it.
class EntryList {
public:
  /// All entries, oldest first. Valid until the next change.
  std::span<const std::shared_ptr<CommandBase>> commands() const noexcept;

  /// The number of entries.
  std::size_t size() const noexcept;

  /// How many entries are in effect.
  std::size_t position() const noexcept;

  /// The position that is marked clean, if it can be reached.
  std::optional<std::size_t> cleanPosition() const noexcept;

  /// Whether the position is the clean one.
  bool isClean() const noexcept;

  /// The sum of the sizes of all entries.
  std::size_t sizeInBytes() const noexcept;

  /// The entry before the position. There must be one.
  CommandBase& before() const noexcept;

  /// The entry after the position. There must be one.
  CommandBase& after() const noexcept;

  /// How many states cannot be reached any more because the oldest entries have been taken away.
  std::size_t firstState() const noexcept;

  /// A number for the present state. It stays the same when entries are taken away at either end.
  std::size_t state() const noexcept;

  /// Makes room for one entry, so that append() cannot fail.
  void makeRoom();

  /// Adds an entry in effect. Call makeRoom() before. No undone entries must be left.
  void append(std::shared_ptr<CommandBase> command, std::size_t size) noexcept;

  /// The size of the entry before the position. There must be one.
  std::size_t sizeBefore() const noexcept;

  /// Changes the size of the entry before the position. There must be one.
  void setSizeBefore(std::size_t size) noexcept;

  /// The entry before the position has been undone.
  void moveBack() noexcept;

  /// The entry after the position has been redone.
  void moveForward() noexcept;

  /// Makes the position the clean one.
  void markClean() noexcept;

  /// From now on no position is clean.
  void forgetCleanMark() noexcept;

  /// Takes the oldest entry away, which must be in effect. A clean mark before it is lost.
  [[nodiscard]] std::shared_ptr<CommandBase> takeFirst() noexcept;

  /// Takes the last entry away, which must be undone. A clean mark after it is lost.
  [[nodiscard]] std::shared_ptr<CommandBase> takeLast() noexcept;

  /// Takes the entry before the position away, whose change is not there any more. The states
  /// before and after it become one.
  [[nodiscard]] std::shared_ptr<CommandBase> takeBefore() noexcept;

  /// The same with the entry after the position.
  [[nodiscard]] std::shared_ptr<CommandBase> takeAfter() noexcept;

  /// Makes the present state the first one: no entry is in effect any more, and takeLast() can take
  /// all of them away. A clean mark elsewhere is lost.
  void startHere() noexcept;

  /// Gives the memory of an empty list back.
  void freeMemory() noexcept;

private:
  std::shared_ptr<CommandBase> takeAt(std::size_t index) noexcept;
  void closeGap() noexcept;

  // Entry i is at m_first + i in both. The places before m_first are empty.
  std::vector<std::shared_ptr<CommandBase>> m_commands;
  std::vector<std::size_t> m_sizes;
  std::size_t m_first = 0;
  std::size_t m_position = 0;
  std::optional<std::size_t> m_cleanPosition = 0;
  std::size_t m_firstState = 0;
  ByteSum m_bytes;
};

inline std::span<const std::shared_ptr<CommandBase>> EntryList::commands() const noexcept
{
  return std::span(m_commands).subspan(m_first);
}

inline std::size_t EntryList::size() const noexcept
{
  return m_commands.size() - m_first;
}

inline std::size_t EntryList::position() const noexcept
{
  return m_position;
}

inline std::optional<std::size_t> EntryList::cleanPosition() const noexcept
{
  return m_cleanPosition;
}

inline bool EntryList::isClean() const noexcept
{
  return m_cleanPosition == m_position;
}

inline std::size_t EntryList::sizeInBytes() const noexcept
{
  return m_bytes.value();
}

inline CommandBase& EntryList::before() const noexcept
{
  return *m_commands[m_first + m_position - 1];
}

inline CommandBase& EntryList::after() const noexcept
{
  return *m_commands[m_first + m_position];
}

inline std::size_t EntryList::firstState() const noexcept
{
  return m_firstState;
}

inline std::size_t EntryList::state() const noexcept
{
  return m_firstState + m_position;
}

inline std::size_t EntryList::sizeBefore() const noexcept
{
  return m_sizes[m_first + m_position - 1];
}

inline void EntryList::moveBack() noexcept
{
  --m_position;
}

inline void EntryList::moveForward() noexcept
{
  ++m_position;
}

inline void EntryList::markClean() noexcept
{
  m_cleanPosition = m_position;
}

inline void EntryList::forgetCleanMark() noexcept
{
  m_cleanPosition.reset();
}

}
