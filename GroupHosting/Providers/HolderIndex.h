// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Providers/ElementNumbers.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <utility>
#include <vector>

namespace Tarvik::GroupLists {

/// Knows which groups hold an element. Not for hosts.
///
/// Groups have keys here, which stay when a group moves in its list. A group that has an element
/// twice holds it twice. Removing never fails, nor does adding again what has just been removed: an
/// edit adds first, then removes, and can be taken back.
template <class T>
class HolderIndex {
public:
  using Number = typename ElementNumbers<T>::Number;
  using GroupKey = std::uint32_t;

  static constexpr auto none = ElementNumbers<T>::none; ///< no number, and no key

  /// A group that holds an element, once.
  struct Holding {
    Number number;
    GroupKey group;
    std::uint32_t taken = 0; ///< for removeHolders()
  };

  /// The known elements: those that were added and not forgotten.
  const ElementNumbers<T>& numbers() const { return m_numbers; }

  /// Makes the element known. When that throws, nothing has changed.
  Number add(const T& element);

  /// Makes room for so many known elements in all.
  void reserve(std::size_t size);

  /// Forgets an element that no group holds.
  void forget(Number number) noexcept { m_numbers.remove(number); }

  /// Notes that a group holds a known element. When that throws, nothing has changed.
  void addHolder(const Holding& holding);

  /// Notes that groups no longer hold elements; each holding is removed once. Takes time that grows
  /// with the holdings; for elements with many holders, with all of their holders too.
  /// @param holdings  is put into another order. Those that are not there get the number `none`
  void removeHolders(std::vector<Holding>& holdings) noexcept;

  /// Whether a group holds the element.
  bool isHeld(Number number) const { return m_first[number] != none; }

  /// Calls `visit(group)` for each holder, in any order.
  template <class Visit>
  void forEachHolder(Number number, Visit visit) const;

private:
  using LinkNumber = std::uint32_t;
  using Iterator = typename std::vector<Holding>::iterator;

  struct Link {
    GroupKey group;
    LinkNumber next;
  };

  static bool isBefore(const Holding& a, const Holding& b)
  {
    return a.number != b.number ? a.number < b.number : a.group < b.group;
  }
  bool removeNearby(Holding& holding) noexcept;
  void removeTogether(Iterator begin, Iterator end) noexcept;
  void unlink(LinkNumber& link) noexcept;

  ElementNumbers<T> m_numbers;
  std::vector<LinkNumber> m_first; ///< by number
  std::vector<Link> m_links;
  LinkNumber m_firstFree = none;
};

template <class T>
typename HolderIndex<T>::Number HolderIndex<T>::add(const T& element)
{
  if (m_first.size() == m_first.capacity())
    m_first.reserve(2 * m_first.size() + 16);
  const auto number = m_numbers.add(element);
  if (number == m_first.size())
    m_first.push_back(none);
  return number;
}

template <class T>
void HolderIndex<T>::reserve(std::size_t size)
{
  m_numbers.reserve(size);
  m_first.reserve(size);
}

template <class T>
void HolderIndex<T>::addHolder(const Holding& holding)
{
  auto link = m_firstFree;
  if (link == none) {
    if (m_links.size() >= none)
      throw std::length_error("the groups have more members than a provider can number");
    link = static_cast<LinkNumber>(m_links.size());
    m_links.push_back({});
  } else {
    m_firstFree = m_links[link].next;
  }
  m_links[link] = {holding.group, m_first[holding.number]};
  m_first[holding.number] = link;
}

template <class T>
void HolderIndex<T>::removeHolders(std::vector<Holding>& holdings) noexcept
{
  auto late = holdings.begin(); // before it are those that take a longer search
  for (Holding& holding : holdings) {
    if (!removeNearby(holding))
      std::swap(holding, *late++);
  }
  std::sort(holdings.begin(), late, isBefore);
  for (auto begin = holdings.begin(); begin != late;) {
    const auto number = begin->number;
    const auto end =
        std::find_if(begin, late, [number](const Holding& each) { return each.number != number; });
    removeTogether(begin, end);
    begin = end;
  }
}

/// Looks at the newest holders only: otherwise, removals from one long list would take time that
/// grows with its square.
/// @return whether the search has come to an end
template <class T>
bool HolderIndex<T>::removeNearby(Holding& holding) noexcept
{
  constexpr int few = 8;
  auto* link = &m_first[holding.number];
  for (int i = 0; i < few; ++i) {
    if (*link == none) {
      holding.number = none;
      return true;
    }
    if (m_links[*link].group == holding.group) {
      unlink(*link);
      return true;
    }
    link = &m_links[*link].next;
  }
  return false;
}

/// Removes holders of one element, in one pass over all that it has.
template <class T>
void HolderIndex<T>::removeTogether(Iterator begin, Iterator end) noexcept
{
  for (auto* link = &m_first[begin->number]; *link != none;) {
    const Holding wanted{begin->number, m_links[*link].group};
    const auto [first, last] = std::equal_range(begin, end, wanted, isBefore);
    if (first != last && first->taken < static_cast<std::size_t>(last - first)) {
      ++first->taken;
      unlink(*link);
    } else {
      link = &m_links[*link].next;
    }
  }
  for (auto first = begin; first != end;) {
    const auto last = std::upper_bound(first, end, *first, isBefore);
    const auto missing = first + static_cast<std::ptrdiff_t>(first->taken);
    std::for_each(missing, last, [](Holding& each) { each.number = none; });
    first = last;
  }
}

/// Takes a link out of its list. The next one takes its place.
template <class T>
void HolderIndex<T>::unlink(LinkNumber& link) noexcept
{
  const auto freed = link;
  link = m_links[freed].next;
  m_links[freed].next = m_firstFree;
  m_firstFree = freed;
}

template <class T>
template <class Visit>
void HolderIndex<T>::forEachHolder(Number number, Visit visit) const
{
  for (auto link = m_first[number]; link != none; link = m_links[link].next)
    visit(m_links[link].group);
}

}
