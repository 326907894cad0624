// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Differences/EditedGroups.h"
#include "GroupHosting/Differences/GroupListEdit.h"
#include "GroupHosting/Differences/GroupListStep.h"
#include "GroupHosting/Differences/StepsOfEdit.h"
#include "GroupHosting/GroupHostingExport.h"
#include "HighLevelServices/Groups/TKGroup.h"
#include "Identifier/GUIdentifier.h"
#include "Identifier/Identifier.h"

#include <cstddef>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik {

/// What is different between two lists of groups. A value, which needs neither list any more.
///
/// Groups are the same when their ids are equal. As few groups and members as possible are removed,
/// inserted and moved; of several that are equal, the first of one list is taken for the first of
/// the other, and so on. Finding the difference takes time that is linear in the lists where
/// identifiers have a `std::hash`; sorting what is moved adds a logarithm. Without a hash, the
/// members that are different in one group are compared with each other, each with each.
///
/// A list has at most 2^32 - 1 groups, and a group as many members.
template <class T>
class GroupListDifference {
public:
  /// No difference, between two lists without groups.
  GroupListDifference();

  /// The difference from one list to another.
  GroupListDifference(const std::vector<TKGroup<T>>& before, const std::vector<TKGroup<T>>& after);

  GroupListDifference(const GroupListDifference& other);
  GroupListDifference(GroupListDifference&& other) noexcept;
  GroupListDifference& operator=(const GroupListDifference& other);
  GroupListDifference& operator=(GroupListDifference&& other) noexcept;
  ~GroupListDifference();

  /// Whether the two lists are equal: the same ids, names and members in the same order.
  bool empty() const;

  /// The steps from the first list to the second one. Groups leave, move and come first. Then
  /// follow the steps of each group that changes, from the first group to the last one: its name,
  /// then members that leave, move and come. What leaves goes from the last to the first, what
  /// comes from the first to the last; consecutive groups or members are one step.
  std::vector<GroupListStep<T>> steps() const;

  /// Makes the second list of the first one. Takes the time of one copy of the list, and of what
  /// changes.
  /// @throws std::invalid_argument when the list is not the first one as far as the difference can
  ///         tell, which knows the number of groups, what is removed, and the groups that change by
  ///         old name and number of members. Whatever it throws, the list is unchanged
  void applyTo(std::vector<TKGroup<T>>& list) const;

  /// Makes the first list of the second one; otherwise like applyTo().
  void revertOn(std::vector<TKGroup<T>>& list) const;

  /// The memory that the difference takes, without its administration by the allocator.
  std::size_t sizeInBytes() const;

private:
  void apply(GroupLists::Direction direction,
             std::vector<TKGroup<T>>& list,
             const char* operation) const;

  GroupLists::GroupListEdit<T> m_edit;
};

template <class T>
GroupListDifference<T>::GroupListDifference() = default;

template <class T>
GroupListDifference<T>::GroupListDifference(const std::vector<TKGroup<T>>& before,
                                            const std::vector<TKGroup<T>>& after)
    : m_edit(GroupLists::editBetween(before, after, [](std::size_t, std::size_t, bool) {}))
{}

template <class T>
GroupListDifference<T>::GroupListDifference(const GroupListDifference& other) = default;

template <class T>
GroupListDifference<T>::GroupListDifference(GroupListDifference&& other) noexcept = default;

template <class T>
GroupListDifference<T>&
GroupListDifference<T>::operator=(const GroupListDifference& other) = default;

template <class T>
GroupListDifference<T>&
GroupListDifference<T>::operator=(GroupListDifference&& other) noexcept = default;

template <class T>
GroupListDifference<T>::~GroupListDifference() = default;

template <class T>
bool GroupListDifference<T>::empty() const
{
  return GroupLists::isEmpty(m_edit);
}

template <class T>
std::vector<GroupListStep<T>> GroupListDifference<T>::steps() const
{
  return GroupLists::stepsOf(m_edit, GroupLists::Direction::Forward);
}

template <class T>
void GroupListDifference<T>::applyTo(std::vector<TKGroup<T>>& list) const
{
  apply(GroupLists::Direction::Forward, list, "applyTo");
}

template <class T>
void GroupListDifference<T>::revertOn(std::vector<TKGroup<T>>& list) const
{
  apply(GroupLists::Direction::Backward, list, "revertOn");
}

template <class T>
std::size_t GroupListDifference<T>::sizeInBytes() const
{
  return sizeof *this + GroupLists::bytesOf(m_edit);
}

template <class T>
void GroupListDifference<T>::apply(GroupLists::Direction direction,
                                   std::vector<TKGroup<T>>& list,
                                   const char* operation) const
{
  auto result = GroupLists::applied(m_edit, direction, list, [](std::size_t, const TKGroup<T>&) {});
  if (!result)
    throw std::invalid_argument(
        std::string("GroupListDifference::") + operation +
        "(): the list is another one than that of which the difference was made. Make a difference "
        "of this one, or give that one");
  list.swap(*result);
}

extern template class TKM_GROUPHOSTING_DECLARE GroupListDifference<Identifier>;
extern template class TKM_GROUPHOSTING_DECLARE GroupListDifference<GUIdentifier>;

}
