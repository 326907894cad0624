// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/Groups/TKGroup.h"
#include "Support/Identifiers.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <ostream>
#include <string>
#include <vector>

/// Groups for tests, compared and printed by what a user sees of them: name and members.
namespace Tarvik {

/// What a user sees of a group.
template <class T>
struct GroupView {
  std::string name;
  std::vector<T> members;

  friend bool operator==(const GroupView& a, const GroupView& b)
  {
    return a.name == b.name && a.members == b.members;
  }
};

template <class T>
void PrintTo(const GroupView<T>& group, std::ostream* out)
{
  *out << group.name << ' ' << ::testing::PrintToString(group.members);
}

/// A new group: `group("A", {a, b})`.
template <class T>
TKGroup<T> group(const std::string& name, std::initializer_list<T> members)
{
  TKGroup<T> result(name);
  for (const T& member : members)
    result.addGroupMember(member);
  return result;
}

/// What a user sees of a list of groups.
template <class T>
std::vector<GroupView<T>> view(const std::vector<TKGroup<T>>& groups)
{
  std::vector<GroupView<T>> result;
  result.reserve(groups.size());
  for (const auto& each : groups)
    result.push_back({each.getName(), each.getGroupMembers()});
  return result;
}

/// What a user is expected to see: `list(group("A", {a}), group("B", {b, c}))`.
template <class T, class... More>
std::vector<GroupView<T>> list(const TKGroup<T>& first, const More&... more)
{
  return view(std::vector<TKGroup<T>>{first, more...});
}

/// Equal in every respect, ids included.
template <class T>
bool identical(const TKGroup<T>& a, const TKGroup<T>& b)
{
  return a.getId() == b.getId() && a.getName() == b.getName() &&
         a.getGroupMembers() == b.getGroupMembers();
}

template <class T>
bool identical(const std::vector<TKGroup<T>>& a, const std::vector<TKGroup<T>>& b)
{
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](const auto& left, const auto& right) { return identical(left, right); });
}

}
