// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/GroupCommands/ComparedElements.h"
#include "HighLevelServices/GroupCommands/GroupLists.h"
#include "HighLevelServices/GroupCommands/HashedElements.h"
#include "HighLevelServices/Groups/TKGroup.h"
#include "Identifier/Identifier.h"

#include <cstddef>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace Tarvik::GroupLists {

/// To compare a member with this many elements takes less time than to hash it.
constexpr std::size_t fewElements = 3;

/// The elements of a selection, looked up in the faster of two ways.
template <class T>
class SelectedElements {
public:
  /// @param elements  must outlive this object and must not change
  explicit SelectedElements(const std::vector<T>& elements) : m_elements(chosenFor(elements)) {}

  /// See HashedElements.
  bool isAnyWanting() const
  {
    return std::visit([](const auto& elements) { return elements.isAnyWanting(); }, m_elements);
  }

  /// See HashedElements.
  template <class Taken>
  void take(const std::vector<T>& members, Taken taken)
  {
    std::visit([&](auto& elements) { elements.take(members, taken); }, m_elements);
  }

  /// See HashedElements.
  std::vector<std::size_t> firstPositions(const std::vector<T>& members) const
  {
    return std::visit([&](const auto& elements) { return elements.firstPositions(members); },
                      m_elements);
  }

private:
  using Either = std::conditional_t<Hashable<T>,
                                    std::variant<ComparedElements<T>, HashedElements<T>>,
                                    std::variant<ComparedElements<T>>>;

  static Either chosenFor(const std::vector<T>& elements)
  {
    if constexpr (Hashable<T>) {
      if (elements.size() > fewElements)
        return Either(std::in_place_type<HashedElements<T>>, elements);
    }
    return Either(std::in_place_type<ComparedElements<T>>, elements);
  }

  Either m_elements;
};

/// Takes the elements given to a command out of a list of groups in one pass.
///
/// The result is defined by a walk: for one element after another, the first group of the list that
/// holds it loses the first member that is equal to it. The pass gives the same result. Only equal
/// elements compete for a member, so look at n equal ones. The walk takes out the first member of
/// the list that is equal to them, then the next one, and so on: the first n of them, in the order
/// of the elements. The pass meets the members in the order of the list, and gives each to the next
/// of the equal elements until all of them have one.
///
/// Call takeOutOf() for every group of the list, in its order. lowered() and insertInto() are for
/// the group that it was called for last.
template <class T, class Elements = SelectedElements<T>>
class Selection {
public:
  /// @param elements  must outlive the selection and must not change
  explicit Selection(const std::vector<T>& elements) : m_elements(elements), m_lookup(elements) {}

  /// Takes the elements out of the next group of the list.
  /// @param before  a copy of the group, which restores it when memory runs out
  void takeOutOf(TKGroup<T>& group, const TKGroup<T>& before);

  /// The insert index after the walk. The walk lowers it by one for each element that it finds
  /// before the index, even if it then takes that element out of an earlier group instead.
  /// @param index   negative for the end of the group, which is returned unchanged
  /// @param before  the group before takeOutOf()
  int lowered(int index, const TKGroup<T>& before) const;

  /// Does what `group.addGroupMembersAtIndex(elements, index)` does, in linear time with a hash.
  /// @param before  the group before takeOutOf(), which restores it when memory runs out
  void insertInto(TKGroup<T>& group, int index, const TKGroup<T>& before) const;

private:
  /// A member that was taken out for an element.
  struct Find {
    std::size_t group;
    std::size_t position; ///< among the members before anything was taken out
    std::size_t element;
  };

  void takeOut(TKGroup<T>& group, std::size_t find, const TKGroup<T>& before);

  const std::vector<T>& m_elements;
  Elements m_lookup;
  std::vector<Find> m_finds; ///< in the order of the list
  std::size_t m_numberOfGroups = 0;
  std::vector<T> m_kept; ///< a field, so that all groups use the same memory
};

/// Gives a group other members.
/// @param before  restores the group when memory runs out. The group was a copy of it, so it has
///                enough memory for that
template <class T>
void replaceMembers(TKGroup<T>& group, const std::vector<T>& members, const TKGroup<T>& before)
{
  try {
    group.clear();
    group.addGroupMembersAtIndex(members, endOfGroup);
  } catch (...) {
    group = before;
    throw;
  }
}

