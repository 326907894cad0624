// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/GroupCommands/MemberLists.h"
#include "HighLevelServices/Groups/TKGroup.h"
#include "HighLevelServices/Groups/TKGroupProviderInterface.h"
#include "Identifier/Identifier.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

/// Steps that several commands take on a list of groups. Not for hosts.
namespace Tarvik::GroupLists {

/// Copies the list of groups twice: for undo(), and with edited members. When that fails, `after`
/// keeps its groups, since redo() with an empty list would delete those of the host.
/// @param groups  the provider's list
/// @param before  for undo(); may be the provider's list itself
/// @param after   the edited list
/// @param edited  called as `edited(members, position)` for one group after another; returns the
///                members of its second copy
/// @param room    how many groups will be appended; a list that grows later copies all its groups
template <class T, class Edited>
void takeSnapshots(const std::vector<TKGroup<T>>& groups,
                   std::vector<TKGroup<T>>& before,
                   std::vector<TKGroup<T>>& after,
                   Edited edited,
                   std::size_t room = 0)
{
  before = groups; // may be `before` itself: self-assignment changes nothing
  std::vector<TKGroup<T>> copies;
  copies.reserve(before.size() + room);
  for (auto& group : before) {
    std::vector<T> members = edited(group.getGroupMembers(), copies.size());
    const MembersAside<T> aside(group);
    copies.push_back(group);
    MemberLists<T>::swap(copies.back(), members);
  }
  after.swap(copies);
}

/// The same without an edit: both lists become the provider's list.
template <class T>
void takeSnapshots(TKGroupProviderInterface<T>& provider,
                   std::vector<TKGroup<T>>& before,
                   std::vector<TKGroup<T>>& after)
{
  takeSnapshots(provider.getGroups(), before, after,
                [](const std::vector<T>& members, std::size_t) { return members; });
}

/// Leaves the groups at these positions in the list, in this order. Copies their names and ids
/// only; member lists are handed over. When that throws, the list is as it was.
template <class T>
void arrange(std::vector<TKGroup<T>>& groups, const std::vector<std::size_t>& positions)
{
  std::vector<TKGroup<T>> arranged;
  arranged.reserve(positions.size());
  for (const auto position : positions) {
    const MembersAside<T> aside(groups[position]);
    arranged.push_back(groups[position]);
  }
  for (std::size_t i = 0; i < positions.size(); ++i)
    MemberLists<T>::swap(arranged[i], groups[positions[i]]);
  groups.swap(arranged);
}

/// Moves a list or a text. One that is moved to itself keeps its contents.
template <class Container>
void takeOver(Container& target, Container& source)
{
  if (&target != &source)
    target = std::move(source);
}

/// The first group with that id, or the end of the list. The group's id is the left operand.
template <class Groups>
auto findGroup(Groups& groups, const Identifier& id)
{
  return std::find_if(groups.begin(), groups.end(),
                      [&id](const auto& group) { return group.getId() == id; });
}

/// Takes the element out of its first holder, and of no other.
template <class T>
void removeFromFirstHolder(std::vector<TKGroup<T>>& groups, const T& element)
{
  for (auto& group : groups) {
    if (group.removeGroupMember(element))
      return;
  }
}

/// An insert index that means the end of a group.
constexpr int endOfGroup = -1;

/// Where elements are inserted.
struct Place {
  Identifier groupId; ///< invalid when there is no such place
  int index;          ///< counted from 0, or endOfGroup
};

/// The place before or after an element, in its first holder.
template <class T>
Place placeBeside(const std::vector<TKGroup<T>>& groups, const T& element, bool before)
{
  if (element.isValid()) {
    for (const auto& group : groups) {
      const auto& members = group.getGroupMembers();
      const auto found = std::find(members.begin(), members.end(), element);
      if (found == members.end())
        continue;
      const auto next = before ? found : found + 1;
      const bool isEnd = next == members.end();
      return {group.getId(), isEnd ? endOfGroup : static_cast<int>(next - members.begin())};
    }
  }
  return {Identifier::getInvalidId(), endOfGroup};
}

}
