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

/// The owner of a list of groups: what a host implements so that the commands can work on it.
///
/// Commands hold it by `std::shared_ptr` for as long as they live, and call it on the thread that
/// executes, undoes or redoes them. It must accept any list that it handed out before, since undo
/// gives back the list from before the change.
template <class T>
class TKGroupProviderInterface {
public:
  TKGroupProviderInterface();

  /// Has nothing to copy itself, but lets hosts be copied.
  TKGroupProviderInterface(const TKGroupProviderInterface& other);

  /// As copy construction.
  TKGroupProviderInterface& operator=(const TKGroupProviderInterface& other);

  virtual ~TKGroupProviderInterface();

  /// The host's groups in its order. The caller copies them at once; the reference need not stay
  /// valid beyond that.
  virtual std::vector<TKGroup<T>>& getGroups() = 0;

  /// The host's elements that lie in no group, in its order. For hosts and their views; the
  /// commands do not call it.
  virtual std::vector<T> getUngroupedElements() = 0;

  /// Replaces the whole list of groups by a copy of the given one. When it throws, the host's list
  /// should be what it was: copy first, then swap.
  virtual void setGroups(const std::vector<TKGroup<T>>& groups) = 0;

  /// Makes the host's own command that places elements beside another one in the host's order of
  /// ungrouped elements. It runs after the elements have left their groups.
  /// @param target        the element beside which they go
  /// @param elements      the elements, in the order in which they are to stand
  /// @param insertBefore  true: in front of the target; false: behind it
  /// @return null when there is nothing to do. The command is undone and redone as part of a
  ///         MoveTKGroupElementsCmd, which does not ask it whether it can be, nor for its speed.
  virtual std::shared_ptr<CommandBase>
  createMoveCommand(const T& target, const std::vector<T>& elements, bool insertBefore) = 0;

  /// The members that the group is to have, each with the name under which the host shows it; in
  /// any order. A member that is not listed leaves the group when it is sorted.
  virtual std::vector<std::pair<T, std::string>> getGroupMemberNames(const Identifier& groupId) = 0;

  /// Gives the group with that id the name, whatever it is.
  /// @param groupId  may be unknown; the host decides what happens then
  /// @param name     may be empty, or that of another group
  virtual void renameGroup(const Identifier& groupId, const std::string& name) = 0;

  /// The name under which the host shows the element. For hosts and their views; the commands do
  /// not call it.
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
