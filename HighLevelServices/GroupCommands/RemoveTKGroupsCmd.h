// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandBase.h"
#include "HighLevelServices/GroupCommands/GroupLists.h"
#include "HighLevelServices/GroupCommands/Search.h"
#include "HighLevelServices/Groups/TKGroup.h"
#include "HighLevelServices/Groups/TKGroupProviderInterface.h"
#include "HighLevelServices/HighLevelServicesExport.h"
#include "Identifier/GUIdentifier.h"
#include "Identifier/Identifier.h"
#include "Translator/Translator.h"

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace Tarvik {

/// Deletes groups. Their members are not put into any other group.
///
/// Each id deletes the first group that has it; unknown ids are skipped. Call execute() once, then
/// undo() and redo() in turn. Unlike the other commands, this one cannot be moved.
template <class T>
class RemoveTKGroupsCmd : public CommandBase {
public:
  /// @param provider  owner of the groups, shared for the command's life; not null
  /// @param groupIds  copied; their order does not matter
  RemoveTKGroupsCmd(std::shared_ptr<TKGroupProviderInterface<T>> provider,
                    const std::vector<Identifier>& groupIds);

  RemoveTKGroupsCmd(const RemoveTKGroupsCmd&) = delete;
  RemoveTKGroupsCmd& operator=(const RemoveTKGroupsCmd&) = delete;
  ~RemoveTKGroupsCmd() override;

  void execute() override;
  void undo() override;
  void redo() override;

private:
  void initialize();
  void removeGroup(const Identifier& id);

  std::shared_ptr<TKGroupProviderInterface<T>> m_provider;
  std::vector<Identifier> m_groupIds;
  std::vector<TKGroup<T>> m_groupsAfter;
  std::vector<TKGroup<T>> m_groupsBefore;
};

namespace GroupLists {

/// The positions of the groups that are not removed. Each id removes the first group that has it
/// and that no id before it removes.
template <class T>
std::vector<std::size_t> positionsWithout(const std::vector<Identifier>& removedIds,
                                          const std::vector<TKGroup<T>>& groups)
{
  std::vector<Identifier> ids;
  ids.reserve(groups.size());
  for (const auto& group : groups)
    ids.push_back(group.getId());
  std::vector<bool> isRemoved(groups.size());
  Search<Identifier>(removedIds).match(ids, [&isRemoved](std::size_t position, std::size_t) {
    isRemoved[position] = true;
  });

  std::vector<std::size_t> positions;
  for (std::size_t i = 0; i < groups.size(); ++i) {
    if (!isRemoved[i])
      positions.push_back(i);
  }
  return positions;
}

}

template <class T>
RemoveTKGroupsCmd<T>::RemoveTKGroupsCmd(std::shared_ptr<TKGroupProviderInterface<T>> provider,
                                        const std::vector<Identifier>& groupIds)
    : CommandBase(Translator::translate("RemoveTKGroupsCmd", "Remove Group", nullptr, -1)),
      m_provider(provider),
      m_groupIds(groupIds)
{}

template <class T>
RemoveTKGroupsCmd<T>::~RemoveTKGroupsCmd() = default;

template <class T>
void RemoveTKGroupsCmd<T>::execute()
{
  initialize();
  redo();
}

template <class T>
void RemoveTKGroupsCmd<T>::undo()
{
  m_provider->setGroups(m_groupsBefore);
}

template <class T>
void RemoveTKGroupsCmd<T>::redo()
{
  m_provider->setGroups(m_groupsAfter);
}

template <class T>
void RemoveTKGroupsCmd<T>::initialize()
{
  GroupLists::takeSnapshots(*m_provider, m_groupsBefore, m_groupsAfter);
  GroupLists::arrange(m_groupsAfter, GroupLists::positionsWithout(m_groupIds, m_groupsAfter));
}

/// Removes one group. Unused, since all groups are removed at once; kept for the binary interface.
template <class T>
void RemoveTKGroupsCmd<T>::removeGroup(const Identifier& id)
{
  const auto found = GroupLists::findGroup(m_groupsAfter, id);
  if (found != m_groupsAfter.end())
    m_groupsAfter.erase(found);
}

extern template class TKM_HIGHLEVELSERVICES_DECLARE RemoveTKGroupsCmd<Identifier>;
extern template class TKM_HIGHLEVELSERVICES_DECLARE RemoveTKGroupsCmd<GUIdentifier>;

}
