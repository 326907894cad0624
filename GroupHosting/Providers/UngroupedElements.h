// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Differences/ListComparison.h"
#include "GroupHosting/Differences/MoveSequence.h"
#include "GroupHosting/Providers/GroupsChange.h"
#include "GroupHosting/Providers/HolderEdit.h"
#include "GroupHosting/Providers/HolderIndex.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace Tarvik::GroupLists {

/// The steps from one list of elements to another.
template <class T>
std::vector<ElementListStep<T>> stepsBetween(const std::vector<T>& before,
                                             const std::vector<T>& after)
{
  const auto edit = editBetween(before, after);
  const auto slice = [](const std::vector<T>& elements, const Run& run) {
    const auto first = elements.begin() + static_cast<std::ptrdiff_t>(run.position);
    return std::vector<T>(first, first + static_cast<std::ptrdiff_t>(run.count));
  };
  std::vector<ElementListStep<T>> steps;
  for (auto run = edit.removed.rbegin(); run != edit.removed.rend(); ++run)
    steps.emplace_back(ElementsRemoved<T>{run->position, slice(before, *run)});
  for (const auto& run : oneByOne(edit.moved))
    steps.emplace_back(ElementsMoved{run.from, run.count, run.to});
  if (!edit.order.empty())
    steps.emplace_back(ElementsReordered{edit.order});
  for (const Run& run : edit.inserted)
    steps.emplace_back(ElementsInserted<T>{run.position, slice(after, run)});
  return steps;
}

/// A host's elements in their order, and which of them have no holder. Not for hosts.
template <class T>
class UngroupedElements {
public:
  using Number = typename HolderIndex<T>::Number;
  using Place = std::uint32_t; ///< a position among all elements

  /// The places of elements that become ungrouped, and of those that become grouped; ascending.
  struct Change {
    std::vector<Place> came;
    std::vector<Place> went;
    bool isEmpty() const { return came.empty() && went.empty(); }
  };

  /// No elements.
  UngroupedElements() = default;

  /// @param elements  in the new order; of equal ones, only the first is kept
  /// @param before    those from before: what stands where it stood is not searched for
  /// @param edit      of the index; makes unknown elements known
  UngroupedElements(const std::vector<T>& elements,
                    const UngroupedElements& before,
                    const HolderIndex<T>& index,
                    HolderEdit<T>& edit);

  /// The elements in their order.
  const std::vector<T>& elements() const { return m_elements; }

  /// Whether the element with that number is one of them.
  bool has(Number number) const
  {
    return number < m_placeOf.size() && m_placeOf[number] != nowhere;
  }

  /// Calls `visit(number)` for each element.
  template <class Visit>
  void forEachElement(Visit visit) const
  {
    std::for_each(m_numbers.begin(), m_numbers.end(), visit);
  }

  /// The ungrouped elements in their order; valid until the next change.
  const std::vector<T>& list() const;

  /// The number of ungrouped elements.
  std::size_t size() const { return m_places.size(); }

  /// What an edit of the index changes, when it is applied.
  Change changeBy(const HolderEdit<T>& edit, const HolderIndex<T>& index) const;

  /// The steps of a change, before it is applied.
  std::vector<ElementListStep<T>> stepsOf(const Change& change) const;

  void apply(const Change& change) noexcept;

private:
  static constexpr auto nowhere = HolderIndex<T>::none;

  void takeInto(Change& change, Place place, const HolderIndex<T>& index) const;
  std::size_t positionOf(Place place) const;
  void addRemovals(std::vector<ElementListStep<T>>& steps, const Change& change) const;
  void addInsertions(std::vector<ElementListStep<T>>& steps, const Change& change) const;
  void takeOut(const std::vector<Place>& places) noexcept;
  void putIn(const std::vector<Place>& places) noexcept;

  std::vector<T> m_elements;
  std::vector<Number> m_numbers;      ///< by place
  std::vector<Place> m_placeOf;       ///< by number
  std::vector<char> m_isListed;       ///< by place
  std::vector<Place> m_places;        ///< of the ungrouped elements; has room for all elements
  mutable std::vector<T> m_list;      ///< the ungrouped elements, as far as they were asked for
  mutable std::size_t m_upToDate = 0; ///< so many of the list are right
};

template <class T>
UngroupedElements<T>::UngroupedElements(const std::vector<T>& elements,
                                        const UngroupedElements& before,
                                        const HolderIndex<T>& index,
                                        HolderEdit<T>& edit)
{
  const auto& old = before.m_elements;
  const auto differing =
      std::mismatch(elements.begin(), elements.end(), old.begin(), old.end()).first;
  const auto equalFront = static_cast<std::size_t>(differing - elements.begin());

  m_elements.reserve(elements.size());
  m_numbers.reserve(elements.size());
  m_isListed.reserve(elements.size());
  m_places.reserve(elements.size());
  if (elements.size() > 2 * old.size())
    edit.reserve(elements.size());
  m_placeOf.resize((std::max)(index.numbers().limit(), elements.size()), nowhere);
  for (std::size_t i = 0; i < elements.size(); ++i) {
    const auto number = i < equalFront ? before.m_numbers[i] : edit.know(elements[i]);
    if (number >= m_placeOf.size())
      m_placeOf.resize((std::max)(number + std::size_t{1}, 2 * m_placeOf.size()), nowhere);
    if (m_placeOf[number] != nowhere)
      continue;
    const auto place = static_cast<Place>(m_elements.size());
    m_placeOf[number] = place;
    m_elements.push_back(elements[i]);
    m_numbers.push_back(number);
    m_isListed.push_back(!index.isHeld(number));
    if (m_isListed.back())
      m_places.push_back(place);
  }
}

