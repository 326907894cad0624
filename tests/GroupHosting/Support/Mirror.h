// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Providers/GroupsChange.h"
#include "GroupHosting/Support/TestProvider.h"
#include "Support/Groups.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <variant>
#include <vector>

namespace Tarvik {

/// Follows a provider by the steps that it tells, as a view would. Checks that what leaves is what
/// was there.
template <class T>
class Mirror {
public:
  explicit Mirror(TKGroupProvider<T>& provider)
      : m_groups(provider.getGroups()), m_ungrouped(provider.getUngroupedElements())
  {}

  void apply(const GroupsChange<T>& change)
  {
    for (const auto& step : change.groups)
      std::visit([this](const auto& each) { applyToGroups(each); }, step);
    for (const auto& step : change.ungrouped)
      std::visit([this](const auto& each) { applyTo(m_ungrouped, each); }, step);
  }

  const std::vector<TKGroup<T>>& groups() const { return m_groups; }
  const std::vector<T>& ungrouped() const { return m_ungrouped; }

private:
  template <class Entry>
  static auto at(std::vector<Entry>& entries, std::size_t position)
  {
    EXPECT_LE(position, entries.size());
    return entries.begin() + static_cast<std::ptrdiff_t>(position);
  }

  template <class Entry>
  static void
  insert(std::vector<Entry>& entries, std::size_t position, const std::vector<Entry>& more)
  {
    EXPECT_FALSE(more.empty());
    entries.insert(at(entries, position), more.begin(), more.end());
  }

  template <class Entry, class IsEqual>
  static void remove(std::vector<Entry>& entries,
                     std::size_t position,
                     const std::vector<Entry>& fewer,
                     IsEqual isEqual)
  {
    EXPECT_FALSE(fewer.empty());
    const auto first = at(entries, position);
    const auto last = at(entries, position + fewer.size());
    EXPECT_TRUE(std::equal(first, last, fewer.begin(), fewer.end(), isEqual));
    entries.erase(first, last);
  }

  template <class Entry>
  static void move(std::vector<Entry>& entries, std::size_t from, std::size_t count, std::size_t to)
  {
    EXPECT_NE(from, to);
    EXPECT_GT(count, 0U);
    if (from < to)
      std::rotate(at(entries, from), at(entries, from + count), at(entries, to + count));
    else
      std::rotate(at(entries, to), at(entries, from), at(entries, from + count));
  }

  template <class Entry>
  static void reorder(std::vector<Entry>& entries, const std::vector<std::uint32_t>& order)
  {
    ASSERT_EQ(order.size(), entries.size());
    std::vector<Entry> reordered;
    for (const auto position : order)
      reordered.push_back(entries.at(position));
    entries = reordered;
  }

  void applyToGroups(const GroupsInserted<T>& step)
  {
    insert(m_groups, step.position, step.groups);
  }
  void applyToGroups(const GroupsRemoved<T>& step)
  {
    remove(m_groups, step.position, step.groups,
           [](const auto& a, const auto& b) { return identical(a, b); });
  }
  void applyToGroups(const GroupsMoved& step) { move(m_groups, step.from, step.count, step.to); }
  void applyToGroups(const GroupsReordered& step) { reorder(m_groups, step.order); }
  void applyToGroups(const GroupRenamed& step)
  {
    EXPECT_EQ(m_groups.at(step.group).getName(), step.before);
    EXPECT_NE(step.before, step.after);
    m_groups[step.group].setName(step.after, true);
  }
  void applyToGroups(const MembersInserted<T>& step)
  {
    applyToMembers(step.group, ElementsInserted<T>{step.position, step.members});
  }
  void applyToGroups(const MembersRemoved<T>& step)
  {
    applyToMembers(step.group, ElementsRemoved<T>{step.position, step.members});
  }
  void applyToGroups(const MembersMoved& step)
  {
    applyToMembers(step.group, ElementsMoved{step.from, step.count, step.to});
  }
  void applyToGroups(const MembersReordered& step)
  {
    applyToMembers(step.group, ElementsReordered{step.order});
  }

  template <class Step>
  void applyToMembers(std::size_t group, const Step& step)
  {
    auto members = m_groups.at(group).getGroupMembers();
    applyTo(members, step);
    setMembers(m_groups[group], members);
  }

  static void applyTo(std::vector<T>& elements, const ElementsInserted<T>& step)
  {
    insert(elements, step.position, step.elements);
  }
  static void applyTo(std::vector<T>& elements, const ElementsRemoved<T>& step)
  {
    remove(elements, step.position, step.elements, [](const T& a, const T& b) { return a == b; });
  }
  static void applyTo(std::vector<T>& elements, const ElementsMoved& step)
  {
    move(elements, step.from, step.count, step.to);
  }
  static void applyTo(std::vector<T>& elements, const ElementsReordered& step)
  {
    reorder(elements, step.order);
  }

  std::vector<TKGroup<T>> m_groups;
  std::vector<T> m_ungrouped;
};

}
