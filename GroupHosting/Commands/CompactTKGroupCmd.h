// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandBase.h"
#include "GroupHosting/Commands/CommandRecorder.h"
#include "GroupHosting/Commands/FailureGuard.h"
#include "GroupHosting/Commands/RecordedChanges.h"
#include "GroupHosting/GroupHostingExport.h"
#include "HighLevelServices/Groups/TKGroupProviderInterface.h"
#include "Identifier/GUIdentifier.h"
#include "Identifier/Identifier.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

namespace Tarvik {

/// Runs another command on groups, and then keeps only what that command changed. A history of such
/// commands fits into memory.
///
/// The host gets the same calls as from the other command: the same ones in the same order when the
/// command is executed, the same whole lists, names and moves of the host's own on undo() and
/// redo(). In addition, these two read the host's list when they change it. They refuse to replace
/// a list that is not the one that the command left. A TKGroupProvider gets no lists from undo()
/// and redo(): these change its list in place. Call execute() once, then undo() and redo() in turn.
template <class T>
class CompactTKGroupCmd : public CommandBase {
public:
  /// Owner of the groups.
  using Provider = std::shared_ptr<TKGroupProviderInterface<T>>;

  /// Makes the other command on the given provider, which hands all calls on to the host's. It is
  /// one of this project's commands on groups, but no compact one, or a macro of such commands.
  /// Another command must keep the lists that it hands over until it is destroyed.
  using MakeCommand = std::function<std::shared_ptr<CommandBase>(Provider)>;

  /// The text for the user's undo menu, in the user's language.
  using Describe = std::function<std::string()>;

  /// @param provider     owner of the groups, shared for the command's life; not null
  /// @param makeCommand  called by execute(), and released when execute() has succeeded
  /// @param describe     called by each getDescription(), so that a description may name what the
  ///                     command did, and may follow a change of language. When empty, the
  ///                     description is that of the other command
  /// @throws std::invalid_argument when `makeCommand` is empty
  CompactTKGroupCmd(Provider provider, MakeCommand makeCommand, Describe describe = {});

  CompactTKGroupCmd(const CompactTKGroupCmd&) = delete;
  CompactTKGroupCmd& operator=(const CompactTKGroupCmd&) = delete;
  ~CompactTKGroupCmd() override;

  /// Makes the other command, executes it and releases it. When it throws, the command can be
  /// executed once more.
  /// @throws std::logic_error when the command has been executed, std::invalid_argument when
  ///         `makeCommand` returns null, and whatever the other command and the host throw
  void execute() override;

  /// @throws std::runtime_error when the host's list is not the one that the command left. Nothing
  ///         is changed then
  void undo() override;
  /// @throws std::runtime_error as undo() does
  void redo() override;

  /// Empty before execute(), unless there is a function that describes the command. The reference
  /// is valid until the next call.
  const std::string& getDescription() const override;

  /// That of the other command when it had been executed; before execute(), that of a CommandBase.
  LegacyProgress::Speed::Rate getSpeedRate() override;

  /// That of the other command when it had been executed; true before execute().
  bool isRedoCapable() override;

  /// Whether execute() has changed no list and no name, and has run no command of the host's. False
  /// before execute().
  bool hasChangedNothing() const;

  /// The memory that the command takes, without what its functions keep, what a command of the
  /// host's keeps, and the administration by the allocator.
  std::size_t sizeInBytes() const;

private:
  /// What is kept of the other command.
  struct Record {
    GroupLists::RecordedChanges<T> changes;
    std::string description;
    LegacyProgress::Speed::Rate speedRate{};
    bool isRedoCapable = true;
  };

  /// Shared by each operation while it runs: the host may release this command in the meantime.
  struct State {
    MakeCommand makeCommand;
    std::shared_ptr<const Record> record;
  };

  static void run(State& state, const Provider& provider, const MakeCommand& makeCommand);

  Provider m_provider;
  Describe m_describe;
  std::shared_ptr<State> m_state;
  mutable std::string m_description;
};

template <class T>
CompactTKGroupCmd<T>::CompactTKGroupCmd(Provider provider,
                                        MakeCommand makeCommand,
                                        Describe describe)
    : CommandBase(std::string()),
      m_provider(std::move(provider)),
      m_describe(std::move(describe)),
      m_state(std::make_shared<State>())
{
  if (!makeCommand)
    throw std::invalid_argument("CompactTKGroupCmd: the function that makes the command is empty");
  m_state->makeCommand = std::move(makeCommand);
}

template <class T>
CompactTKGroupCmd<T>::~CompactTKGroupCmd() = default;

template <class T>
void CompactTKGroupCmd<T>::execute()
{
  const auto state = m_state;
  const auto provider = m_provider;
  auto makeCommand = std::exchange(state->makeCommand, nullptr);
  if (!makeCommand)
    throw std::logic_error("CompactTKGroupCmd: execute() was called before; call redo()");
  GroupLists::FailureGuard guard([&] {
    state->record = nullptr;
    state->makeCommand = std::move(makeCommand);
  });
  run(*state, provider, makeCommand);
  guard.succeed();
}

template <class T>
void CompactTKGroupCmd<T>::run(State& state,
                               const Provider& provider,
                               const MakeCommand& makeCommand)
{
  const auto recorder = std::make_shared<GroupLists::CommandRecorder<T>>(provider);
  const auto command = makeCommand(recorder);
  if (command == nullptr)
    throw std::invalid_argument("CompactTKGroupCmd: the function that makes the command made none");
  auto record = std::make_shared<Record>();
  record->description = command->getDescription();
  recorder->execute(*command);
  record->changes = recorder->changesOf(command);
  record->speedRate = command->getSpeedRate();
  record->isRedoCapable = command->isRedoCapable();
  state.record = std::move(record);
  recorder->finish();
}

template <class T>
void CompactTKGroupCmd<T>::undo()
{
  const auto provider = m_provider;
  if (const auto record = m_state->record)
    GroupLists::repeat(record->changes, GroupLists::Direction::Backward, *provider);
}

template <class T>
void CompactTKGroupCmd<T>::redo()
{
  const auto provider = m_provider;
  if (const auto record = m_state->record)
    GroupLists::repeat(record->changes, GroupLists::Direction::Forward, *provider);
}

template <class T>
const std::string& CompactTKGroupCmd<T>::getDescription() const
{
  if (m_describe)
    return m_description = m_describe();
  return m_state->record ? m_state->record->description : CommandBase::getDescription();
}

template <class T>
LegacyProgress::Speed::Rate CompactTKGroupCmd<T>::getSpeedRate()
{
  return m_state->record ? m_state->record->speedRate : CommandBase::getSpeedRate();
}

template <class T>
bool CompactTKGroupCmd<T>::isRedoCapable()
{
  return m_state->record == nullptr || m_state->record->isRedoCapable;
}

template <class T>
bool CompactTKGroupCmd<T>::hasChangedNothing() const
{
  return m_state->record != nullptr && GroupLists::areEmpty<T>(m_state->record->changes);
}

template <class T>
std::size_t CompactTKGroupCmd<T>::sizeInBytes() const
{
  auto bytes = sizeof *this + sizeof(State) + GroupLists::bytesOf(m_description);
  if (const auto record = m_state->record)
    bytes += sizeof(Record) + GroupLists::bytesOf(record->description) +
             GroupLists::bytesOf<T>(record->changes);
  return bytes;
}

extern template class TKM_GROUPHOSTING_DECLARE CompactTKGroupCmd<Identifier>;
extern template class TKM_GROUPHOSTING_DECLARE CompactTKGroupCmd<GUIdentifier>;

}
