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

#include <memory>
#include <utility>
#include <vector>

namespace Tarvik {

/// Takes elements out of their groups; emptied groups stay.
///
/// An element with two holders leaves only the first, unless it is given twice. Ungrouped elements
/// are skipped. Call execute() once, then undo() and redo() in turn.
template <class T>
class RemoveFromTKGroupCmd : public CommandBase {
public:
  /// @param provider  owner of the groups, shared for the command's life; not null
  /// @param elements  copied
  RemoveFromTKGroupCmd(std::shared_ptr<TKGroupProviderInterface<T>> provider,
                       const std::vector<T>& elements);

  /// The source keeps no provider, elements or lists: only destroy it or assign to it.
  RemoveFromTKGroupCmd(RemoveFromTKGroupCmd&& other);
  RemoveFromTKGroupCmd& operator=(RemoveFromTKGroupCmd&& other);
  ~RemoveFromTKGroupCmd() override;

  void execute() override;
  void undo() override;
  void redo() override;

private:
  void initialize();
  void removeFromGroups(const T& element);

  std::shared_ptr<TKGroupProviderInterface<T>> m_provider;
  std::vector<T> m_elements;
  std::vector<TKGroup<T>> m_groupsAfter;
  std::vector<TKGroup<T>> m_groupsBefore;
};

template <class T>
RemoveFromTKGroupCmd<T>::RemoveFromTKGroupCmd(std::shared_ptr<TKGroupProviderInterface<T>> provider,
                                              const std::vector<T>& elements)
    : CommandBase(Translator::translate(
          "RemoveFromTKGroupCmd", "Remove Point Collection(s) From Group", nullptr, -1)),
      m_provider(provider),
      m_elements(elements)
{}

template <class T>
RemoveFromTKGroupCmd<T>::RemoveFromTKGroupCmd(RemoveFromTKGroupCmd&& other) = default;

template <class T>
RemoveFromTKGroupCmd<T>& RemoveFromTKGroupCmd<T>::operator=(RemoveFromTKGroupCmd&& other)
{
  CommandBase::operator=(static_cast<CommandBase&&>(other));
  m_provider = std::move(other.m_provider);
  GroupLists::takeOver(m_elements, other.m_elements);
  GroupLists::takeOver(m_groupsAfter, other.m_groupsAfter);
  GroupLists::takeOver(m_groupsBefore, other.m_groupsBefore);
  return *this;
}

template <class T>
RemoveFromTKGroupCmd<T>::~RemoveFromTKGroupCmd() = default;

template <class T>
void RemoveFromTKGroupCmd<T>::execute()
{
  initialize();
  redo();
}

template <class T>
void RemoveFromTKGroupCmd<T>::undo()
{
  m_provider->setGroups(m_groupsBefore);
}

template <class T>
void RemoveFromTKGroupCmd<T>::redo()
{
  m_provider->setGroups(m_groupsAfter);
}

template <class T>
void RemoveFromTKGroupCmd<T>::initialize()
{
  GroupLists::Selection<T> selection(m_elements);
  GroupLists::takeSnapshots(m_provider->getGroups(), m_groupsBefore, m_groupsAfter,
                            [&selection](const std::vector<T>& members, std::size_t) {
                              return selection.takeOutOf(members);
                            });
}

/// Takes one element out of its first holder. Unused, since a whole selection is taken out at once;
/// kept for the binary interface.
template <class T>
void RemoveFromTKGroupCmd<T>::removeFromGroups(const T& element)
{
  GroupLists::removeFromFirstHolder(m_groupsAfter, element);
}

extern template class TKM_HIGHLEVELSERVICES_DECLARE RemoveFromTKGroupCmd<Identifier>;
extern template class TKM_HIGHLEVELSERVICES_DECLARE RemoveFromTKGroupCmd<GUIdentifier>;

}
