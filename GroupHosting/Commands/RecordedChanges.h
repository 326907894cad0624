// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandBase.h"
#include "GroupHosting/Commands/FailureGuard.h"
#include "GroupHosting/Commands/ListChange.h"
#include "HighLevelServices/Groups/TKGroupProviderInterface.h"
#include "Identifier/Identifier.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace Tarvik::GroupLists {

/// A call of renameGroup(). Not for hosts.
struct NameChange {
  Identifier groupId;
  std::string before;
  std::string after;

  bool isEmpty() const { return before == after; }
  std::size_t bytes() const { return bytesOf(before) + bytesOf(after); }

  template <class T>
  void repeat(Direction direction, TKGroupProviderInterface<T>& provider) const
  {
    provider.renameGroup(groupId, direction == Direction::Forward ? after : before);
  }
};

/// A command that the host made itself, which ran. Nobody knows what it changes and how large it
/// is. Not for hosts.
struct HostChange {
  std::shared_ptr<CommandBase> command;

  // NOLINTBEGIN(readability-convert-member-functions-to-static): called like those of the others
  bool isEmpty() const { return false; }
  std::size_t bytes() const { return 0; }
  // NOLINTEND(readability-convert-member-functions-to-static)

  template <class T>
  void repeat(Direction direction, TKGroupProviderInterface<T>&) const
  {
    if (direction == Direction::Forward)
      command->redo();
    else
      command->undo();
  }
};

/// What a command did to its host, in order.
template <class T>
using RecordedChanges = std::vector<std::variant<ListChange<T>, NameChange, HostChange>>;

/// Whether none of them changed anything.
template <class T>
bool areEmpty(const RecordedChanges<T>& changes)
{
  return std::all_of(changes.begin(), changes.end(), [](const auto& change) {
    return std::visit([](const auto& each) { return each.isEmpty(); }, change);
  });
}

template <class T>
std::size_t bytesOf(const RecordedChanges<T>& changes)
{
  std::size_t bytes = changes.capacity() * sizeof(changes.front());
  for (const auto& change : changes)
    bytes += std::visit([](const auto& each) { return each.bytes(); }, change);
  return bytes;
}

/// Repeats what is in [first, last). When it throws, what was repeated is reversed, latest first.
template <class T, class Iterator>
void repeatAllOrNone(Iterator first,
                     Iterator last,
                     Direction direction,
                     TKGroupProviderInterface<T>& provider)
{
  const auto repeatOne = [&provider](const auto& change, Direction where) {
    std::visit([&](const auto& each) { each.repeat(where, provider); }, change);
  };
  auto current = first;
  FailureGuard guard([&] {
    const auto back = direction == Direction::Forward ? Direction::Backward : Direction::Forward;
    while (current != first) {
      try {
        repeatOne(*--current, back);
      } catch (...) { // NOLINT(bugprone-empty-catch): the caller gets the first exception
      }
    }
  });
  for (; current != last; ++current)
    repeatOne(*current, direction);
  guard.succeed();
}

/// Does to the host what the command's redo() would do, or its undo() when going backward.
template <class T>
void repeat(const RecordedChanges<T>& changes,
            Direction direction,
            TKGroupProviderInterface<T>& provider)
{
  if (direction == Direction::Forward)
    repeatAllOrNone(changes.begin(), changes.end(), direction, provider);
  else
    repeatAllOrNone(changes.rbegin(), changes.rend(), direction, provider);
}

}
