// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/MacroCommand.h"
#include "GroupHosting/Commands/MoveTKGroupsCmd.h"
#include "GroupHosting/Providers/TKGroupProvider.h"
#include "HighLevelServices/GroupCommands/AddToTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/MoveTKGroupElementsCmd.h"
#include "HighLevelServices/GroupCommands/RemoveFromTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/RemoveTKGroupsCmd.h"
#include "HighLevelServices/GroupCommands/RenameTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/SortTKGroupsAlphabeticallyCmd.h"
#include "QtModels/Editing/GroupPlace.h"
#include "QtModels/Editing/GroupRequest.h"
#include "QtModels/Editing/GroupSubjects.h"
#include "QtModels/Editing/PlaceLastGroupCmd.h"

#include <list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

/// The requests that GroupOperations makes: the command of each, and what its description names.
/// All groups are known to the provider. Not for hosts.
namespace Tarvik::GroupRequests {

/// What the command of a request works on.
template <class T>
using Provider = std::shared_ptr<TKGroupProviderInterface<T>>;

/// Says which elements.
template <class T>
std::string namesOf(TKGroupProvider<T>& provider, const std::vector<T>& elements)
{
  return GroupSubjects::elements(elements.size(), elements.size() == 1
                                                      ? provider.getElementName(elements.front())
                                                      : std::string());
}

/// Says which groups.
template <class T>
std::string namesOfGroups(const TKGroupProvider<T>& provider,
                          const std::vector<Identifier>& groupIds)
{
  std::vector<std::string> names;
  names.reserve(groupIds.size());
  for (const auto& id : groupIds)
    names.push_back(provider.findGroup(id)->getName());
  return GroupSubjects::groups(names);
}

/// Makes a group of the elements. Its id is put where groupId points when the request has been
/// executed.
template <class T>
GroupRequest<T> creation(const std::shared_ptr<TKGroupProvider<T>>& provider,
                         const std::vector<T>& members,
                         const std::string& name,
                         const GroupPlace& place,
                         const std::shared_ptr<std::optional<Identifier>>& groupId)
{
  return {.context = "CreateTKGroupCmd",
          .text = "Create Group",
          .makeCommand =
              [members, name, place, groupId](Provider<T> host) {
                return std::make_shared<MacroCommand>(std::list<std::shared_ptr<CommandBase>>{
                    std::make_shared<CreateTKGroupCmd<T>>(host, members, name),
                    std::make_shared<PlaceLastGroupCmd<T>>(host, place, groupId)});
              },
          .subject =
              [groupId, count = members.size(), provider] {
                const auto* group = *groupId ? provider->findGroup(**groupId) : nullptr;
                return group ? GroupSubjects::groupWith(group->getName(), count) : std::string();
              }};
}

/// Moves the elements into a group, before the member with the index; -1 means to the end.
template <class T>
GroupRequest<T> addition(TKGroupProvider<T>& provider,
                         const std::vector<T>& elements,
                         const TKGroup<T>& group,
                         int index)
{
  return {.context = "AddToTKGroupCmd",
          .text = "Add to Group",
          .makeCommand =
              [elements, id = group.getId(), index](Provider<T> host) {
                auto command = std::make_shared<AddToTKGroupCmd<T>>(host, elements, id);
                command->setInsertIndex(index);
                return command;
              },
          .subject = [subject = GroupSubjects::into(namesOf(provider, elements),
                                                    group.getName())] { return subject; }};
}

/// Takes the elements out of their groups.
template <class T>
GroupRequest<T> removal(TKGroupProvider<T>& provider, const std::vector<T>& members)
{
  return {.context = "RemoveFromTKGroupCmd",
          .text = "Remove Point Collection(s) From Group",
          .makeCommand =
              [members](Provider<T> host) {
                return std::make_shared<RemoveFromTKGroupCmd<T>>(host, members);
              },
          .subject = [subject = namesOf(provider, members)] { return subject; }};
}

/// Moves the elements next to another one.
template <class T>
GroupRequest<T>
move(TKGroupProvider<T>& provider, const std::vector<T>& elements, const T& target, Side side)
{
  return {.context = "MoveTKGroupElementsCmd",
          .text = "Move Elements",
          .makeCommand =
              [elements, target, side](Provider<T> host) {
                return std::make_shared<MoveTKGroupElementsCmd<T>>(host, elements, target,
                                                                   side == Side::Before);
              },
          .subject = [subject = GroupSubjects::beside(
                          namesOf(provider, elements), side,
                          provider.getElementName(target))] { return subject; }};
}

/// Deletes groups.
template <class T>
GroupRequest<T> deletion(const TKGroupProvider<T>& provider,
                         const std::vector<Identifier>& groupIds)
{
  return {.context = "RemoveTKGroupsCmd",
          .text = "Remove Group",
          .makeCommand =
              [groupIds](Provider<T> host) {
                return std::make_shared<RemoveTKGroupsCmd<T>>(host, groupIds);
              },
          .subject = [subject = namesOfGroups(provider, groupIds)] { return subject; }};
}

/// Renames a group.
template <class T>
GroupRequest<T> renaming(const TKGroup<T>& group, const std::string& name)
{
  return {.context = "RenameTKGroupCmd",
          .text = "Rename Group",
          .makeCommand =
              [id = group.getId(), name](Provider<T> host) {
                return std::make_shared<RenameTKGroupCmd<T>>(host, id, name);
              },
          .subject = [subject = GroupSubjects::into(GroupSubjects::groupWith(group.getName(), 0),
                                                    name)] { return subject; }};
}

/// Sorts the groups by name, and the members of each.
template <class T>
GroupRequest<T> sorting()
{
  return {.context = "SortTKGroupsAlphabeticallyCmd",
          .text = "Sort Groups",
          .makeCommand = [](Provider<T> host) {
            return std::make_shared<SortTKGroupsAlphabeticallyCmd<T>>(host);
          }};
}

/// Moves groups next to another one.
template <class T>
GroupRequest<T> moveOfGroups(const TKGroupProvider<T>& provider,
                             const std::vector<Identifier>& groupIds,
                             const TKGroup<T>& target,
                             Side side)
{
  return {.context = "MoveTKGroupsCmd",
          .text = "Move Groups",
          .makeCommand =
              [groupIds, id = target.getId(), side](Provider<T> host) {
                return std::make_shared<MoveTKGroupsCmd<T>>(host, groupIds, id,
                                                            side == Side::Before);
              },
          .subject = [subject = GroupSubjects::beside(namesOfGroups(provider, groupIds), side,
                                                      target.getName())] { return subject; }};
}

}