template <class T>
const std::vector<T>& UngroupedElements<T>::list() const
{
  m_list.erase(m_list.begin() + static_cast<std::ptrdiff_t>(m_upToDate), m_list.end());
  m_list.reserve(m_places.size());
  while (m_list.size() < m_places.size())
    m_list.push_back(m_elements[m_places[m_list.size()]]);
  m_upToDate = m_list.size();
  return m_list;
}

template <class T>
typename UngroupedElements<T>::Change
UngroupedElements<T>::changeBy(const HolderEdit<T>& edit, const HolderIndex<T>& index) const
{
  Change change;
  constexpr std::size_t many = 8; // of so many elements one has changed: then look at all of them
  if (edit.size() > m_elements.size() / many) {
    for (Place place = 0; place < m_elements.size(); ++place)
      takeInto(change, place, index);
    return change;
  }
  edit.forEachElement([&](Number number) {
    if (has(number))
      takeInto(change, m_placeOf[number], index);
  });
  for (auto* places : {&change.came, &change.went}) {
    std::sort(places->begin(), places->end());
    places->erase(std::unique(places->begin(), places->end()), places->end());
  }
  return change;
}

template <class T>
void UngroupedElements<T>::takeInto(Change& change, Place place, const HolderIndex<T>& index) const
{
  const bool isHeld = index.isHeld(m_numbers[place]);
  if (m_isListed[place] && isHeld)
    change.went.push_back(place);
  else if (!m_isListed[place] && !isHeld)
    change.came.push_back(place);
}

template <class T>
std::vector<ElementListStep<T>> UngroupedElements<T>::stepsOf(const Change& change) const
{
  std::vector<ElementListStep<T>> steps;
  addRemovals(steps, change);
  addInsertions(steps, change);
  return steps;
}

template <class T>
void UngroupedElements<T>::addRemovals(std::vector<ElementListStep<T>>& steps,
                                       const Change& change) const
{
  const auto& went = change.went;
  for (auto end = went.size(); end > 0;) { // the last first: the positions before it stay
    const auto last = positionOf(went[end - 1]);
    auto begin = end - 1;
    while (begin > 0 && last >= end - begin && m_places[last - (end - begin)] == went[begin - 1])
      --begin;
    ElementsRemoved<T> step{last + 1 - (end - begin), {}};
    step.elements.reserve(end - begin);
    for (auto i = begin; i < end; ++i)
      step.elements.push_back(m_elements[went[i]]);
    steps.emplace_back(std::move(step));
    end = begin;
  }
}

template <class T>
void UngroupedElements<T>::addInsertions(std::vector<ElementListStep<T>>& steps,
                                         const Change& change) const
{
  ElementsInserted<T> step{0, {}};
  auto gone = change.went.begin();
  for (std::size_t i = 0; i < change.came.size(); ++i) {
    const auto place = change.came[i];
    gone = std::lower_bound(gone, change.went.end(), place);
    const auto position =
        positionOf(place) - static_cast<std::size_t>(gone - change.went.begin()) + i;
    if (!step.elements.empty() && position != step.position + step.elements.size()) {
      steps.emplace_back(step);
      step.elements.clear();
    }
    if (step.elements.empty())
      step.position = position;
    step.elements.push_back(m_elements[place]);
  }
  if (!step.elements.empty())
    steps.emplace_back(std::move(step));
}

template <class T>
void UngroupedElements<T>::apply(const Change& change) noexcept
{
  for (const auto* places : {&change.came, &change.went}) {
    if (!places->empty())
      m_upToDate = (std::min)(m_upToDate, positionOf(places->front()));
  }
  takeOut(change.went);
  putIn(change.came);
}

/// The position of the place among those of ungrouped elements.
template <class T>
std::size_t UngroupedElements<T>::positionOf(Place place) const
{
  const auto found = std::lower_bound(m_places.begin(), m_places.end(), place);
  return static_cast<std::size_t>(found - m_places.begin());
}

template <class T>
void UngroupedElements<T>::takeOut(const std::vector<Place>& places) noexcept
{
  if (places.empty())
    return;
  for (const Place place : places)
    m_isListed[place] = false;
  const auto first = m_places.begin() + static_cast<std::ptrdiff_t>(positionOf(places.front()));
  m_places.erase(
      std::remove_if(first, m_places.end(), [this](Place place) { return !m_isListed[place]; }),
      m_places.end());
}

template <class T>
void UngroupedElements<T>::putIn(const std::vector<Place>& places) noexcept
{
  auto kept = m_places.size();
  m_places.resize(kept + places.size()); // there is room for all elements
  auto end = m_places.size();
  for (auto left = places.size(); left > 0;) { // merged from the back
    const bool keptIsLast = kept > 0 && m_places[kept - 1] > places[left - 1];
    m_places[--end] = keptIsLast ? m_places[--kept] : places[--left];
  }
  for (const Place place : places)
    m_isListed[place] = true;
}

}
