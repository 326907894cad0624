// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Providers/TKGroupProvider.h"
#include "HighLevelServices/GroupCommands/DistinctElements.h"
#include "QtModels/Editing/Blocks.h"
#include "QtModels/Editing/GroupPlace.h"
#include "QtModels/Editing/GroupRequest.h"
#include "QtModels/Editing/GroupRequests.h"
#include "QtModels/QtModelsExport.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik {

/// What a user does with groups, as plain functions: for menus, keys, drag and drop and the
/// application's own code.
///
/// Each operation makes one request for the handler, and so one step that can be undone. There is
/// no request where it is known beforehand that nothing would change. All return whether anything
/// has changed, and throw what the handler throws. Names are UTF-8.
template <class T>
class GroupOperations {
public:
  /// @param provider  owner of the groups; not null
  /// @param handler   executes the requests; not empty
  GroupOperations(std::shared_ptr<TKGroupProvider<T>> provider, GroupRequestHandler<T> handler);
  ~GroupOperations();

  /// Makes a group of the elements, which leave their groups.
  /// @param elements  in the order that they get in the group
  /// @param name      made unique if another group has it; if empty, "Group" in the user's language
  /// @param place     where the group goes
  /// @return the id of the group; nothing if the handler has not made it
  std::optional<Identifier> createGroup(const std::vector<T>& elements,
                                        const std::string& name,
                                        const GroupPlace& place = GroupPlace::atEnd()) const;

  /// Moves the elements to the end of the group. Does nothing if the group is unknown.
  bool addToGroup(const std::vector<T>& elements, const Identifier& groupId) const;

  /// Moves the elements into the group, before the member at the position, counted from 0; to the
  /// end if there is no such member. Does nothing if the group is unknown.
  bool insertIntoGroup(const std::vector<T>& elements,
                       const Identifier& groupId,
                       std::size_t position) const;

  /// Takes the elements out of their groups. One that several groups hold leaves the first only; if
  /// it is given twice, the first two.
  bool removeFromGroups(const std::vector<T>& elements) const;

  /// Moves the elements next to the target: into the first group that holds it, or among the
  /// ungrouped elements, in an order that is the provider's. Does nothing if the provider does not
  /// know the target.
  bool moveElements(const std::vector<T>& elements, const T& target, Side side) const;

  /// Deletes groups. Their members become ungrouped unless other groups hold them.
  bool deleteGroups(const std::vector<Identifier>& groupIds) const;

  /// Renames a group. Takes any name, even an empty one or that of another group.
  bool renameGroup(const Identifier& groupId, const std::string& name) const;

  /// Sorts the groups by name, and the members of each.
  bool sortGroups() const;

  /// Moves groups next to the target, which may be one of them. Does nothing if it is unknown.
  bool
  moveGroups(const std::vector<Identifier>& groupIds, const Identifier& target, Side side) const;

private:
  bool areAllIn(const std::vector<T>& elements, const TKGroup<T>* holder) const;
  bool areInPlace(const std::vector<T>& elements, const T& target, Side side) const;
  std::vector<Identifier> knownGroups(const std::vector<Identifier>& groupIds) const;

  std::shared_ptr<TKGroupProvider<T>> m_provider;
  GroupRequestHandler<T> m_handler;
};

template <class T>
GroupOperations<T>::GroupOperations(std::shared_ptr<TKGroupProvider<T>> provider,
                                    GroupRequestHandler<T> handler)
    : m_provider(std::move(provider)), m_handler(std::move(handler))
{}

template <class T>
GroupOperations<T>::~GroupOperations() = default;

template <class T>
std::optional<Identifier> GroupOperations<T>::createGroup(const std::vector<T>& elements,
                                                          const std::string& name,
                                                          const GroupPlace& place) const
{
  const auto groupId = std::make_shared<std::optional<Identifier>>();
  const bool isCreated = m_handler(
      GroupRequests::creation(m_provider, GroupLists::distinct(elements), name, place, groupId));
  return isCreated ? *groupId : std::nullopt;
}

template <class T>
bool GroupOperations<T>::addToGroup(const std::vector<T>& elements, const Identifier& groupId) const
{
  return insertIntoGroup(elements, groupId, (std::numeric_limits<std::size_t>::max)());
}

