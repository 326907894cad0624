// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/GroupCommands/Search.h"
#include "QtModels/Editing/GroupDragData.h"
#include "QtModels/Editing/GroupOperations.h"
#include "QtModels/Models/GroupItemModel.h"

#include <QtCore/QModelIndex>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

namespace Tarvik {

/// Finds out where a drop on a model goes, and carries it out. GroupEditorBase::canDrop() says what
/// can be dropped where.
template <class T>
class GroupDrop {
public:
  /// @param model   must outlive the drop
  /// @param row     the row above which something is dropped; -1: onto the parent itself
  /// @param parent  a group; invalid for the top level
  GroupDrop(const GroupItemModel<T>& model, int row, const QModelIndex& parent);

  /// Whether data of that kind can be dropped there.
  bool accepts(GroupDragData::Kind kind) const;

  /// Carries the drop out. Ids that the provider does not know any more are skipped.
  /// @param data        of a kind that is accepted
  /// @param operations  make the change
  void carryOut(const GroupDragData& data, const GroupOperations<T>& operations) const;

private:
  void dropGroups(const std::vector<Identifier>& groupIds,
                  const GroupOperations<T>& operations) const;
  void dropElements(const std::vector<T>& elements, const GroupOperations<T>& operations) const;
  void placeAmongUngrouped(const std::vector<T>& elements,
                           const GroupOperations<T>& operations) const;
  std::vector<bool> areAmong(const std::vector<T>& elements) const;

  bool isOntoParent() const { return m_row < 0; }
  int numberOfGroups() const { return static_cast<int>(m_provider.getGroups().size()); }
  int numberOfRows() const { return m_model.rowCount(); }

  const GroupItemModel<T>& m_model;
  TKGroupProvider<T>& m_provider;
  int m_row;
  QModelIndex m_parent;
};

template <class T>
GroupDrop<T>::GroupDrop(const GroupItemModel<T>& model, int row, const QModelIndex& parent)
    : m_model(model), m_provider(*model.provider()), m_row(row), m_parent(parent)
{}

template <class T>
bool GroupDrop<T>::accepts(GroupDragData::Kind kind) const
{
  if (kind == GroupDragData::Kind::Groups) {
    const bool isBesideGroup = m_row <= numberOfGroups();
    // A proxy that hides rows may give the end of all rows for the end of the groups.
    return !m_parent.isValid() && (isBesideGroup || m_row == numberOfRows());
  }
  if (m_parent.isValid())
    return m_model.groupIdAt(m_parent).isValid();
  return isOntoParent() || (m_row >= numberOfGroups() && m_row <= numberOfRows());
}

template <class T>
void GroupDrop<T>::carryOut(const GroupDragData& data, const GroupOperations<T>& operations) const
{
  if (data.kind == GroupDragData::Kind::Groups) {
    std::vector<Identifier> groupIds(data.ids.begin(), data.ids.end());
    dropGroups(groupIds, operations);
    return;
  }
  std::vector<T> elements(data.ids.begin(), data.ids.end());
  std::erase_if(elements, [this](const T& element) {
    return !m_provider.hasElement(element) && !m_provider.isGrouped(element);
  });
  if (!elements.empty())
    dropElements(elements, operations);
}

template <class T>
void GroupDrop<T>::dropGroups(const std::vector<Identifier>& groupIds,
                              const GroupOperations<T>& operations) const
{
  const auto& groups = m_provider.getGroups();
  if (groups.empty())
    return;
  const auto row = static_cast<std::size_t>(m_row);
  if (!isOntoParent() && row < groups.size())
    operations.moveGroups(groupIds, Identifier(groups[row].getId()), Side::Before);
  else
    operations.moveGroups(groupIds, Identifier(groups.back().getId()), Side::After);
}

template <class T>
void GroupDrop<T>::dropElements(const std::vector<T>& elements,
                                const GroupOperations<T>& operations) const
{
  const auto groupId = m_model.groupIdAt(m_parent);
  if (groupId.isValid() && isOntoParent())
    operations.addToGroup(elements, groupId);
  else if (groupId.isValid())
    operations.insertIntoGroup(elements, groupId, static_cast<std::size_t>(m_row));
  else if (isOntoParent() || m_provider.ungroupedElements().empty())
    operations.removeFromGroups(elements);
  else
    placeAmongUngrouped(elements, operations);
}

/// Places the elements next to an ungrouped element that is not one of them: below the place of the
/// drop if there is one, otherwise above.
template <class T>
void GroupDrop<T>::placeAmongUngrouped(const std::vector<T>& elements,
                                       const GroupOperations<T>& operations) const
{
  const auto& ungrouped = m_provider.ungroupedElements();
  const auto isDragged = areAmong(elements);
  const auto place = isDragged.begin() + (m_row - numberOfGroups());
  const auto below = std::find(place, isDragged.end(), false);
  const auto above = std::find(std::make_reverse_iterator(place), isDragged.rend(), false);
  const auto targetAt = [&](auto position) {
    return T(ungrouped[static_cast<std::size_t>(position)]);
  };
  if (below != isDragged.end())
    operations.moveElements(elements, targetAt(below - isDragged.begin()), Side::Before);
  else if (above != isDragged.rend())
    operations.moveElements(elements, targetAt(above.base() - isDragged.begin() - 1), Side::After);
  else
    operations.removeFromGroups(elements);
}

/// For each ungrouped element whether it is one of these.
template <class T>
std::vector<bool> GroupDrop<T>::areAmong(const std::vector<T>& elements) const
{
  const auto& ungrouped = m_provider.ungroupedElements();
  std::vector<bool> result(ungrouped.size());
  GroupLists::Search<T>(elements).match(
      ungrouped, [&result](std::size_t position, std::size_t) { result[position] = true; });
  return result;
}

}
