// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Providers/GroupsChange.h"
#include "HighLevelServices/GroupCommands/ElementTable.h"

#include <cstddef>
#include <utility>
#include <variant>
#include <vector>

namespace Tarvik::ShownLists {

/// Calls one function of an editor for each kind of step. For the editor, a list of elements is the
/// position of a group, or GroupLists::nowhere for the ungrouped elements.
template <class T, class Editor>
class StepCalls {
public:
  explicit StepCalls(Editor& editor) : m_editor(editor) {}

  void operator()(const GroupsRemoved<T>& step) { m_editor.removeGroups(step); }
  void operator()(const GroupsMoved& step) { m_editor.moveGroups(step); }
  void operator()(const GroupsReordered& step) { m_editor.reorderGroups(step); }
  void operator()(const GroupsInserted<T>& step) { m_editor.insertGroups(step); }
  void operator()(const GroupRenamed& step) { m_editor.rename(step.group, step.after); }
  void operator()(const MembersRemoved<T>& step)
  {
    m_editor.remove(step.group, step.position, step.members);
  }
  void operator()(const MembersMoved& step)
  {
    m_editor.move(step.group, step.from, step.count, step.to);
  }
  void operator()(const MembersReordered& step) { m_editor.reorder(step.group, step.order); }
  void operator()(const MembersInserted<T>& step)
  {
    m_editor.insert(step.group, step.position, step.members);
  }
  void operator()(const ElementsRemoved<T>& step)
  {
    m_editor.remove(GroupLists::nowhere, step.position, step.elements);
  }
  void operator()(const ElementsMoved& step)
  {
    m_editor.move(GroupLists::nowhere, step.from, step.count, step.to);
  }
  void operator()(const ElementsReordered& step)
  {
    m_editor.reorder(GroupLists::nowhere, step.order);
  }
  void operator()(const ElementsInserted<T>& step)
  {
    m_editor.insert(GroupLists::nowhere, step.position, step.elements);
  }

private:
  Editor& m_editor;
};

/// Does all steps of a change with an editor.
template <class T, class Editor>
void doSteps(const GroupsChange<T>& change, Editor& editor)
{
  StepCalls<T, Editor> calls(editor);
  for (const auto& step : change.groups)
    std::visit(calls, step);
  for (const auto& step : change.ungrouped)
    std::visit(calls, step);
}

/// The rows of groups that get other names, ascending.
template <class T>
std::vector<int> renamedRows(const GroupsChange<T>& change)
{
  std::vector<int> rows;
  for (const auto& step : change.groups) {
    if (const auto* renamed = std::get_if<GroupRenamed>(&step))
      rows.push_back(static_cast<int>(renamed->group));
  }
  return rows;
}

/// The rows of groups that stay and get other numbers of members, ascending.
template <class T>
std::vector<int> rowsWithOtherCounts(const GroupsChange<T>& change)
{
  std::vector<std::pair<std::size_t, std::ptrdiff_t>> growths; // the steps of a group are together
  const auto grow = [&growths](std::size_t group, std::ptrdiff_t growth) {
    if (growths.empty() || growths.back().first != group)
      growths.emplace_back(group, 0);
    growths.back().second += growth;
  };
  for (const auto& step : change.groups) {
    if (const auto* removed = std::get_if<MembersRemoved<T>>(&step))
      grow(removed->group, -static_cast<std::ptrdiff_t>(removed->members.size()));
    else if (const auto* inserted = std::get_if<MembersInserted<T>>(&step))
      grow(inserted->group, static_cast<std::ptrdiff_t>(inserted->members.size()));
  }
  std::vector<int> rows;
  for (const auto& [group, growth] : growths) {
    if (growth != 0)
      rows.push_back(static_cast<int>(group));
  }
  return rows;
}

}
