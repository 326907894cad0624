// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandBase.h"
#include "CommandPattern/MacroCommand.h"
#include "HighLevelServices/GroupCommands/AddToTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/DistinctElements.h"
#include "HighLevelServices/GroupCommands/GroupLists.h"
#include "HighLevelServices/GroupCommands/RemoveFromTKGroupCmd.h"
#include "HighLevelServices/Groups/TKGroup.h"
#include "HighLevelServices/Groups/TKGroupProviderInterface.h"
#include "HighLevelServices/HighLevelServicesExport.h"
#include "Identifier/GUIdentifier.h"
#include "Identifier/Identifier.h"
#include "Translator/Translator.h"

#include <list>
#include <memory>
#include <utility>
#include <vector>

namespace Tarvik {

/// Moves elements to the place before or after another element.
///
/// When a group holds the target, the elements go into that group. Otherwise they leave their
/// groups, and the host's own command (`createMoveCommand()`) places them. Elements that are given
/// twice count once. Without elements nothing happens. Call execute() once, then undo() and redo()
/// in turn.
template <class T>
class MoveTKGroupElementsCmd : public CommandBase {
public:
  /// @param provider      owner of the groups, shared for the command's life; not null
  /// @param elements      copied; in their new order
  /// @param target        the element next to which they go; its first place in its first holder
  ///                      counts. An invalid element has no holder
  /// @param insertBefore  true: before the target; false: after it
  MoveTKGroupElementsCmd(std::shared_ptr<TKGroupProviderInterface<T>> provider,
                         const std::vector<T>& elements,
                         const T& target,
                         bool insertBefore);

  /// The source keeps no provider, elements or sub-commands: only destroy it or assign to it.
  MoveTKGroupElementsCmd(MoveTKGroupElementsCmd&& other);
  MoveTKGroupElementsCmd& operator=(MoveTKGroupElementsCmd&& other);
  ~MoveTKGroupElementsCmd() override;

  void execute() override;
  void undo() override;
  void redo() override;

private:
  void initialize();

  std::shared_ptr<TKGroupProviderInterface<T>> m_provider;
  T m_target;
  std::vector<T> m_elements;
  bool m_insertBefore;
  /// Each operation holds a share of the macro while it runs: the host may release this command
  /// or execute it again in the meantime.
  std::shared_ptr<MacroCommand> m_macroCommand;
};

template <class T>
MoveTKGroupElementsCmd<T>::MoveTKGroupElementsCmd(
    std::shared_ptr<TKGroupProviderInterface<T>> provider,
    const std::vector<T>& elements,
    const T& target,
    bool insertBefore)
    : CommandBase(Translator::translate("MoveTKGroupElementsCmd", "Move Elements", nullptr, -1)),
      m_provider(provider),
      m_target(target),
      m_elements(elements),
      m_insertBefore(insertBefore)
{}

template <class T>
MoveTKGroupElementsCmd<T>::MoveTKGroupElementsCmd(MoveTKGroupElementsCmd&& other) = default;

template <class T>
MoveTKGroupElementsCmd<T>& MoveTKGroupElementsCmd<T>::operator=(MoveTKGroupElementsCmd&& other)
{
  CommandBase::operator=(static_cast<CommandBase&&>(other));
  m_provider = std::move(other.m_provider);
  m_target = other.m_target;
  GroupLists::takeOver(m_elements, other.m_elements);
  m_insertBefore = other.m_insertBefore;
  m_macroCommand = std::move(other.m_macroCommand);
  return *this;
}

template <class T>
MoveTKGroupElementsCmd<T>::~MoveTKGroupElementsCmd() = default;

template <class T>
void MoveTKGroupElementsCmd<T>::execute()
{
  initialize();
  if (const auto macro = m_macroCommand)
    macro->execute(); // not redo(): the sub-commands must take their snapshots
}

template <class T>
void MoveTKGroupElementsCmd<T>::undo()
{
  if (const auto macro = m_macroCommand)
    macro->undo();
}

template <class T>
void MoveTKGroupElementsCmd<T>::redo()
{
  if (const auto macro = m_macroCommand)
    macro->redo();
}

template <class T>
void MoveTKGroupElementsCmd<T>::initialize()
{
  const auto place = GroupLists::placeBeside(m_provider->getGroups(), m_target, m_insertBefore);
  const auto elements = GroupLists::distinct(m_elements);
  if (elements.empty())
    return; // an earlier macro stays

  std::list<std::shared_ptr<CommandBase>> commands;
  if (place.groupId.isValid()) {
    const auto add = std::make_shared<AddToTKGroupCmd<T>>(m_provider, elements, place.groupId);
    if (place.index != GroupLists::endOfGroup)
      add->setInsertIndex(place.index);
    commands.push_back(add);
  } else {
    commands.push_back(std::make_shared<RemoveFromTKGroupCmd<T>>(m_provider, elements));
    if (const auto move = m_provider->createMoveCommand(m_target, elements, m_insertBefore))
      commands.push_back(move);
  }
  // NOLINTNEXTLINE(modernize-make-shared): `new` reaches a platform's own operator new
  m_macroCommand = std::shared_ptr<MacroCommand>(new MacroCommand(commands));
}

extern template class TKM_HIGHLEVELSERVICES_DECLARE MoveTKGroupElementsCmd<Identifier>;
extern template class TKM_HIGHLEVELSERVICES_DECLARE MoveTKGroupElementsCmd<GUIdentifier>;

}
