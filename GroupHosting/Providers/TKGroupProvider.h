// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandBase.h"
#include "GroupHosting/Differences/EditedGroups.h"
#include "GroupHosting/Differences/GroupListEdit.h"
#include "GroupHosting/Differences/StepsOfEdit.h"
#include "GroupHosting/GroupHostingExport.h"
#include "GroupHosting/Providers/ChangeTelling.h"
#include "GroupHosting/Providers/EditableProvider.h"
#include "GroupHosting/Providers/GroupKeys.h"
#include "GroupHosting/Providers/GroupListPlan.h"
#include "GroupHosting/Providers/GroupListReplacement.h"
#include "GroupHosting/Providers/GroupsChange.h"
#include "GroupHosting/Providers/GroupsSubscription.h"
#include "GroupHosting/Providers/HolderEdit.h"
#include "GroupHosting/Providers/HolderIndex.h"
#include "GroupHosting/Providers/MemberAlignment.h"
#include "GroupHosting/Providers/UngroupedElements.h"
#include "HighLevelServices/Groups/TKGroup.h"
#include "Identifier/GUIdentifier.h"
#include "Identifier/Identifier.h"

#include <algorithm>
#include <cstddef>
#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik {

/// A provider to derive a host from. It owns the list of groups, knows the host's elements and
/// their order, answers which group holds an element and which elements are ungrouped, and tells
/// listeners what has changed.
///
/// Derive from it, implement getElementName(), and call setElements() with the elements.
///
/// setGroups() compares the list with the present one and copies only the groups that are
/// different. A CompactTKGroupCmd undoes and redoes its change without that comparison, and without
/// a copy of the list. Apart from that, time grows with what changes. An element may be a member
/// of a group twice, of several groups, and of groups without being one of the host's elements.
/// Where identifiers have no `std::hash`, an element is found by comparing it with all others: then
/// all of this is right, and slow for more than a few thousand elements. A hash must not throw.
///
/// One thread at a time.
template <class T>
class TKGroupProvider : public GroupLists::EditableProvider<T> {
public:
  /// Is told about one change.
  using Listener = std::function<void(const GroupsChange<T>&)>;

  /// Keeps a listener subscribed until it is destroyed. May outlive the provider.
  using Subscription = GroupsSubscription<T>;

  /// A provider without elements and groups.
  TKGroupProvider();

  TKGroupProvider(const TKGroupProvider&) = delete;
  TKGroupProvider& operator=(const TKGroupProvider&) = delete;
  ~TKGroupProvider() override;

  /// The host's elements in their order.
  const std::vector<T>& elements() const;

  /// Replaces the host's elements, or their order. Groups keep their members, whether these are
  /// elements of the host or not. Takes time that grows with all elements: hand over many at once.
  /// When it throws, nothing has changed.
  /// @param elements  in the new order; of equal ones, only the first counts
  void setElements(const std::vector<T>& elements);

  /// Whether it is an element of the host.
  bool hasElement(const T& element) const;

  /// Whether any group holds the element.
  bool isGrouped(const T& element) const;

  /// The first group in the list that has the element as a member, or null; valid until the list of
  /// groups changes. If the element is in several groups, it takes time that grows with these.
  const TKGroup<T>* holderOf(const T& element) const;

  /// Whether the first group with that id has the element as a member.
  bool isInGroup(const T& element, const Identifier& groupId) const;

  /// The first group with that id, or null; valid until the list of groups changes.
  const TKGroup<T>* findGroup(const Identifier& id) const;

  /// What getUngroupedElements() returns, without a copy; valid until the next change.
  const std::vector<T>& ungroupedElements() const;

  /// Calls the listener after each change from now on: in setGroups(), renameGroup() and
  /// setElements(), when all answers are new already, and before they return. It is told the
  /// steps from the list of groups, and from the ungrouped elements, that it knows to the new ones.
  /// Nothing is told when nothing changes, and nothing is computed for it when nobody listens.
  ///
  /// A listener may subscribe and unsubscribe, and may change the provider; all listeners are told
  /// of that change later, after this one. It must not destroy the provider. When it throws,
  /// the others are told all the same, the change stays, and its caller does not notice: see
  /// takeListenerFailure().
  /// @throws std::invalid_argument when the listener is empty
  [[nodiscard]] Subscription subscribe(Listener listener);

