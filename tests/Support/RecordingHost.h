// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/Groups/TKGroupProviderInterface.h"
#include "Support/Groups.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik {

/// A host that owns groups, records what the commands ask of it, and fails on demand.
template <class T>
class RecordingHost : public TKGroupProviderInterface<T> {
public:
  explicit RecordingHost(std::vector<TKGroup<T>> groups = {}) : m_groups(std::move(groups)) {}

  std::vector<TKGroup<T>>& getGroups() override
  {
    note("getGroups");
    return m_handedOut != nullptr ? *m_handedOut : m_groups;
  }

  std::vector<T> getUngroupedElements() override
  {
    note("getUngroupedElements");
    return {};
  }

  void setGroups(const std::vector<TKGroup<T>>& groups) override
  {
    note("setGroups");
    m_received = &groups;
    auto copy = groups; // a copy that fails leaves the host's own list whole
    m_groups.swap(copy);
    noteChange();
  }

  std::shared_ptr<CommandBase>
  createMoveCommand(const T& target, const std::vector<T>& elements, bool insertBefore) override
  {
    note(insertBefore ? "createMoveCommand before" : "createMoveCommand after");
    return m_makeMoveCommand ? m_makeMoveCommand(target, elements) : nullptr;
  }

  std::vector<std::pair<T, std::string>> getGroupMemberNames(const Identifier& groupId) override
  {
    note("getGroupMemberNames");
    if (m_listMembers)
      return m_listMembers(groupId);
    std::vector<std::pair<T, std::string>> names;
    for (const auto& each : m_groups) {
      if (each.getId() == groupId)
        for (const T& member : each.getGroupMembers())
          names.emplace_back(member, nameOf(member));
    }
    return names;
  }

  void renameGroup(const Identifier& groupId, const std::string& name) override
  {
    note("renameGroup " + name);
    for (auto& each : m_groups) {
      if (each.getId() == groupId)
        each.setName(name, true);
    }
    noteChange();
  }

  std::string getElementName(const T& element) override
  {
    note("getElementName");
    return nameOf(element);
  }

  /// What a user sees of the groups.
  std::vector<GroupView<T>> groups() const { return view(m_groups); }

  /// A copy of the groups themselves.
  std::vector<TKGroup<T>> copyOfGroups() const { return m_groups; }

  Identifier idOf(const std::string& name) const
  {
    const auto found = std::find_if(m_groups.begin(), m_groups.end(),
                                    [&name](const auto& each) { return each.getName() == name; });
    return found != m_groups.end() ? found->getId() : Identifier::getInvalidId();
  }

  using NamedElements = std::vector<std::pair<T, std::string>>;

  void nameElements(NamedElements names) { m_names = std::move(names); }

  /// From now on getGroupMemberNames() returns what the function returns.
  void listMembersBy(std::function<NamedElements(const Identifier&)> function)
  {
    m_listMembers = std::move(function);
  }

  /// From now on createMoveCommand() returns what the function returns.
  void makeMoveCommandBy(
      std::function<std::shared_ptr<CommandBase>(const T&, const std::vector<T>&)> function)
  {
    m_makeMoveCommand = std::move(function);
  }

  /// From now on setGroups() and renameGroup() call the function at their end.
  void afterChanges(std::function<void()> function) { m_afterChange = std::move(function); }

  /// Replaces the groups without a command.
  void replaceGroups(std::vector<TKGroup<T>> groups) { m_groups = std::move(groups); }

  /// The list that the last setGroups() was given: a field of the command.
  const std::vector<TKGroup<T>>* receivedList() const { return m_received; }

  /// From now on getGroups() returns this list, which is not the host's own.
  void handOut(const std::vector<TKGroup<T>>* list)
  {
    m_handedOut = const_cast<std::vector<TKGroup<T>>*>(list); // NOLINT: nobody writes to it
  }

  /// From now on the operation throws a std::runtime_error with the operation's name.
  void failIn(const std::string& operation) { m_failing = operation; }

  /// The calls since the last time.
  std::vector<std::string> takeCalls() { return std::exchange(m_calls, {}); }

private:
  std::string nameOf(const T& element) const
  {
    const auto found = std::find_if(m_names.begin(), m_names.end(),
                                    [&](const auto& named) { return named.first == element; });
    return found != m_names.end() ? found->second : std::string();
  }

  void note(const std::string& call)
  {
    m_calls.push_back(call);
    if (call == m_failing)
      throw std::runtime_error(call);
  }

  void noteChange()
  {
    if (m_afterChange)
      m_afterChange();
  }

  std::vector<TKGroup<T>> m_groups;
  std::vector<TKGroup<T>>* m_handedOut = nullptr;
  const std::vector<TKGroup<T>>* m_received = nullptr;
  NamedElements m_names;
  std::function<NamedElements(const Identifier&)> m_listMembers;
  std::function<std::shared_ptr<CommandBase>(const T&, const std::vector<T>&)> m_makeMoveCommand;
  std::function<void()> m_afterChange;
  std::vector<std::string> m_calls;
  std::string m_failing;
};

/// A host with these groups: `hostWith(group("A", {a}), group("B", {b}))`.
template <class T, class... More>
std::shared_ptr<RecordingHost<T>> hostWith(const TKGroup<T>& first, const More&... more)
{
  return std::make_shared<RecordingHost<T>>(std::vector<TKGroup<T>>{first, more...});
}

/// A host without groups.
template <class T>
std::shared_ptr<RecordingHost<T>> emptyHost()
{
  return std::make_shared<RecordingHost<T>>();
}

using Calls = std::vector<std::string>;

}
