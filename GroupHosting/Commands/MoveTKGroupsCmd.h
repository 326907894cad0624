// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandBase.h"
#include "GroupHosting/GroupHostingExport.h"
#include "HighLevelServices/GroupCommands/GroupLists.h"
#include "HighLevelServices/GroupCommands/Search.h"
#include "HighLevelServices/Groups/TKGroup.h"
#include "HighLevelServices/Groups/TKGroupProviderInterface.h"
#include "Identifier/GUIdentifier.h"
#include "Identifier/Identifier.h"
#include "Translator/Translator.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace Tarvik {

/// Moves groups to the place before or after another group.
///
/// Of groups with equal ids, the first one counts. Unknown ids are skipped, and ids that are given
/// twice count once. The target may be one of the groups: the others gather around its place, in
/// the order given. If the target is unknown, nothing moves. The command hands its list over all
/// the same, like nearly all commands do. Call execute() once, then undo() and redo() in turn.
template <class T>
class MoveTKGroupsCmd : public CommandBase {
public:
  /// @param provider       owner of the groups, shared for the command's life; not null
  /// @param groupIds       copied; in their new order
  /// @param targetGroupId  the group next to which they go
  /// @param insertBefore   true: before the target; false: after it
  MoveTKGroupsCmd(std::shared_ptr<TKGroupProviderInterface<T>> provider,
                  const std::vector<Identifier>& groupIds,
                  const Identifier& targetGroupId,
                  bool insertBefore);

  /// The source keeps no provider, ids or lists: only destroy it or assign to it.
  MoveTKGroupsCmd(MoveTKGroupsCmd&& other);
  MoveTKGroupsCmd& operator=(MoveTKGroupsCmd&& other);
  ~MoveTKGroupsCmd() override;

  void execute() override;
  void undo() override;
  void redo() override;

private:
  void initialize();

  std::shared_ptr<TKGroupProviderInterface<T>> m_provider;
  Identifier m_targetGroupId;
  std::vector<Identifier> m_groupIds;
  bool m_insertBefore;
  std::vector<TKGroup<T>> m_groupsAfter;
  std::vector<TKGroup<T>> m_groupsBefore;
};

namespace GroupLists {

/// The first positions of groups with these ids, without duplicates; unknown ids are skipped.
template <class T>
std::vector<std::size_t> positionsOf(const std::vector<Identifier>& groupIds,
                                     const std::vector<TKGroup<T>>& groups)
{
  std::vector<Identifier> ids;
  ids.reserve(groups.size());
  for (const auto& group : groups)
    ids.push_back(group.getId());
  auto positions = Search<Identifier>(groupIds).firstPositions(ids);

  std::vector<bool> isTaken(groups.size());
  std::erase_if(positions, [&isTaken](std::size_t position) {
    if (position == nowhere || isTaken[position])
      return true;
    isTaken[position] = true;
    return false;
  });
  return positions;
}

/// The positions of all groups in an order in which some are at another place.
/// @param moved   different positions
/// @param place   the position before which they go; the number of groups for the end
/// @param groups  how many groups there are
inline std::vector<std::size_t>
positionsWithMoved(const std::vector<std::size_t>& moved, std::size_t place, std::size_t groups)
{
  std::vector<bool> isMoved(groups);
  for (const auto position : moved)
    isMoved[position] = true;
  std::vector<std::size_t> positions;
  positions.reserve(groups);
  for (std::size_t i = 0; i <= groups; ++i) {
    if (i == place)
      positions.insert(positions.end(), moved.begin(), moved.end());
    if (i < groups && !isMoved[i])
      positions.push_back(i);
  }
  return positions;
}

}

template <class T>
MoveTKGroupsCmd<T>::MoveTKGroupsCmd(std::shared_ptr<TKGroupProviderInterface<T>> provider,
                                    const std::vector<Identifier>& groupIds,
                                    const Identifier& targetGroupId,
                                    bool insertBefore)
    : CommandBase(Translator::translate("MoveTKGroupsCmd", "Move Groups", nullptr, -1)),
      m_provider(provider),
      m_targetGroupId(targetGroupId),
      m_groupIds(groupIds),
      m_insertBefore(insertBefore)
{}

template <class T>
MoveTKGroupsCmd<T>::MoveTKGroupsCmd(MoveTKGroupsCmd&& other) = default;

template <class T>
MoveTKGroupsCmd<T>& MoveTKGroupsCmd<T>::operator=(MoveTKGroupsCmd&& other)
{
  CommandBase::operator=(static_cast<CommandBase&&>(other));
  m_provider = std::move(other.m_provider);
  m_targetGroupId = other.m_targetGroupId;
  GroupLists::takeOver(m_groupIds, other.m_groupIds);
  m_insertBefore = other.m_insertBefore;
  GroupLists::takeOver(m_groupsAfter, other.m_groupsAfter);
  GroupLists::takeOver(m_groupsBefore, other.m_groupsBefore);
  return *this;
}

template <class T>
MoveTKGroupsCmd<T>::~MoveTKGroupsCmd() = default;

template <class T>
void MoveTKGroupsCmd<T>::execute()
{
  initialize();
  redo();
}

template <class T>
void MoveTKGroupsCmd<T>::undo()
{
  m_provider->setGroups(m_groupsBefore);
}

template <class T>
void MoveTKGroupsCmd<T>::redo()
{
  m_provider->setGroups(m_groupsAfter);
}

template <class T>
void MoveTKGroupsCmd<T>::initialize()
{
  GroupLists::takeSnapshots(*m_provider, m_groupsBefore, m_groupsAfter);
  const auto target = GroupLists::findGroup(m_groupsAfter, m_targetGroupId);
  if (target == m_groupsAfter.end())
    return;
  const auto next = m_insertBefore ? target : target + 1;
  GroupLists::arrange(m_groupsAfter, GroupLists::positionsWithMoved(
                                         GroupLists::positionsOf(m_groupIds, m_groupsAfter),
                                         static_cast<std::size_t>(next - m_groupsAfter.begin()),
                                         m_groupsAfter.size()));
}

extern template class TKM_GROUPHOSTING_DECLARE MoveTKGroupsCmd<Identifier>;
extern template class TKM_GROUPHOSTING_DECLARE MoveTKGroupsCmd<GUIdentifier>;

}
