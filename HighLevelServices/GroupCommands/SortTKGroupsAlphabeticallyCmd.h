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

/// A copy of the groups, in the order of their names. Positions are sorted rather than groups: a
/// group cannot be moved, so each swap of two groups would copy both.
template <class T>
std::vector<TKGroup<T>> sortedByName(const std::vector<TKGroup<T>>& groups)
{
  std::vector<std::size_t> positions(groups.size());
  std::iota(positions.begin(), positions.end(), std::size_t{0});
  std::sort(positions.begin(), positions.end(), [&groups](std::size_t a, std::size_t b) {
    return StringUtility::toLower(groups[a].getName()) <
           StringUtility::toLower(groups[b].getName());
  });

  std::vector<TKGroup<T>> sorted;
  sorted.reserve(groups.size());
  for (const std::size_t position : positions)
    sorted.push_back(groups[position]);
  return sorted;
}

/// Makes `list` a copy of `groups` while an exception is handled. When the copy fails too, `list`
/// keeps what it had, and the caller still sees the first exception.
template <class T>
void copyQuietly(std::vector<TKGroup<T>>& list, const std::vector<TKGroup<T>>& groups) noexcept
{
  try {
    copyInto(list, groups);
  } catch (...) { // NOLINT(bugprone-empty-catch): see above
  }
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
  m_groupsBefore = m_provider->getGroups(); // may be m_groupsBefore itself
  try {
    GroupLists::sortedByName(m_groupsBefore).swap(m_groupsAfter);
  } catch (...) {
    GroupLists::copyQuietly(m_groupsAfter, m_groupsBefore); // redo() must not delete groups
    throw;
  }
  for (auto& group : m_groupsAfter)
    sortGroup(group);
}

template <class T>
void SortTKGroupsAlphabeticallyCmd<T>::sortGroup(TKGroup<T>& group) const
{
  auto names = m_provider->getGroupMemberNames(group.getId());
  const auto members = GroupLists::membersByName(names);
  group.clear();
  group.addGroupMembersAtIndex(members, GroupLists::endOfGroup);
}

extern template class TKM_HIGHLEVELSERVICES_DECLARE SortTKGroupsAlphabeticallyCmd<Identifier>;
extern template class TKM_HIGHLEVELSERVICES_DECLARE SortTKGroupsAlphabeticallyCmd<GUIdentifier>;

}
