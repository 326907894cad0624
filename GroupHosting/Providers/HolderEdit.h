// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Providers/HolderIndex.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace Tarvik::GroupLists {

/// A change of a HolderIndex, which is taken back unless it is kept. Not for hosts.
///
/// Call add() and remove(), then apply(), then keep(). Only one edit of an index at a time.
template <class T>
class HolderEdit {
public:
  using Number = typename HolderIndex<T>::Number;
  using Holding = typename HolderIndex<T>::Holding;
  using GroupKey = typename HolderIndex<T>::GroupKey;

  /// @param index  must outlive the edit
  explicit HolderEdit(HolderIndex<T>& index) : m_index(index) {}
  HolderEdit(const HolderEdit&) = delete;
  HolderEdit& operator=(const HolderEdit&) = delete;

  /// Takes back what was not kept.
  ~HolderEdit();

  /// Notes that the group holds the elements of a range from now on.
  template <class Iterator>
  void add(Iterator begin, Iterator end, GroupKey group);

  /// Notes that the group will no longer hold the elements of a range.
  template <class Iterator>
  void remove(Iterator begin, Iterator end, GroupKey group);

  /// Does what remove() noted. The index is as after the edit then.
  void apply() noexcept;

  /// Keeps the change. Elements that no group holds any longer are forgotten, unless
  /// `isUsed(number)`.
  template <class IsUsed>
  void keep(IsUsed isUsed) noexcept;

  /// Makes room for so many known elements in all.
  void reserve(std::size_t size) { m_index.reserve(size); }

  /// The element's number; makes an unknown one known.
  Number know(const T& element);

  /// The number of holdings added and removed.
  std::size_t size() const { return m_added.size() + m_removed.size(); }

  /// Calls `visit(number)` for each element that was added or removed; maybe several times.
  template <class Visit>
  void forEachElement(Visit visit) const;

private:
  HolderIndex<T>& m_index;
  std::vector<Holding> m_added;
  std::vector<Holding> m_removed;
  std::vector<Number> m_new; ///< were unknown before
  bool m_isApplied = false;
  bool m_isKept = false;
};

template <class T>
HolderEdit<T>::~HolderEdit()
{
  if (m_isKept)
    return;
  if (m_isApplied) {
    for (const Holding& holding : m_removed) {
      if (holding.number != HolderIndex<T>::none)
        m_index.addHolder(holding); // there is room where it was
    }
  }
  m_index.removeHolders(m_added);
  for (const Number number : m_new)
    m_index.forget(number);
}

/// Makes room for more entries of a list that grows bit by bit.
template <class Entries>
void makeRoom(Entries& entries, std::size_t more)
{
  if (entries.capacity() - entries.size() < more)
    entries.reserve((std::max)(entries.size() + more, 2 * entries.size()));
}

template <class T>
typename HolderEdit<T>::Number HolderEdit<T>::know(const T& element)
{
  const auto known = m_index.numbers().find(element);
  if (known != HolderIndex<T>::none)
    return known;
  makeRoom(m_new, 1);
  m_new.push_back(m_index.add(element));
  return m_new.back();
}

template <class T>
template <class Iterator>
void HolderEdit<T>::add(Iterator begin, Iterator end, GroupKey group)
{
  makeRoom(m_added, static_cast<std::size_t>(end - begin));
  for (auto element = begin; element != end; ++element) {
    const Holding holding{know(*element), group};
    m_index.addHolder(holding);
    m_added.push_back(holding);
  }
}

template <class T>
template <class Iterator>
void HolderEdit<T>::remove(Iterator begin, Iterator end, GroupKey group)
{
  makeRoom(m_removed, static_cast<std::size_t>(end - begin));
  for (auto element = begin; element != end; ++element) {
    const auto number = m_index.numbers().find(*element);
    if (number != HolderIndex<T>::none)
      m_removed.push_back({number, group});
  }
}

template <class T>
void HolderEdit<T>::apply() noexcept
{
  m_index.removeHolders(m_removed);
  m_isApplied = true;
}

template <class T>
template <class IsUsed>
void HolderEdit<T>::keep(IsUsed isUsed) noexcept
{
  m_isKept = true;
  for (const Holding& holding : m_removed) {
    const auto number = holding.number;
    if (number != HolderIndex<T>::none && m_index.numbers().has(number) &&
        !m_index.isHeld(number) && !isUsed(number))
      m_index.forget(number);
  }
}

template <class T>
template <class Visit>
void HolderEdit<T>::forEachElement(Visit visit) const
{
  for (const auto* holdings : {&m_added, &m_removed}) {
    for (const Holding& holding : *holdings) {
      if (holding.number != HolderIndex<T>::none)
        visit(holding.number);
    }
  }
}

}
