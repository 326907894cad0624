// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandBase.h"
#include "GeneralServices/StringUtility.h"
#include "HighLevelServices/GroupCommands/GroupLists.h"
#include "HighLevelServices/GroupCommands/MemberNames.h"
#include "HighLevelServices/Groups/TKGroup.h"
#include "HighLevelServices/Groups/TKGroupProviderInterface.h"
#include "HighLevelServices/HighLevelServicesExport.h"
#include "Identifier/GUIdentifier.h"
#include "Identifier/Identifier.h"
#include "Translator/Translator.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <numeric>
#include <utility>
#include <vector>

namespace Tarvik {

/// Sorts the groups by name, and the members of each group by the names that the host gives them.
///
/// Names are compared byte by byte in lower case, without regard to languages or numbers. When two
/// are equal, either may come first. The host's list of member names decides the membership too: a
/// member that it does not list leaves the group. Call execute() once, then undo() and redo() in
/// turn.
template <class T>
class SortTKGroupsAlphabeticallyCmd : public CommandBase {
public:
  /// @param provider  owner of the groups, shared for the command's life; not null
  explicit SortTKGroupsAlphabeticallyCmd(std::shared_ptr<TKGroupProviderInterface<T>> provider);

  /// The source keeps no provider or lists: only destroy it or assign to it.
  SortTKGroupsAlphabeticallyCmd(SortTKGroupsAlphabeticallyCmd&& other);
  SortTKGroupsAlphabeticallyCmd& operator=(SortTKGroupsAlphabeticallyCmd&& other);
  ~SortTKGroupsAlphabeticallyCmd() override;

  void execute() override;
  void undo() override;
  void redo() override;

private:
  void initialize();
  void sortGroup(TKGroup<T>& group) const;

  std::shared_ptr<TKGroupProviderInterface<T>> m_provider;
  std::vector<TKGroup<T>> m_groupsAfter;
  std::vector<TKGroup<T>> m_groupsBefore;
};

namespace GroupLists {

/// The positions of the groups in the order of their names.
template <class T>
std::vector<std::size_t> positionsByName(const std::vector<TKGroup<T>>& groups)
{
  std::vector<std::size_t> positions(groups.size());
  std::iota(positions.begin(), positions.end(), std::size_t{0});
  std::sort(positions.begin(), positions.end(), [&groups](std::size_t a, std::size_t b) {
    return StringUtility::toLower(groups[a].getName()) <
           StringUtility::toLower(groups[b].getName());
  });
  return positions;
}

}

template <class T>
SortTKGroupsAlphabeticallyCmd<T>::SortTKGroupsAlphabeticallyCmd(
    std::shared_ptr<TKGroupProviderInterface<T>> provider)
    : CommandBase(
          Translator::translate("SortTKGroupsAlphabeticallyCmd", "Sort Groups", nullptr, -1)),
      m_provider(provider)
{}

template <class T>
SortTKGroupsAlphabeticallyCmd<T>::SortTKGroupsAlphabeticallyCmd(
    SortTKGroupsAlphabeticallyCmd&& other) = default;

template <class T>
SortTKGroupsAlphabeticallyCmd<T>&
SortTKGroupsAlphabeticallyCmd<T>::operator=(SortTKGroupsAlphabeticallyCmd&& other)
{
  CommandBase::operator=(static_cast<CommandBase&&>(other));
  m_provider = std::move(other.m_provider);
  GroupLists::takeOver(m_groupsAfter, other.m_groupsAfter);
  GroupLists::takeOver(m_groupsBefore, other.m_groupsBefore);
  return *this;
}

template <class T>
SortTKGroupsAlphabeticallyCmd<T>::~SortTKGroupsAlphabeticallyCmd() = default;

template <class T>
void SortTKGroupsAlphabeticallyCmd<T>::execute()
{
  initialize();
  redo();
}

template <class T>
void SortTKGroupsAlphabeticallyCmd<T>::undo()
{
  m_provider->setGroups(m_groupsBefore);
}

template <class T>
void SortTKGroupsAlphabeticallyCmd<T>::redo()
{
  m_provider->setGroups(m_groupsAfter);
}

template <class T>
void SortTKGroupsAlphabeticallyCmd<T>::initialize()
{
  GroupLists::takeSnapshots(*m_provider, m_groupsBefore, m_groupsAfter);
  GroupLists::arrange(m_groupsAfter, GroupLists::positionsByName(m_groupsAfter));
  for (auto& group : m_groupsAfter)
    sortGroup(group);
}

template <class T>
void SortTKGroupsAlphabeticallyCmd<T>::sortGroup(TKGroup<T>& group) const
{
  auto names = m_provider->getGroupMemberNames(group.getId());
  auto members = GroupLists::membersByName(names);
  GroupLists::MemberLists<T>::swap(group, members);
}

extern template class TKM_HIGHLEVELSERVICES_DECLARE SortTKGroupsAlphabeticallyCmd<Identifier>;
extern template class TKM_HIGHLEVELSERVICES_DECLARE SortTKGroupsAlphabeticallyCmd<GUIdentifier>;

}