  /// The first exception of a listener since the last call, or null. setGroups() does not throw it,
  /// since a command takes that to mean that nothing has changed.
  std::exception_ptr takeListenerFailure() noexcept;

  /// The list of groups. Do not change it through this reference, only read it: the holders, the
  /// ungrouped elements and the listeners would know nothing of it, and their answers would be
  /// wrong from then on. Call setGroups() with a changed copy.
  std::vector<TKGroup<T>>& getGroups() override;

  /// The elements of the host that no group holds, in its order.
  std::vector<T> getUngroupedElements() override;

  /// Replaces the list of groups, then calls the listeners. When it throws, nothing has changed,
  /// and nobody was told. No host overrides it, since the undo() and redo() of a CompactTKGroupCmd
  /// do not call it, but change the list in place: subscribe to be told of every change.
  void setGroups(const std::vector<TKGroup<T>>& groups) final;

  /// None: a host with an order of its own overrides this.
  std::shared_ptr<CommandBase>
  createMoveCommand(const T& target, const std::vector<T>& elements, bool insertBefore) override;

  /// The members of the first group with that id, in their order, with what getElementName() says.
  std::vector<std::pair<T, std::string>> getGroupMemberNames(const Identifier& groupId) override;

  /// Renames the first group with that id, then calls the listeners. Ignores an unknown id, and
  /// takes any name, even an empty one or that of another group. When it throws, nothing has
  /// changed.
  void renameGroup(const Identifier& groupId, const std::string& name) override;

private:
  using Changes = typename GroupLists::ChangeTelling<T>::Changes;
  using Plan = GroupLists::GroupListPlan<T>;

  bool edit(const GroupLists::GroupListEdit<T>& edit, GroupLists::Direction direction) override;
  template <class MembersOf, class NoteMembers>
  void change(const Plan& plan, Changes changes, MembersOf membersOf, NoteMembers noteMembers);
  template <class Item>
  std::size_t firstPosition(const GroupLists::HolderIndex<Item>& index, const Item& item) const;
  void noteGroups(const Plan& plan,
                  const GroupLists::GroupKeys& keys,
                  GroupLists::HolderEdit<Identifier>& ids,
                  GroupLists::HolderEdit<T>& members) const;

  std::vector<TKGroup<T>> m_groups;
  GroupLists::GroupKeys m_keys;
  GroupLists::HolderIndex<Identifier> m_ids; ///< which groups have an id: usually one
  GroupLists::HolderIndex<T> m_holders;
  GroupLists::UngroupedElements<T> m_elements;
  GroupLists::ChangeTelling<T> m_telling;
};

template <class T>
TKGroupProvider<T>::TKGroupProvider() = default;

template <class T>
TKGroupProvider<T>::~TKGroupProvider() = default;

template <class T>
const std::vector<T>& TKGroupProvider<T>::elements() const
{
  return m_elements.elements();
}

template <class T>
void TKGroupProvider<T>::setElements(const std::vector<T>& elements)
{
  GroupLists::HolderEdit<T> edit(m_holders);
  GroupLists::UngroupedElements<T> changed(elements, m_elements, m_holders, edit);
  Changes changes;
  if (m_telling.hasListeners()) {
    auto steps = GroupLists::stepsBetween(m_elements.list(), changed.list());
    if (!steps.empty())
      changes.push_back({{}, std::move(steps)});
  }

  std::swap(m_elements, changed); // nothing fails from here on
  edit.keep([](auto) { return true; });
  changed.forEachElement([this](auto number) {
    if (!m_elements.has(number) && !m_holders.isHeld(number))
      m_holders.forget(number);
  });
  m_telling.tell(std::move(changes));
}

template <class T>
bool TKGroupProvider<T>::hasElement(const T& element) const
{
  return m_elements.has(m_holders.numbers().find(element));
}

template <class T>
bool TKGroupProvider<T>::isGrouped(const T& element) const
{
  return firstPosition(m_holders, element) != GroupLists::nowhere;
}