template <class T, class Elements>
void Selection<T, Elements>::takeOutOf(TKGroup<T>& group, const TKGroup<T>& before)
{
  const auto number = m_numberOfGroups++;
  if (!m_lookup.isAnyWanting())
    return;
  const auto earlier = m_finds.size();
  m_lookup.take(group.getGroupMembers(), [this, number](std::size_t position, std::size_t taker) {
    m_finds.push_back({number, position, taker});
  });
  takeOut(group, earlier, before);
}

/// Takes the members of this find and of all later ones out of the group.
template <class T, class Elements>
void Selection<T, Elements>::takeOut(TKGroup<T>& group, std::size_t find, const TKGroup<T>& before)
{
  constexpr std::size_t few = 4; // fewer searches than this are cheaper than a new member list
  if (m_finds.size() - find < few) {
    for (; find < m_finds.size(); ++find)
      group.removeGroupMember(m_elements[m_finds[find].element]);
    return;
  }
  const auto& members = group.getGroupMembers();
  auto from = members.begin();
  m_kept.clear();
  for (; find < m_finds.size(); ++find) {
    const auto taken = members.begin() + static_cast<std::ptrdiff_t>(m_finds[find].position);
    m_kept.insert(m_kept.end(), from, taken);
    from = taken + 1;
  }
  m_kept.insert(m_kept.end(), from, members.end());
  replaceMembers(group, m_kept, before);
}

template <class T, class Elements>
int Selection<T, Elements>::lowered(int index, const TKGroup<T>& before) const
{
  if (index <= 0)
    return index; // no member is before it
  const auto& members = before.getGroupMembers();
  const auto firsts = m_lookup.firstPositions(members);
  std::vector<const Find*> finds(m_elements.size());
  for (const Find& find : m_finds)
    finds[find.element] = &find;

  // The walk, without moving members: `index` of the members before `end` are still there. An index
  // past the last member counts members that are not there.
  std::vector<bool> isGone(members.size());
  auto end = static_cast<std::size_t>(index);
  for (std::size_t i = 0; i < finds.size(); ++i) {
    if (finds[i] == nullptr)
      continue; // the group has no such member left
    if (finds[i]->group == m_numberOfGroups - 1) {
      isGone[finds[i]->position] = true;
      if (finds[i]->position < end)
        --index;
    } else if (firsts[i] < end) {
      --index;
      do
        --end;
      while (end < isGone.size() && isGone[end]);
    }
  }
  return index;
}

template <class T, class Elements>
void Selection<T, Elements>::insertInto(TKGroup<T>& group,
                                        int index,
                                        const TKGroup<T>& before) const
{
  if (m_elements.size() <= fewElements) {
    group.addGroupMembersAtIndex(m_elements, index);
    return;
  }
  const auto& members = group.getGroupMembers();
  const auto positions = m_lookup.firstPositions(members);
  const bool isInside = index >= 0 && static_cast<std::size_t>(index) < members.size();
  const auto place = isInside ? members.begin() + index : members.end();

  std::vector<T> together;
  together.reserve(members.size() + m_elements.size());
  together.insert(together.end(), members.begin(), place);
  for (std::size_t i = 0; i < positions.size(); ++i) {
    if (positions[i] == nowhere)
      together.push_back(m_elements[i]);
  }
  together.insert(together.end(), place, members.end());
  replaceMembers(group, together, before);
}

/// Takes each element out of its first holder.
/// @param before  a copy of `groups`, which restores them when memory runs out
template <class T>
void removeFromFirstHolders(std::vector<TKGroup<T>>& groups,
                            const std::vector<T>& elements,
                            const std::vector<TKGroup<T>>& before)
{
  Selection<T> selection(elements);
  for (std::size_t i = 0; i < groups.size(); ++i)
    selection.takeOutOf(groups[i], before[i]);
}

/// Makes `list` a copy of `groups` without the removed ones: each id in turn removes the first
/// remaining group that has it. When that throws, `list` keeps what it had.
template <class T>
void copyWithout(const std::vector<Identifier>& removedIds,
                 const std::vector<TKGroup<T>>& groups,
                 std::vector<TKGroup<T>>& list)
{
  std::vector<Identifier> ids;
  ids.reserve(groups.size());
  for (const auto& group : groups)
    ids.push_back(group.getId());
  std::vector<bool> isRemoved(groups.size());
  std::size_t left = groups.size();
  SelectedElements<Identifier> removed(removedIds);
  removed.take(ids, [&](std::size_t position, std::size_t) {
    isRemoved[position] = true;
    --left;
  });

  std::vector<TKGroup<T>> copy;
  copy.reserve(left);
  for (std::size_t i = 0; i < groups.size(); ++i) {
    if (!isRemoved[i])
      copy.push_back(groups[i]);
  }
  list.swap(copy);
}

}
