// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Differences/GroupListStep.h"

#include <cstddef>
#include <cstdint>
#include <variant>
#include <vector>

/// @file
/// What a provider tells about a change, for views and others that follow it. Positions are counted
/// from 0, and those of a step hold when the steps before it are done.

namespace Tarvik {

/// Elements come into a list.
template <class T>
struct ElementsInserted {
  std::size_t position;    ///< of the first of them, after the step
  std::vector<T> elements; ///< those that come, in their order
};

/// Elements leave a list.
template <class T>
struct ElementsRemoved {
  std::size_t position;    ///< of the first of them, before the step
  std::vector<T> elements; ///< those that leave, in their order
};

/// Consecutive elements go to another place in their list.
struct ElementsMoved {
  std::size_t from;  ///< position of the first of them, before the step
  std::size_t count; ///< how many elements
  std::size_t to;    ///< position of the first of them, after the step
};

/// So many elements go to other places that one new order is smaller than the moves.
struct ElementsReordered {
  std::vector<std::uint32_t> order; ///< by position after the step: the position before it
};

/// One step from one list of elements to another.
template <class T>
using ElementListStep =
    std::variant<ElementsRemoved<T>, ElementsMoved, ElementsReordered, ElementsInserted<T>>;

/// A change of a provider: few steps, which a view can apply one by one. The two lists do not
/// depend on each other. GroupListDifference::steps() says in which order the steps of groups come.
/// In the same way, ungrouped elements first leave, from the last to the first; then those that
/// stay move or get one new order; then others come, from the first to the last.
template <class T>
struct GroupsChange {
  std::vector<GroupListStep<T>> groups;      ///< from the old list of groups to the new one
  std::vector<ElementListStep<T>> ungrouped; ///< from the old ungrouped elements to the new ones
};

}
