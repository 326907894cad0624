// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Providers/GroupsChange.h"
#include "HighLevelServices/GroupCommands/Search.h"

#include <cstddef>
#include <optional>
#include <variant>
#include <vector>

namespace Tarvik::ShownLists {

/// Consecutive elements that go from one list to another. A list is the position of a group, or
/// GroupLists::nowhere for the ungrouped elements.
struct Passage {
  std::size_t fromList;
  std::size_t from; ///< position of the first of them, before
  std::size_t count;
  std::size_t toList;
  std::size_t to; ///< position of the first of them, after
};

/// The elements of a change that leave one list and come into another one.
template <class T>
class Travellers {
public:
  explicit Travellers(const GroupsChange<T>& change);

  /// The change, if it is nothing but one passage.
  std::optional<Passage> onlyPassage() const;

  /// Whether there are any. Where very many elements leave or come, it says so without a look at
  /// them.
  bool any() const;

private:
  struct Run {
    std::size_t list;
    std::size_t position;
    const std::vector<T>* elements;
  };

  void note(const GroupsRemoved<T>& step);
  void note(const GroupsInserted<T>& step);
  void note(const MembersRemoved<T>& step);
  void note(const MembersInserted<T>& step);
  void note(const ElementsRemoved<T>& step);
  void note(const ElementsInserted<T>& step);
  template <class Step>
  void note(const Step&)
  {
    m_isOnlyRuns = false;
  }

  std::vector<Run> m_leaving;
  std::vector<Run> m_coming;
  bool m_isOnlyRuns = true; ///< elements leave and come, and nothing else happens
};

template <class T>
Travellers<T>::Travellers(const GroupsChange<T>& change)
{
  const auto noteStep = [this](const auto& step) { this->note(step); };
  for (const auto& step : change.groups)
    std::visit(noteStep, step);
  for (const auto& step : change.ungrouped)
    std::visit(noteStep, step);
}

template <class T>
void Travellers<T>::note(const GroupsRemoved<T>& step)
{
  m_isOnlyRuns = false;
  for (const auto& group : step.groups)
    m_leaving.push_back({step.position, 0, &group.getGroupMembers()});
}

template <class T>
void Travellers<T>::note(const GroupsInserted<T>& step)
{
  m_isOnlyRuns = false;
  for (const auto& group : step.groups)
    m_coming.push_back({step.position, 0, &group.getGroupMembers()});
}

template <class T>
void Travellers<T>::note(const MembersRemoved<T>& step)
{
  m_leaving.push_back({step.group, step.position, &step.members});
}

template <class T>
void Travellers<T>::note(const MembersInserted<T>& step)
{
  m_coming.push_back({step.group, step.position, &step.members});
}

template <class T>
void Travellers<T>::note(const ElementsRemoved<T>& step)
{
  m_leaving.push_back({GroupLists::nowhere, step.position, &step.elements});
}

template <class T>
void Travellers<T>::note(const ElementsInserted<T>& step)
{
  m_coming.push_back({GroupLists::nowhere, step.position, &step.elements});
}

template <class T>
std::optional<Passage> Travellers<T>::onlyPassage() const
{
  if (!m_isOnlyRuns || m_leaving.size() != 1 || m_coming.size() != 1)
    return {};
  const auto& from = m_leaving.front();
  const auto& to = m_coming.front();
  if (from.list == to.list || *from.elements != *to.elements)
    return {};
  return Passage{from.list, from.position, from.elements->size(), to.list, to.position};
}

template <class T>
bool Travellers<T>::any() const
{
  constexpr std::size_t many = 10'000; // looking for them would take longer than a new layout
  const auto totalOf = [](const std::vector<Run>& runs) {
    std::size_t total = 0;
    for (const Run& run : runs)
      total += run.elements->size();
    return total;
  };
  const auto leaving = totalOf(m_leaving);
  const auto coming = totalOf(m_coming);
  if (leaving == 0 || coming == 0)
    return false;
  if (leaving > many || coming > many)
    return true;

  std::vector<T> elements;
  elements.reserve(leaving);
  for (const Run& run : m_leaving)
    elements.insert(elements.end(), run.elements->begin(), run.elements->end());
  GroupLists::Search<T> search(elements);
  bool isFound = false;
  for (const Run& run : m_coming)
    search.match(*run.elements, [&](std::size_t, std::size_t) { isFound = true; });
  return isFound;
}

}
