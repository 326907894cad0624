// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandBase.h"
#include "GroupHosting/Commands/FailureGuard.h"
#include "GroupHosting/Commands/RecordedChanges.h"
#include "HighLevelServices/Groups/TKGroup.h"
#include "HighLevelServices/Groups/TKGroupProviderInterface.h"
#include "Identifier/Identifier.h"

#include <cstddef>
#include <exception>
#include <memory>
#include <new>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace Tarvik::GroupLists {

/// The provider of a command that is recorded: hands every call on to the host's provider, in the
/// same order, and notes what the command changes. Not for hosts.
///
/// Lists are not copied. What the command hands over when it is executed is the list after a
/// change; what it hands over when it is undone is the list before. So the command is undone once
/// to be read, without a call to the host. It must keep its lists until it is released.
///
/// The last change reaches the host in finish(), or when the command calls the host again. So
/// finding the differences, which may fail, comes before the host has changed.
template <class T>
class CommandRecorder : public TKGroupProviderInterface<T>,
                        public std::enable_shared_from_this<CommandRecorder<T>> {
public:
  explicit CommandRecorder(std::shared_ptr<TKGroupProviderInterface<T>> provider)
      : m_provider(std::move(provider))
  {
    m_changes.reserve(1);
  }

  /// Executes the command. When that throws, the host has got every change that the command made.
  void execute(CommandBase& command);

  /// What the command changed: differences, or the command itself if its undo() does not reverse
  /// its changes one by one, latest first. When this throws, the host is as it was before
  /// execute().
  RecordedChanges<T> changesOf(const std::shared_ptr<CommandBase>& command);

  /// Lets the host have the last change. When that throws, the host is as it was before execute().
  void finish();

  std::vector<TKGroup<T>>& getGroups() override;
  std::vector<T> getUngroupedElements() override;
  void setGroups(const std::vector<TKGroup<T>>& groups) override;
  std::shared_ptr<CommandBase>
  createMoveCommand(const T& target, const std::vector<T>& elements, bool insertBefore) override;
  std::vector<std::pair<T, std::string>> getGroupMemberNames(const Identifier& groupId) override;
  void renameGroup(const Identifier& groupId, const std::string& name) override;
  std::string getElementName(const T& element) override;

private:
  class RecordedHostCommand;

  struct ListCall {
    const std::vector<TKGroup<T>>* after;
    const std::vector<TKGroup<T>>* before = nullptr;

    void handOver(TKGroupProviderInterface<T>& provider) const { provider.setGroups(*after); }
    void takeBack(TKGroupProviderInterface<T>& provider) const { provider.setGroups(*before); }
    void addTo(RecordedChanges<T>& changes) const
    {
      changes.emplace_back(std::in_place_type<ListChange<T>>, *before, *after);
    }
  };

  struct NameCall {
    Identifier groupId;
    std::string after;
    std::string before{};

    void handOver(TKGroupProviderInterface<T>& provider) const
    {
      provider.renameGroup(groupId, after);
    }
    void takeBack(TKGroupProviderInterface<T>& provider) const
    {
      provider.renameGroup(groupId, before);
    }
    void addTo(RecordedChanges<T>& changes) const
    {
      changes.emplace_back(NameChange{groupId, before, after});
    }
  };

  struct HostCall {
    std::shared_ptr<CommandBase> command;

    void handOver(TKGroupProviderInterface<T>&) const { command->execute(); }
    void takeBack(TKGroupProviderInterface<T>&) const { command->undo(); }
    void addTo(RecordedChanges<T>& changes) const { changes.emplace_back(HostChange{command}); }
  };

  using Call = std::variant<ListCall, NameCall, HostCall>;

  enum class Phase { Executing, Reading, Forwarding };

  void note(Call call);
  void handOverLast();
  void takeBack() noexcept;
  bool isRead(CommandBase& command);
  void keepWhole(const std::shared_ptr<CommandBase>& command);
  void undoWhole(CommandBase& command) noexcept;
  template <class Kind, class Matches>
  void read(Matches matches);
  void executeOfHost(const std::shared_ptr<CommandBase>& command);
  void undoOfHost(const std::shared_ptr<CommandBase>& command);

  std::shared_ptr<TKGroupProviderInterface<T>> m_provider;
  Phase m_phase = Phase::Executing;
  std::vector<Call> m_calls;
  bool m_isLastHandedOver = true;
  std::size_t m_unread = 0; ///< how many calls are not yet reversed; nowhere when one did not match
  RecordedChanges<T> m_changes; ///< with room for one
};

