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
  std::span<const std::shared_ptr<CommandBase>> commands() const noexcept;
  std::size_t size() const noexcept;
  std::size_t position() const noexcept;
  std::optional<std::size_t> cleanPosition() const noexcept;
  bool isClean() const noexcept;

  /// The sum of the sizes of all entries.
  std::size_t sizeInBytes() const noexcept;

  /// The entry before the position. There must be one.
  CommandBase& before() const noexcept;

  /// The entry after the position. There must be one.
  CommandBase& after() const noexcept;

  /// How many states cannot be reached any more because the oldest entries have been taken away.
  std::size_t firstState() const noexcept;

  /// A number for the present state. It stays the same when entries are taken away elsewhere.
  std::size_t state() const noexcept;

  /// Makes room for one entry, so that append() cannot fail.
  void makeRoom();

  /// Adds an entry in effect. Call makeRoom() before. No undone entries must be left.
  void append(std::shared_ptr<CommandBase> command, std::size_t size) noexcept;

  std::size_t sizeBefore() const noexcept;
  void setSizeBefore(std::size_t size) noexcept;

  void moveBack() noexcept;
  void moveForward() noexcept;

  void markClean() noexcept;
  void forgetCleanMark() noexcept;

  /// Takes the oldest entry away, which must be in effect. A clean mark before it is lost.
  [[nodiscard]] std::shared_ptr<CommandBase> takeFirst() noexcept;

  /// Takes the last entry away, which must be undone. A clean mark after it is lost.
  [[nodiscard]] std::shared_ptr<CommandBase> takeLast() noexcept;

  /// Takes away the entry before or after the position, whose effect is nothing. The states before
  /// and after it become one.
  [[nodiscard]] std::shared_ptr<CommandBase> takeBefore() noexcept;
  [[nodiscard]] std::shared_ptr<CommandBase> takeAfter() noexcept;

  /// Makes all entries undone ones: only the present state can be reached, and stays clean if it
  /// is.
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

}
