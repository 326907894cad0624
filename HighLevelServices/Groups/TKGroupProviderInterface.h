// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandBase.h"
#include "HighLevelServices/Groups/TKGroup.h"
#include "HighLevelServices/HighLevelServicesExport.h"
#include "Identifier/GUIdentifier.h"
#include "Identifier/Identifier.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik {

/// The owner of a list of groups. A host implements it, and the commands work on it.
///
/// Each command shares its provider for as long as it lives, and calls it on the thread that
/// executes, undoes or redoes the command. A provider must accept any list that it handed out
/// before, since undo gives back the list from before the change.
template <class T>
class TKGroupProviderInterface {
public:
  TKGroupProviderInterface();

  /// Nothing is copied: these two let hosts be copied.
  TKGroupProviderInterface(const TKGroupProviderInterface& other);
  TKGroupProviderInterface& operator=(const TKGroupProviderInterface& other);

  virtual ~TKGroupProviderInterface();

  /// The host's groups in order. Commands copy them at once; the reference need not stay valid
  /// longer.
  virtual std::vector<TKGroup<T>>& getGroups() = 0;

  /// The ungrouped elements in the host's order. For hosts and their views; no command calls it.
  virtual std::vector<T> getUngroupedElements() = 0;

  /// Replaces the whole list of groups with a copy of the given one. When it throws, the host must
  /// still have its old list: copy first, then swap. After the copy, a host may release the calling
  /// command, or execute it again.
  virtual void setGroups(const std::vector<TKGroup<T>>& groups) = 0;

  /// Makes the host's own command that moves elements next to another one, in the host's order of
  /// ungrouped elements. It runs after the elements have left their groups.
  /// @param target        the element next to which they go
  /// @param elements      the elements in their new order
  /// @param insertBefore  true: before the target; false: after it
  /// @return null when there is nothing to do. A MoveTKGroupElementsCmd runs the command as a
  ///         sub-command, and ignores its isRedoCapable() and getSpeedRate().
  virtual std::shared_ptr<CommandBase>
  createMoveCommand(const T& target, const std::vector<T>& elements, bool insertBefore) = 0;

  /// The members that the group is to have, each with the name under which the host shows it, in
  /// any order. A member that is not listed leaves the group when the groups are sorted. Called in
  /// the middle of a sort: do not execute the calling command again here.
  virtual std::vector<std::pair<T, std::string>> getGroupMemberNames(const Identifier& groupId) = 0;

  /// Gives the group with that id the name.
  /// @param groupId  may be unknown; the host decides what happens then
  /// @param name     may be empty, or the name of another group
  virtual void renameGroup(const Identifier& groupId, const std::string& name) = 0;

  /// The name under which the host shows the element. For hosts and their views; no command calls
  /// it.
  virtual std::string getElementName(const T& element) = 0;
};

template <class T>
TKGroupProviderInterface<T>::TKGroupProviderInterface() = default;

template <class T>
TKGroupProviderInterface<T>::TKGroupProviderInterface(const TKGroupProviderInterface&) = default;

template <class T>
TKGroupProviderInterface<T>&
TKGroupProviderInterface<T>::operator=(const TKGroupProviderInterface&) = default;

template <class T>
TKGroupProviderInterface<T>::~TKGroupProviderInterface() = default;

extern template class TKM_HIGHLEVELSERVICES_DECLARE TKGroupProviderInterface<Identifier>;
extern template class TKM_HIGHLEVELSERVICES_DECLARE TKGroupProviderInterface<GUIdentifier>;

}
