// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandBase.h"
#include "GeneralServices/SimpleNameSetProvider.h"
#include "GeneralServices/UniqueNameProvider.h"
#include "HighLevelServices/GroupCommands/DistinctElements.h"
#include "HighLevelServices/GroupCommands/GroupLists.h"
#include "HighLevelServices/GroupCommands/MemberLists.h"
#include "HighLevelServices/GroupCommands/Selection.h"
#include "HighLevelServices/Groups/TKGroup.h"
#include "HighLevelServices/Groups/TKGroupProviderInterface.h"
#include "HighLevelServices/HighLevelServicesExport.h"
#include "Identifier/GUIdentifier.h"
#include "Identifier/Identifier.h"
#include "Translator/Translator.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik {

/// Appends a new group to the list and moves elements into it.
///
/// Each element leaves its first holder; emptied groups stay. Ungrouped elements are simply added.
/// An element that is given twice is added once. Call execute() once, then undo() and redo() in
/// turn.
template <class T>
class CreateTKGroupCmd : public CommandBase {
public:
  /// @param provider  owner of the groups, shared for the command's life; not null
  /// @param elements  copied; in their new order
  /// @param name      the requested name; execute() makes it unique among the groups. Empty: the
  ///                  translated default, "Group"
  CreateTKGroupCmd(std::shared_ptr<TKGroupProviderInterface<T>> provider,
                   const std::vector<T>& elements,
                   const std::string& name);

  /// The source keeps no provider, elements or lists: only destroy it or assign to it.
  CreateTKGroupCmd(CreateTKGroupCmd&& other);
  CreateTKGroupCmd& operator=(CreateTKGroupCmd&& other);
  ~CreateTKGroupCmd() override;

  void execute() override;
  void undo() override;
  void redo() override;

private:
  void initialize();
  void generateName();
  void removeFromGroups(const T& element);

  std::shared_ptr<TKGroupProviderInterface<T>> m_provider;
  std::string m_name;
  std::vector<T> m_elements;
  std::vector<TKGroup<T>> m_groupsAfter;
  std::vector<TKGroup<T>> m_groupsBefore;
};

template <class T>
CreateTKGroupCmd<T>::CreateTKGroupCmd(std::shared_ptr<TKGroupProviderInterface<T>> provider,
                                      const std::vector<T>& elements,
                                      const std::string& name)
    : CommandBase(Translator::translate("CreateTKGroupCmd", "Create Group", nullptr, -1)),
      m_provider(provider),
      m_name(name),
      m_elements(elements)
{}

template <class T>
CreateTKGroupCmd<T>::CreateTKGroupCmd(CreateTKGroupCmd&& other) = default;

template <class T>
CreateTKGroupCmd<T>& CreateTKGroupCmd<T>::operator=(CreateTKGroupCmd&& other)
{
  CommandBase::operator=(static_cast<CommandBase&&>(other));
  m_provider = std::move(other.m_provider);
  GroupLists::takeOver(m_name, other.m_name);
  GroupLists::takeOver(m_elements, other.m_elements);
  GroupLists::takeOver(m_groupsAfter, other.m_groupsAfter);
  GroupLists::takeOver(m_groupsBefore, other.m_groupsBefore);
  return *this;
}

template <class T>
CreateTKGroupCmd<T>::~CreateTKGroupCmd() = default;

template <class T>
void CreateTKGroupCmd<T>::execute()
{
  initialize();
  redo();
}

template <class T>
void CreateTKGroupCmd<T>::undo()
{
  m_provider->setGroups(m_groupsBefore);
}

template <class T>
void CreateTKGroupCmd<T>::redo()
{
  m_provider->setGroups(m_groupsAfter);
}

template <class T>
void CreateTKGroupCmd<T>::initialize()
{
  GroupLists::Selection<T> selection(m_elements);
  GroupLists::takeSnapshots(
      m_provider->getGroups(), m_groupsBefore, m_groupsAfter,
      [&selection](const std::vector<T>& members, std::size_t) {
        return selection.takeOutOf(members);
      },
      1);
  generateName();

  auto members = GroupLists::distinct(m_elements);
  const TKGroup<T> newGroup(m_name);
  m_groupsAfter.push_back(newGroup);
  GroupLists::MemberLists<T>::swap(m_groupsAfter.back(), members);
}

template <class T>
void CreateTKGroupCmd<T>::generateName()
{
  SimpleNameSetProvider taken;
  for (const auto& group : m_groupsBefore)
    static_cast<void>(taken.addName(group.getName())); // a platform may mark it [[nodiscard]]

  if (m_name.empty())
    m_name = Translator::translate("CreateTKGroupCmd", "Group", nullptr, -1);
  m_name = UniqueNameProvider::createUniqueName(m_name, taken);
}

/// Takes one element out of its first holder. Unused, since a whole selection is taken out at once;
/// kept for the binary interface.
template <class T>
void CreateTKGroupCmd<T>::removeFromGroups(const T& element)
{
  GroupLists::removeFromFirstHolder(m_groupsAfter, element);
}

extern template class TKM_HIGHLEVELSERVICES_DECLARE CreateTKGroupCmd<Identifier>;
extern template class TKM_HIGHLEVELSERVICES_DECLARE CreateTKGroupCmd<GUIdentifier>;

}
