// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandBase.h"
#include "HighLevelServices/GroupCommands/GroupLists.h"
#include "HighLevelServices/GroupCommands/Selection.h"
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

/// Puts elements into a group, at a given place or at its end. Each leaves its first holder.
///
/// An element that the target still has after that stays where it is; any other that is given twice
/// is inserted twice. When the target is unknown, nothing happens, not even on undo() and redo().
/// Call execute() once, then undo() and redo() in turn.
template <class T>
class AddToTKGroupCmd : public CommandBase {
public:
  /// @param provider       owner of the groups, shared for the command's life; not null
  /// @param elements       copied; in their new order
  /// @param targetGroupId  the group that they go to, the target
  AddToTKGroupCmd(std::shared_ptr<TKGroupProviderInterface<T>> provider,
                  const std::vector<T>& elements,
                  const Identifier& targetGroupId);

  /// The source keeps no provider, elements or lists: only destroy it or assign to it.
  AddToTKGroupCmd(AddToTKGroupCmd&& other);
  AddToTKGroupCmd& operator=(AddToTKGroupCmd&& other);
  ~AddToTKGroupCmd() override;

  /// Sets the place of the elements. Call it before each execute(), which lowers the index.
  /// @param index  the elements go before the target's member at this position, counted from 0 in
  ///               the group as it is before execute(). Negative (the default, -1) or past the last
  ///               member: the end. For each element that the target has before this position, but
  ///               that leaves an earlier holder instead, the place is one closer to the front
  void setInsertIndex(int index);

  void execute() override;
  void undo() override;
  void redo() override;

private:
  void initialize();
  bool isTargetGroupValid() const;
  void removeFromGroups(const T& element);

  std::shared_ptr<TKGroupProviderInterface<T>> m_provider;
  Identifier m_targetGroupId;
  std::vector<T> m_elements;
  std::vector<TKGroup<T>> m_groupsAfter;
  std::vector<TKGroup<T>> m_groupsBefore;
  bool m_changed = false;
  int m_insertIndex = -1;
};

template <class T>
AddToTKGroupCmd<T>::AddToTKGroupCmd(std::shared_ptr<TKGroupProviderInterface<T>> provider,
                                    const std::vector<T>& elements,
                                    const Identifier& targetGroupId)
    : CommandBase(Translator::translate("AddToTKGroupCmd", "Add to Group", nullptr, -1)),
      m_provider(provider),
      m_targetGroupId(targetGroupId),
      m_elements(elements)
{}

template <class T>
AddToTKGroupCmd<T>::AddToTKGroupCmd(AddToTKGroupCmd&& other) = default;

template <class T>
AddToTKGroupCmd<T>& AddToTKGroupCmd<T>::operator=(AddToTKGroupCmd&& other)
{
  CommandBase::operator=(static_cast<CommandBase&&>(other));
  m_provider = std::move(other.m_provider);
  m_targetGroupId = other.m_targetGroupId;
  GroupLists::takeOver(m_elements, other.m_elements);
  GroupLists::takeOver(m_groupsAfter, other.m_groupsAfter);
  GroupLists::takeOver(m_groupsBefore, other.m_groupsBefore);
  m_changed = other.m_changed;
  m_insertIndex = other.m_insertIndex;
  return *this;
}

template <class T>
AddToTKGroupCmd<T>::~AddToTKGroupCmd() = default;

template <class T>
void AddToTKGroupCmd<T>::setInsertIndex(int index)
{
  m_insertIndex = index;
}

template <class T>
void AddToTKGroupCmd<T>::execute()
{
  initialize();
  redo();
}

template <class T>
void AddToTKGroupCmd<T>::undo()
{
  if (m_changed)
    m_provider->setGroups(m_groupsBefore);
}

template <class T>
void AddToTKGroupCmd<T>::redo()
{
  if (m_changed)
    m_provider->setGroups(m_groupsAfter);
}

template <class T>
void AddToTKGroupCmd<T>::initialize()
{
  const auto& groups = m_provider->getGroups();
  const auto found = GroupLists::findGroup(groups, m_targetGroupId);
  const auto target = static_cast<std::size_t>(found - groups.begin());
  const bool isTargetKnown = target < groups.size();
  GroupLists::Selection<T> selection(m_elements);
  auto index = m_insertIndex;
  GroupLists::takeSnapshots(groups, m_groupsBefore, m_groupsAfter,
                            [&](const std::vector<T>& members, std::size_t position) {
                              if (position == target)
                                return selection.moveInto(members, index);
                              return isTargetKnown ? selection.takeOutOf(members) : members;
                            });
  if (!isTargetKnown)
    return;
  m_insertIndex = index;
  m_changed = true;
}

/// Whether the after list has the target group. Unused, since the list is edited while it is
/// copied; kept for the binary interface.
template <class T>
bool AddToTKGroupCmd<T>::isTargetGroupValid() const
{
  return GroupLists::findGroup(m_groupsAfter, m_targetGroupId) != m_groupsAfter.end();
}

/// Takes one element out of its first holder. Unused, since a whole selection is taken out at once;
/// kept for the binary interface.
template <class T>
void AddToTKGroupCmd<T>::removeFromGroups(const T& element)
{
  GroupLists::removeFromFirstHolder(m_groupsAfter, element);
}

extern template class TKM_HIGHLEVELSERVICES_DECLARE AddToTKGroupCmd<Identifier>;
extern template class TKM_HIGHLEVELSERVICES_DECLARE AddToTKGroupCmd<GUIdentifier>;

}