/// What the host made for the command, as a sub-command of it.
template <class T>
class CommandRecorder<T>::RecordedHostCommand : public CommandBase {
public:
  RecordedHostCommand(std::shared_ptr<CommandRecorder> recorder,
                      std::shared_ptr<CommandBase> command)
      : CommandBase(std::string()), m_recorder(std::move(recorder)), m_command(std::move(command))
  {}

  void execute() override { m_recorder->executeOfHost(m_command); }
  void undo() override { m_recorder->undoOfHost(m_command); }
  void redo() override
  {
    if (m_recorder->m_phase == Phase::Forwarding)
      m_command->redo();
  }
  const std::string& getDescription() const override { return m_command->getDescription(); }
  LegacyProgress::Speed::Rate getSpeedRate() override { return m_command->getSpeedRate(); }
  bool isRedoCapable() override { return m_command->isRedoCapable(); }

private:
  std::shared_ptr<CommandRecorder> m_recorder;
  std::shared_ptr<CommandBase> m_command;
};

template <class T>
void CommandRecorder<T>::execute(CommandBase& command)
{
  FailureGuard guard([this] {
    try {
      handOverLast(); // a macro may have reversed its first changes
    } catch (...) {   // NOLINT(bugprone-empty-catch): the caller gets the first exception
    }
  });
  command.execute();
  guard.succeed();
}

template <class T>
RecordedChanges<T> CommandRecorder<T>::changesOf(const std::shared_ptr<CommandBase>& command)
{
  if (!isRead(*command)) {
    keepWhole(command);
    return std::move(m_changes);
  }
  FailureGuard guard([this] { takeBack(); });
  m_changes.reserve(m_calls.size());
  for (const auto& call : m_calls)
    std::visit([this](const auto& each) { each.addTo(m_changes); }, call);
  guard.succeed();
  return std::move(m_changes);
}

/// Keeps a command whose changes are not known, which calls the host from now on.
template <class T>
void CommandRecorder<T>::keepWhole(const std::shared_ptr<CommandBase>& command)
{
  m_phase = Phase::Forwarding;
  FailureGuard guard([&] { undoWhole(*command); });
  handOverLast();
  guard.succeed();
  m_calls.clear();
  m_changes.emplace_back(HostChange{command});
}

/// Undoes a command whose changes are not known, if the host got any of them.
template <class T>
void CommandRecorder<T>::undoWhole(CommandBase& command) noexcept
{
  const bool hasHandedOver = m_calls.size() > (m_isLastHandedOver ? 0 : 1);
  m_phase = Phase::Forwarding;
  m_calls.clear();
  m_isLastHandedOver = true;
  if (!hasHandedOver)
    return;
  try {
    command.undo();
  } catch (...) { // NOLINT(bugprone-empty-catch): the caller gets the first exception
  }
}

template <class T>
void CommandRecorder<T>::finish()
{
  FailureGuard guard([this] { takeBack(); });
  handOverLast();
  guard.succeed();
}

/// Adds a change, which the host gets later.
template <class T>
void CommandRecorder<T>::note(Call call)
{
  handOverLast();
  m_calls.push_back(std::move(call));
  m_isLastHandedOver = false;
}

template <class T>
void CommandRecorder<T>::handOverLast()
{
  if (m_isLastHandedOver)
    return;
  m_isLastHandedOver = true;
  FailureGuard guard([this] { m_calls.pop_back(); });
  std::visit([this](const auto& each) { each.handOver(*m_provider); }, m_calls.back());
  guard.succeed();
}

