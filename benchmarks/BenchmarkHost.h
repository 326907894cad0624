// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/Groups/TKGroupProviderInterface.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik {

template <class T>
using Groups = std::vector<TKGroup<T>>;

template <class T>
using MemberNames = std::vector<std::pair<T, std::string>>;

/// Names in random order: "Group 937", ...
inline std::vector<std::string> shuffledNames(const std::string& stem, std::size_t count)
{
  std::vector<std::string> names;
  names.reserve(count);
  for (std::size_t i = 0; i < count; ++i)
    names.push_back(stem + std::to_string(i));
  std::shuffle(names.begin(), names.end(), std::minstd_rand(1)); // NOLINT: the same in every run
  return names;
}

template <class T>
Groups<T> makeGroups(std::size_t groupCount, std::size_t memberCount)
{
  Groups<T> groups;
  groups.reserve(groupCount);
  for (const auto& name : shuffledNames("Group ", groupCount)) {
    groups.emplace_back(name);
    groups.back().addGroupMembersAtIndex(std::vector<T>(memberCount), 0);
  }
  return groups;
}

/// Keeps the lists that it is given apart from the list that it hands out, so that every iteration
/// of a benchmark starts from the same groups.
template <class T>
class BenchmarkHost : public TKGroupProviderInterface<T> {
public:
  BenchmarkHost(std::size_t groupCount, std::size_t memberCount)
      : m_groups(makeGroups<T>(groupCount, memberCount)),
        m_received(m_groups),
        m_memberNames(shuffledNames("Member ", memberCount))
  {}

  Groups<T>& getGroups() override { return m_groups; }
  std::vector<T> getUngroupedElements() override { return {}; }
  void setGroups(const Groups<T>& groups) override
  {
    if (m_takesLists)
      m_received = groups;
  }
  std::shared_ptr<CommandBase> createMoveCommand(const T&, const std::vector<T>&, bool) override
  {
    return nullptr;
  }
  MemberNames<T> getGroupMemberNames(const Identifier& groupId) override
  {
    MemberNames<T> names;
    if (!m_listsMembers)
      return names;
    const auto& members = find(groupId).getGroupMembers();
    names.reserve(members.size());
    for (std::size_t i = 0; i < members.size(); ++i)
      names.emplace_back(members[i], m_memberNames[i]);
    return names;
  }
  void renameGroup(const Identifier& groupId, const std::string& name) override
  {
    find(groupId).setName(name, true);
  }
  std::string getElementName(const T&) override { return {}; }

  TKGroup<T>& middleGroup() { return m_groups[m_groups.size() / 2]; }
  T middleMember() { return memberAt(m_groups.size() / 2); }
  T lastMember() { return memberAt(m_groups.size() - 1); }

  /// From now on, lists no members for any group: a command then sorts the groups only.
  void listNoMembers() { m_listsMembers = false; }

  /// From now on, copies no lists: all copies are then the command's.
  void takeNoLists() { m_takesLists = false; }

private:
  TKGroup<T>& find(const Identifier& id)
  {
    return *std::find_if(m_groups.begin(), m_groups.end(),
                         [&id](const auto& group) { return group.getId() == id; });
  }
  T memberAt(std::size_t group) const
  {
    return m_groups[group].getGroupMemberAtIndex(m_groups[group].numberOfGroupMembers() / 2);
  }

  Groups<T> m_groups;
  Groups<T> m_received;
  std::vector<std::string> m_memberNames;
  bool m_listsMembers = true;
  bool m_takesLists = true;
};

template <class T>
std::shared_ptr<BenchmarkHost<T>> hostOf(const benchmark::State& state)
{
  return std::make_shared<BenchmarkHost<T>>(static_cast<std::size_t>(state.range(0)),
                                            static_cast<std::size_t>(state.range(1)));
}

}