template <class T>
const TKGroup<T>* TKGroupProvider<T>::holderOf(const T& element) const
{
  const auto position = firstPosition(m_holders, element);
  return position != GroupLists::nowhere ? &m_groups[position] : nullptr;
}

template <class T>
bool TKGroupProvider<T>::isInGroup(const T& element, const Identifier& groupId) const
{
  const auto number = m_holders.numbers().find(element);
  const auto position = firstPosition(m_ids, groupId);
  bool isFound = false;
  if (number != GroupLists::HolderIndex<T>::none && position != GroupLists::nowhere) {
    m_holders.forEachHolder(
        number, [&, key = m_keys.keyAt(position)](auto holder) { isFound |= holder == key; });
  }
  return isFound;
}

template <class T>
const TKGroup<T>* TKGroupProvider<T>::findGroup(const Identifier& id) const
{
  const auto position = firstPosition(m_ids, id);
  return position != GroupLists::nowhere ? &m_groups[position] : nullptr;
}

template <class T>
const std::vector<T>& TKGroupProvider<T>::ungroupedElements() const
{
  return m_elements.list();
}

template <class T>
GroupsSubscription<T> TKGroupProvider<T>::subscribe(Listener listener)
{
  return m_telling.subscribe(std::move(listener));
}

template <class T>
std::exception_ptr TKGroupProvider<T>::takeListenerFailure() noexcept
{
  return m_telling.takeFailure();
}

template <class T>
std::vector<TKGroup<T>>& TKGroupProvider<T>::getGroups()
{
  return m_groups;
}

template <class T>
std::vector<T> TKGroupProvider<T>::getUngroupedElements()
{
  return m_elements.list();
}

/// Listeners need the edit: then it is found once, and the list is changed by it.
template <class T>
void TKGroupProvider<T>::setGroups(const std::vector<TKGroup<T>>& groups)
{
  if (m_telling.hasListeners()) {
    edit(GroupLists::editBetween(m_groups, groups, [](std::size_t, std::size_t, bool) {}),
         GroupLists::Direction::Forward);
    return;
  }
  const auto plan = GroupLists::planFor(m_groups, groups);
  if (plan.keepsGroups() && plan.changed.empty())
    return;
  change(
      plan, {}, [&](const auto& each) { return groups[each.source].getGroupMembers(); },
      [&](const auto& each, auto key, auto& members) {
        GroupLists::align(
            m_groups[each.before].getGroupMembers(), groups[each.source].getGroupMembers(),
            [&](auto begin, auto end) { members.remove(begin, end, key); },
            [&](auto begin, auto end) { members.add(begin, end, key); });
      });
}

/// What undo() and redo() of a compact command call instead of setGroups().
template <class T>
bool TKGroupProvider<T>::edit(const GroupLists::GroupListEdit<T>& edit,
                              GroupLists::Direction direction)
{
  if (!GroupLists::fits(edit, direction, m_groups))
    return false;
  if (GroupLists::isEmpty(edit))
    return true;
  Changes changes;
  if (m_telling.hasListeners())
    changes.push_back({GroupLists::stepsOf(edit, direction), {}});
  change(
      GroupLists::planFor(edit, direction), std::move(changes),
      [&](const auto& each) {
        return GroupLists::editedMembers(edit.changed[each.source], direction,
                                         m_groups[each.before]);
      },
      [&](const auto& each, auto key, auto& members) {
        const auto& left = GroupLists::leaving(edit.changed[each.source], direction);
        const auto& came = GroupLists::coming(edit.changed[each.source], direction);
        members.remove(left.begin(), left.end(), key);
        members.add(came.begin(), came.end(), key);
      });
  return true;
}