/// Reverses what the host got.
template <class T>
void CommandRecorder<T>::takeBack() noexcept
{
  if (!m_isLastHandedOver)
    m_calls.pop_back();
  while (!m_calls.empty()) {
    try {
      std::visit([this](const auto& each) { each.takeBack(*m_provider); }, m_calls.back());
    } catch (...) { // NOLINT(bugprone-empty-catch): the caller gets the first exception
    }
    m_calls.pop_back();
  }
}

/// Undoes the command to read what was before its changes.
/// @return whether that was found for all of them; otherwise the command is as after execute()
/// @throws std::bad_alloc, and the host is then as it was before execute()
template <class T>
bool CommandRecorder<T>::isRead(CommandBase& command)
{
  m_phase = Phase::Reading;
  m_unread = m_calls.size();
  std::exception_ptr outOfMemory;
  try {
    command.undo();
  } catch (const std::bad_alloc&) { // it is not rethrown in here: see FailureGuard
    outOfMemory = std::current_exception();
  } catch (...) {
    return false;
  }
  if (outOfMemory) {
    undoWhole(command);
    std::rethrow_exception(std::move(outOfMemory));
  }
  if (m_unread == 0)
    return true;
  command.redo();
  return false;
}

/// Takes a call for the reversal of the latest change that is not yet reversed, if it may be that.
/// @param matches  called with that change; sets what was before it and returns true if it may be
template <class T>
template <class Kind, class Matches>
void CommandRecorder<T>::read(Matches matches)
{
  auto* const call =
      m_unread > 0 && m_unread != nowhere ? std::get_if<Kind>(&m_calls[m_unread - 1]) : nullptr;
  if (call != nullptr && matches(*call))
    --m_unread;
  else
    m_unread = nowhere;
}

template <class T>
void CommandRecorder<T>::executeOfHost(const std::shared_ptr<CommandBase>& command)
{
  note(HostCall{command});
  handOverLast();
}

template <class T>
void CommandRecorder<T>::undoOfHost(const std::shared_ptr<CommandBase>& command)
{
  if (m_phase == Phase::Reading) {
    read<HostCall>([&command](const HostCall& call) { return call.command == command; });
    return;
  }
  handOverLast();
  command->undo();
}

template <class T>
std::vector<TKGroup<T>>& CommandRecorder<T>::getGroups()
{
  handOverLast();
  return m_provider->getGroups();
}

template <class T>
std::vector<T> CommandRecorder<T>::getUngroupedElements()
{
  handOverLast();
  return m_provider->getUngroupedElements();
}

template <class T>
void CommandRecorder<T>::setGroups(const std::vector<TKGroup<T>>& groups)
{
  if (m_phase == Phase::Forwarding) {
    m_provider->setGroups(groups);
  } else if (m_phase == Phase::Executing) {
    note(ListCall{&groups});
  } else {
    read<ListCall>([&groups](ListCall& call) {
      call.before = &groups;
      return true;
    });
  }
}

template <class T>
std::shared_ptr<CommandBase> CommandRecorder<T>::createMoveCommand(const T& target,
                                                                   const std::vector<T>& elements,
                                                                   bool insertBefore)
{
  handOverLast();
  auto command = m_provider->createMoveCommand(target, elements, insertBefore);
  if (command == nullptr)
    return nullptr;
  return std::make_shared<RecordedHostCommand>(this->shared_from_this(), std::move(command));
}

template <class T>
std::vector<std::pair<T, std::string>>
CommandRecorder<T>::getGroupMemberNames(const Identifier& groupId)
{
  handOverLast();
  return m_provider->getGroupMemberNames(groupId);
}

template <class T>
void CommandRecorder<T>::renameGroup(const Identifier& groupId, const std::string& name)
{
  if (m_phase == Phase::Forwarding) {
    m_provider->renameGroup(groupId, name);
  } else if (m_phase == Phase::Executing) {
    note(NameCall{groupId, name});
  } else {
    read<NameCall>([&groupId, &name](NameCall& call) {
      call.before = name;
      return call.groupId == groupId;
    });
  }
}

template <class T>
std::string CommandRecorder<T>::getElementName(const T& element)
{
  handOverLast();
  return m_provider->getElementName(element);
}

}