template <class T>
bool GroupOperations<T>::insertIntoGroup(const std::vector<T>& elements,
                                         const Identifier& groupId,
                                         std::size_t position) const
{
  const auto* group = m_provider->findGroup(groupId);
  if (elements.empty() || !group)
    return false;
  const auto& members = group->getGroupMembers();
  const auto place = std::min(position, members.size());
  const auto moved = GroupLists::distinct(elements);
  if (areAllIn(moved, group) && isBlockAt(members, moved, place))
    return false;

  const auto index = place < members.size() ? static_cast<int>(place) : -1;
  return m_handler(GroupRequests::addition(*m_provider, moved, *group, index));
}

template <class T>
bool GroupOperations<T>::removeFromGroups(const std::vector<T>& elements) const
{
  std::vector<T> members;
  std::copy_if(elements.begin(), elements.end(), std::back_inserter(members),
               [this](const T& element) { return m_provider->isGrouped(element); });
  if (members.empty())
    return false;
  return m_handler(GroupRequests::removal(*m_provider, members));
}

template <class T>
bool GroupOperations<T>::moveElements(const std::vector<T>& elements,
                                      const T& target,
                                      Side side) const
{
  if (!m_provider->hasElement(target) && !m_provider->isGrouped(target))
    return false;
  const auto moved = GroupLists::distinct(elements);
  if (moved.empty() || areInPlace(moved, target, side))
    return false;
  return m_handler(GroupRequests::move(*m_provider, moved, target, side));
}

template <class T>
bool GroupOperations<T>::deleteGroups(const std::vector<Identifier>& groupIds) const
{
  const auto known = knownGroups(groupIds);
  if (known.empty())
    return false;
  return m_handler(GroupRequests::deletion(*m_provider, known));
}

template <class T>
bool GroupOperations<T>::renameGroup(const Identifier& groupId, const std::string& name) const
{
  const auto* group = m_provider->findGroup(groupId);
  if (!group || group->getName() == name)
    return false;
  return m_handler(GroupRequests::renaming(*group, name));
}

template <class T>
bool GroupOperations<T>::sortGroups() const
{
  if (m_provider->getGroups().empty())
    return false;
  return m_handler(GroupRequests::sorting<T>());
}

template <class T>
bool GroupOperations<T>::moveGroups(const std::vector<Identifier>& groupIds,
                                    const Identifier& target,
                                    Side side) const
{
  const auto& groups = m_provider->getGroups();
  const auto moved = GroupLists::distinct(knownGroups(groupIds));
  const auto* targetGroup = m_provider->findGroup(target);
  if (moved.empty() || !targetGroup)
    return false;
  std::vector<Identifier> order;
  order.reserve(groups.size());
  for (const auto& group : groups)
    order.push_back(group.getId());
  const auto position = static_cast<std::size_t>(targetGroup - groups.data());
  if (isBlockAt(order, moved, position + (side == Side::After ? 1 : 0)))
    return false;
  return m_handler(GroupRequests::moveOfGroups(*m_provider, moved, *targetGroup, side));
}

/// Whether the group is the first holder of all of the elements; null: whether none is grouped.
template <class T>
bool GroupOperations<T>::areAllIn(const std::vector<T>& elements, const TKGroup<T>* holder) const
{
  return std::all_of(elements.begin(), elements.end(),
                     [&](const T& element) { return m_provider->holderOf(element) == holder; });
}

/// Whether the elements are next to the target already, where the user sees it.
template <class T>
bool GroupOperations<T>::areInPlace(const std::vector<T>& elements,
                                    const T& target,
                                    Side side) const
{
  const auto* holder = m_provider->holderOf(target);
  if (!areAllIn(elements, holder))
    return false;
  const auto& list = holder ? holder->getGroupMembers() : m_provider->ungroupedElements();
  const auto found = std::find(list.begin(), list.end(), target);
  const auto next = side == Side::After && found != list.end() ? found + 1 : found;
  return isBlockAt(list, elements, static_cast<std::size_t>(next - list.begin()));
}

template <class T>
std::vector<Identifier>
GroupOperations<T>::knownGroups(const std::vector<Identifier>& groupIds) const
{
  std::vector<Identifier> known;
  std::copy_if(groupIds.begin(), groupIds.end(), std::back_inserter(known),
               [this](const Identifier& id) { return m_provider->findGroup(id) != nullptr; });
  return known;
}

extern template class TKM_QTMODELS_DECLARE GroupOperations<Identifier>;
extern template class TKM_QTMODELS_DECLARE GroupOperations<GUIdentifier>;

}