/// Changes the list of groups and all answers, then tells it. When it throws, nothing has changed.
/// @param changes      empty, or one change with the steps of the groups
/// @param membersOf    returns the new members of a group that stays
/// @param noteMembers  notes which members that group begins or ceases to hold
template <class T>
template <class MembersOf, class NoteMembers>
void TKGroupProvider<T>::change(const Plan& plan,
                                Changes changes,
                                MembersOf membersOf,
                                NoteMembers noteMembers)
{
  auto keys = m_keys.after(plan.origins);
  GroupLists::HolderEdit<Identifier> ids(m_ids);
  GroupLists::HolderEdit<T> members(m_holders);
  for (const auto& each : plan.changed)
    noteMembers(each, keys.keyAt(each.after), members);
  if (!plan.keepsGroups())
    noteGroups(plan, keys, ids, members);
  ids.apply();
  members.apply();
  const auto ungrouped = m_elements.changeBy(members, m_holders);
  if (!changes.empty())
    changes.back().ungrouped = m_elements.stepsOf(ungrouped);

  GroupLists::GroupListReplacement<T> replacement(m_groups, plan);
  replacement.prepare(membersOf);
  replacement.commit(); // nothing fails from here on
  std::swap(m_keys, keys);
  m_elements.apply(ungrouped);
  ids.keep([](auto) { return false; });
  members.keep([this](auto number) { return m_elements.has(number); });
  m_telling.tell(std::move(changes));
}

/// Notes the ids and members of groups that come and leave.
template <class T>
void TKGroupProvider<T>::noteGroups(const Plan& plan,
                                    const GroupLists::GroupKeys& keys,
                                    GroupLists::HolderEdit<Identifier>& ids,
                                    GroupLists::HolderEdit<T>& members) const
{
  std::vector<bool> stays(m_groups.size());
  auto newGroup = plan.newGroups.begin();
  for (std::size_t i = 0; i < plan.origins.size(); ++i) {
    const auto origin = plan.origins[i];
    if (origin != GroupLists::nowhere) {
      stays[origin] = true;
      continue;
    }
    const auto& group = **newGroup++;
    const auto& id = group.getId();
    const auto& all = group.getGroupMembers();
    ids.add(&id, &id + 1, keys.keyAt(i));
    members.add(all.begin(), all.end(), keys.keyAt(i));
  }
  for (std::size_t i = 0; i < m_groups.size(); ++i) {
    if (stays[i])
      continue;
    const auto& id = m_groups[i].getId();
    const auto& all = m_groups[i].getGroupMembers();
    ids.remove(&id, &id + 1, m_keys.keyAt(i));
    members.remove(all.begin(), all.end(), m_keys.keyAt(i));
  }
}

/// The position of the first group that holds the item, or nowhere.
template <class T>
template <class Item>
std::size_t TKGroupProvider<T>::firstPosition(const GroupLists::HolderIndex<Item>& index,
                                              const Item& item) const
{
  auto first = GroupLists::nowhere;
  const auto number = index.numbers().find(item);
  if (number != GroupLists::HolderIndex<Item>::none)
    index.forEachHolder(number,
                        [&](auto key) { first = (std::min)(first, m_keys.positionOf(key)); });
  return first;
}

template <class T>
std::shared_ptr<CommandBase> TKGroupProvider<T>::createMoveCommand(const T& target,
                                                                   const std::vector<T>& elements,
                                                                   bool insertBefore)
{
  (void)target;
  (void)elements;
  (void)insertBefore;
  return nullptr;
}

template <class T>
std::vector<std::pair<T, std::string>>
TKGroupProvider<T>::getGroupMemberNames(const Identifier& groupId)
{
  std::vector<std::pair<T, std::string>> names;
  const auto* group = findGroup(groupId);
  if (group == nullptr)
    return names;
  names.reserve(group->getGroupMembers().size());
  for (const T& member : group->getGroupMembers())
    names.emplace_back(member, this->getElementName(member));
  return names;
}

template <class T>
void TKGroupProvider<T>::renameGroup(const Identifier& groupId, const std::string& name)
{
  const auto position = firstPosition(m_ids, groupId);
  if (position == GroupLists::nowhere || m_groups[position].getName() == name)
    return;
  auto& group = m_groups[position];
  Changes changes;
  if (m_telling.hasListeners()) {
    changes.emplace_back();
    changes.back().groups.emplace_back(GroupRenamed{position, group.getName(), name});
  }
  group.setName(name, true);
  m_telling.tell(std::move(changes));
}

extern template class TKM_GROUPHOSTING_DECLARE TKGroupProvider<Identifier>;
extern template class TKM_GROUPHOSTING_DECLARE TKGroupProvider<GUIdentifier>;

}
