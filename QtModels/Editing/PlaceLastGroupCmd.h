// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandBase.h"
#include "GeneralServices/StringUtility.h"
#include "GroupHosting/Commands/MoveTKGroupsCmd.h"
#include "QtModels/Editing/GroupPlace.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik {

/// Moves the last group to its place: the second half of creating a group elsewhere than at the
/// end. Call execute() once, then undo() and redo() in turn.
template <class T>
class PlaceLastGroupCmd : public CommandBase {
public:
  /// @param provider  owner of the groups, shared for the command's life; not null
  /// @param place     where the last group goes
  /// @param groupId   gets the id of that group when the command is executed; not null
  PlaceLastGroupCmd(std::shared_ptr<TKGroupProviderInterface<T>> provider,
                    const GroupPlace& place,
                    std::shared_ptr<std::optional<Identifier>> groupId);

  void execute() override;
  void undo() override;
  void redo() override;

private:
  std::shared_ptr<CommandBase> makeMove(const std::vector<TKGroup<T>>& groups) const;

  std::shared_ptr<TKGroupProviderInterface<T>> m_provider;
  GroupPlace m_place;
  std::shared_ptr<std::optional<Identifier>> m_groupId;
  std::shared_ptr<CommandBase> m_move; ///< null if the group stays at the end
};

template <class T>
PlaceLastGroupCmd<T>::PlaceLastGroupCmd(std::shared_ptr<TKGroupProviderInterface<T>> provider,
                                        const GroupPlace& place,
                                        std::shared_ptr<std::optional<Identifier>> groupId)
    : CommandBase(std::string()),
      m_provider(std::move(provider)),
      m_place(place),
      m_groupId(std::move(groupId))
{}

template <class T>
void PlaceLastGroupCmd<T>::execute()
{
  const auto& groups = m_provider->getGroups();
  if (groups.empty())
    return;
  *m_groupId = groups.back().getId();
  m_move = makeMove(groups);
  if (m_move)
    m_move->execute();
}

template <class T>
void PlaceLastGroupCmd<T>::undo()
{
  if (m_move)
    m_move->undo();
}

template <class T>
void PlaceLastGroupCmd<T>::redo()
{
  if (m_move)
    m_move->redo();
}

template <class T>
std::shared_ptr<CommandBase>
PlaceLastGroupCmd<T>::makeMove(const std::vector<TKGroup<T>>& groups) const
{
  const auto& last = groups.back();
  const auto beside = [&](const Identifier& target, Side side) {
    return std::make_shared<MoveTKGroupsCmd<T>>(m_provider, std::vector{last.getId()}, target,
                                                side == Side::Before);
  };
  if (m_place.kind == GroupPlace::Kind::Beside)
    return beside(m_place.target, m_place.side);
  if (m_place.kind == GroupPlace::Kind::Sorted) {
    const auto name = StringUtility::toLower(last.getName());
    const auto next = std::find_if(groups.begin(), groups.end() - 1, [&](const auto& group) {
      return name < StringUtility::toLower(group.getName());
    });
    if (next != groups.end() - 1)
      return beside(next->getId(), Side::Before);
  }
  return nullptr;
}

}
