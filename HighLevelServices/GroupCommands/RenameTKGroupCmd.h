// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandBase.h"
#include "HighLevelServices/GroupCommands/GroupLists.h"
#include "HighLevelServices/Groups/TKGroup.h"
#include "HighLevelServices/Groups/TKGroupProviderInterface.h"
#include "HighLevelServices/HighLevelServicesExport.h"
#include "Identifier/GUIdentifier.h"
#include "Identifier/Identifier.h"
#include "Translator/Translator.h"

#include <memory>
#include <string>
#include <utility>

namespace Tarvik {

/// Gives a group another name.
///
/// Keeps two names instead of two lists, and asks the provider to rename the group on execute, undo
/// and redo, even when the id is unknown: the old name is then empty. Every name is passed on
/// unchanged, even when it is empty or taken. Call execute() once, then undo() and redo() in turn.
template <class T>
class RenameTKGroupCmd : public CommandBase {
public:
  /// @param provider  owner of the groups, shared for the command's life; not null
  /// @param groupId   the group; the first of two groups with this id gives the old name
  /// @param newName   copied
  RenameTKGroupCmd(std::shared_ptr<TKGroupProviderInterface<T>> provider,
                   const Identifier& groupId,
                   const std::string& newName);

  /// The source keeps no provider: only destroy it or assign to it.
  RenameTKGroupCmd(RenameTKGroupCmd&& other);
  RenameTKGroupCmd& operator=(RenameTKGroupCmd&& other);
  ~RenameTKGroupCmd() override;

  void execute() override;
  void undo() override;
  void redo() override;

private:
  void initialize();
  TKGroup<T>& getGroup();
  void setName(const std::string& name);

  std::shared_ptr<TKGroupProviderInterface<T>> m_provider;
  Identifier m_groupId;
  std::string m_newName;
  std::string m_oldName;
};

template <class T>
RenameTKGroupCmd<T>::RenameTKGroupCmd(std::shared_ptr<TKGroupProviderInterface<T>> provider,
                                      const Identifier& groupId,
                                      const std::string& newName)
    : CommandBase(Translator::translate("RenameTKGroupCmd", "Rename Group", nullptr, -1)),
      m_provider(provider),
      m_groupId(groupId),
      m_newName(newName)
{}

template <class T>
RenameTKGroupCmd<T>::RenameTKGroupCmd(RenameTKGroupCmd&& other) = default;

template <class T>
RenameTKGroupCmd<T>& RenameTKGroupCmd<T>::operator=(RenameTKGroupCmd&& other)
{
  CommandBase::operator=(static_cast<CommandBase&&>(other));
  m_provider = std::move(other.m_provider);
  m_groupId = other.m_groupId;
  GroupLists::takeOver(m_newName, other.m_newName);
  GroupLists::takeOver(m_oldName, other.m_oldName);
  return *this;
}

template <class T>
RenameTKGroupCmd<T>::~RenameTKGroupCmd() = default;

template <class T>
void RenameTKGroupCmd<T>::execute()
{
  initialize();
  redo();
}

template <class T>
void RenameTKGroupCmd<T>::undo()
{
  m_provider->renameGroup(m_groupId, m_oldName);
}

template <class T>
void RenameTKGroupCmd<T>::redo()
{
  m_provider->renameGroup(m_groupId, m_newName);
}

template <class T>
void RenameTKGroupCmd<T>::initialize()
{
  m_oldName = getGroup().getName();
}

/// The provider's own group; one shared fallback for all unknown ids.
template <class T>
TKGroup<T>& RenameTKGroupCmd<T>::getGroup()
{
  for (auto& group : m_provider->getGroups()) {
    if (m_groupId == group.getId()) // in this order, which a platform's own operator may see
      return group;
  }
  static TKGroup<T> fallback;
  return fallback;
}

/// Renames the group in the provider's list directly, without undo. Unused; kept for the binary
/// interface.
template <class T>
void RenameTKGroupCmd<T>::setName(const std::string& name)
{
  getGroup().setName(name, true);
}

extern template class TKM_HIGHLEVELSERVICES_DECLARE RenameTKGroupCmd<Identifier>;
extern template class TKM_HIGHLEVELSERVICES_DECLARE RenameTKGroupCmd<GUIdentifier>;

}
