// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/Groups/TKGroup.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

/// @file
/// The steps from one list of groups to another, for views and others that follow a list. Positions
/// are counted from 0, and those of a step hold when the steps before it are done.

namespace Tarvik {

/// Groups come into the list.
template <class T>
struct GroupsInserted {
  std::size_t position;           ///< of the first of them, after the step
  std::vector<TKGroup<T>> groups; ///< those that come, in their order
};

/// Groups leave the list.
template <class T>
struct GroupsRemoved {
  std::size_t position;           ///< of the first of them, before the step
  std::vector<TKGroup<T>> groups; ///< those that leave, in their order
};

/// Consecutive groups go to another place.
struct GroupsMoved {
  std::size_t from;  ///< position of the first of them, before the step
  std::size_t count; ///< how many groups
  std::size_t to;    ///< position of the first of them, after the step
};

/// So many groups go to other places that one new order is smaller than the moves.
struct GroupsReordered {
  std::vector<std::uint32_t> order; ///< by position after the step: the position before it
};

/// A group has another name.
struct GroupRenamed {
  std::size_t group;  ///< its position
  std::string before; ///< its old name
  std::string after;  ///< its new name
};

/// Elements come into a group.
template <class T>
struct MembersInserted {
  std::size_t group;      ///< its position
  std::size_t position;   ///< of the first of the members, after the step
  std::vector<T> members; ///< those that come, in their order
};

/// Members leave a group.
template <class T>
struct MembersRemoved {
  std::size_t group;      ///< its position
  std::size_t position;   ///< of the first of the members, before the step
  std::vector<T> members; ///< those that leave, in their order
};

/// Consecutive members go to another place in their group.
struct MembersMoved {
  std::size_t group; ///< its position
  std::size_t from;  ///< position of the first of the members, before the step
  std::size_t count; ///< how many members
  std::size_t to;    ///< position of the first of the members, after the step
};

/// So many members go to other places in their group that one new order is smaller than the moves.
struct MembersReordered {
  std::size_t group;                ///< its position
  std::vector<std::uint32_t> order; ///< by position after the step: the position before it
};

/// One step from one list of groups to another.
template <class T>
using GroupListStep = std::variant<GroupsRemoved<T>,
                                   GroupsMoved,
                                   GroupsReordered,
                                   GroupsInserted<T>,
                                   GroupRenamed,
                                   MembersRemoved<T>,
                                   MembersMoved,
                                   MembersReordered,
                                   MembersInserted<T>>;

}
