// SPDX-License-Identifier: MIT
#pragma once

#include "GeneralServices/NameInterface.h"
#include "HighLevelServices/Groups/ElementIdentifier.h"
#include "HighLevelServices/HighLevelServicesExport.h"
#include "Identifier/GUIdentifier.h"
#include "Identifier/Identifier.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string>
#include <vector>

namespace Tarvik {

class PersistenceArchiver;
template <class T>
class GroupRegistration;

namespace GroupLists {
template <class T>
class MemberLists;
}

/// A named, ordered list of elements with its own id.
///
/// A plain value: hosts keep groups in vectors and pass whole lists. Members are searched for with
/// `operator==`, from the first on. The id is an Identifier, whatever type the members have. Every
/// new group has a new id; only copy assignment and loading change it.
template <class T>
class TKGroup : public NameInterface {
  static_assert(ElementIdentifier<T>, "see HighLevelServices/Groups/ElementIdentifier.h");

public:
  /// A group with an empty name, no members and a new id.
  TKGroup();

  /// A group with the given name, no members and a new id.
  TKGroup(const std::string& name);

  /// Copies name, members and id. There is no move: a group is always copied.
  TKGroup(const TKGroup& other);

  /// Copies name, id and members, in this order.
  TKGroup& operator=(const TKGroup& other);

  ~TKGroup() override;

  /// The group's own id.
  const Identifier& getId() const;

  /// The number of members; duplicates count.
  unsigned long long numberOfGroupMembers() const;

  /// The members in order; valid until the group changes.
  const std::vector<T>& getGroupMembers() const;

  /// The member at a position counted from 0, or `T::getInvalidId()` after the last one.
  const T& getGroupMemberAtIndex(unsigned long long index) const;

  /// Whether the element is a member.
  bool isInGroup(const T& id) const;

  /// Appends an element. One that is already a member stays where it is.
  void addGroupMember(const T& id);

  /// Inserts the elements that are not members yet, as one block.
  ///
  /// Only the members from before the call count: an element that is given twice is inserted twice.
  /// @param ids    the elements in their new order
  /// @param index  the position of the member before which the block goes; when negative, or not
  ///               less than the number of members, the block goes to the end
  void addGroupMembersAtIndex(const std::vector<T>& ids, int index);

  /// Removes the first member that equals the element; the others keep their order.
  /// @return whether there was one
  bool removeGroupMember(const T& id);

  /// Removes all members; name and id stay.
  void clear();

  /// Registers the class with the archive if needed, and copies its class record. The class name is
  /// "TKIdGroup" or "TKGUIdGroup", the version 500001.
  /// @param out  a BaseClassRegister to overwrite; unchanged when the archive refused the class
  static void serialization_register(void* out);

  /// Whether the archive accepted the class when the library was loaded.
  static bool s_force_serialization_registration;

private:
  friend class GroupLists::MemberLists<T>;
  friend class GroupRegistration<T>; // the entries of its record call these two

  /// @throws std::exception "Parent not registered" when the archive refused the caster between
  ///         groups and their base; nothing is written or changed then
  void save(PersistenceArchiver& archive, unsigned int version) const;
  void load(PersistenceArchiver& archive, unsigned int version);

  std::vector<T> m_members;
  Identifier m_id;
};

template <class T>
TKGroup<T>::TKGroup() = default;

template <class T>
TKGroup<T>::TKGroup(const std::string& name) : NameInterface(name)
{}

template <class T>
TKGroup<T>::TKGroup(const TKGroup& other) = default;

template <class T>
TKGroup<T>& TKGroup<T>::operator=(const TKGroup& other)
{
  setName(other.getName(), true);
  m_id = other.m_id;
  if (this != &other)
    m_members = other.m_members;
  return *this;
}

template <class T>
TKGroup<T>::~TKGroup() = default;

template <class T>
const Identifier& TKGroup<T>::getId() const
{
  return m_id;
}

template <class T>
unsigned long long TKGroup<T>::numberOfGroupMembers() const
{
  return m_members.size();
}

template <class T>
const std::vector<T>& TKGroup<T>::getGroupMembers() const
{
  return m_members;
}

template <class T>
const T& TKGroup<T>::getGroupMemberAtIndex(unsigned long long index) const
{
  return index < m_members.size() ? m_members[static_cast<std::size_t>(index)] : T::getInvalidId();
}

template <class T>
bool TKGroup<T>::isInGroup(const T& id) const
{
  return std::find(m_members.begin(), m_members.end(), id) != m_members.end();
}

template <class T>
void TKGroup<T>::addGroupMember(const T& id)
{
  if (!isInGroup(id))
    m_members.push_back(id);
}

template <class T>
void TKGroup<T>::addGroupMembersAtIndex(const std::vector<T>& ids, int index)
{
  std::vector<T> newMembers;
  newMembers.reserve(ids.size());
  std::copy_if(ids.begin(), ids.end(), std::back_inserter(newMembers),
               [this](const T& id) { return !isInGroup(id); });

  const bool isInside = index >= 0 && static_cast<std::size_t>(index) < m_members.size();
  const auto place = isInside ? m_members.begin() + index : m_members.end();
  m_members.insert(place, newMembers.begin(), newMembers.end());
}

template <class T>
bool TKGroup<T>::removeGroupMember(const T& id)
{
  const auto found = std::find(m_members.begin(), m_members.end(), id);
  if (found == m_members.end())
    return false;
  m_members.erase(found);
  return true;
}

template <class T>
void TKGroup<T>::clear()
{
  m_members.clear();
}

extern template class TKM_HIGHLEVELSERVICES_DECLARE TKGroup<Identifier>;
extern template class TKM_HIGHLEVELSERVICES_DECLARE TKGroup<GUIdentifier>;

}
