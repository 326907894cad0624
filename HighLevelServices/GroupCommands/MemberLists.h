// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/Groups/TKGroup.h"

#include <vector>

namespace Tarvik::GroupLists {

/// Lets commands edit member lists, and hand them over without a copy. Not for hosts.
template <class T>
class MemberLists {
public:
  static std::vector<T>& of(TKGroup<T>& group) noexcept { return group.m_members; }

  static void swap(TKGroup<T>& group, std::vector<T>& members) noexcept
  {
    group.m_members.swap(members);
  }

  static void swap(TKGroup<T>& a, TKGroup<T>& b) noexcept { a.m_members.swap(b.m_members); }
};

/// Takes the members out of a group for as long as it lives: the group can be copied without them.
template <class T>
class MembersAside {
public:
  explicit MembersAside(TKGroup<T>& group) : m_group(group)
  {
    MemberLists<T>::swap(group, m_members);
  }
  MembersAside(const MembersAside&) = delete;
  MembersAside& operator=(const MembersAside&) = delete;
  ~MembersAside() { MemberLists<T>::swap(m_group, m_members); }

private:
  TKGroup<T>& m_group;
  std::vector<T> m_members;
};

}
