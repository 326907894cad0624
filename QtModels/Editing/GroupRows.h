// SPDX-License-Identifier: MIT
#pragma once

#include "QtModels/Models/GroupItemModel.h"

#include <QtCore/QModelIndex>

#include <algorithm>
#include <utility>
#include <vector>

namespace Tarvik {

/// The groups and the elements that rows of a model show, in the order of the rows. A member whose
/// group is among the rows as well does not count: the group stands for it.
template <class T>
struct GroupRows {
  std::vector<Identifier> groups; ///< the ids of the groups
  std::vector<T> elements; ///< an element twice if two groups hold it and both rows are given

  /// Whether there are groups and elements.
  bool areMixed() const { return !groups.empty() && !elements.empty(); }

  /// Finds out what rows show.
  /// @param model  whose rows they are
  /// @param rows   of the model, in any order; a row may be given once for each column
  static GroupRows of(const GroupItemModel<T>& model, const QModelIndexList& rows);
};

template <class T>
GroupRows<T> GroupRows<T>::of(const GroupItemModel<T>& model, const QModelIndexList& rows)
{
  using RowKind = GroupItemModelBase::RowKind;
  constexpr int groupItself = -1;
  std::vector<std::pair<int, int>> places; // top row, and row below it
  places.reserve(static_cast<std::size_t>(rows.size()));
  for (const auto& row : rows) {
    const auto kind = model.kindOf(row);
    if (kind == RowKind::Member)
      places.emplace_back(row.parent().row(), row.row());
    else if (kind != RowKind::None)
      places.emplace_back(row.row(), groupItself);
  }
  std::sort(places.begin(), places.end());
  places.erase(std::unique(places.begin(), places.end()), places.end());

  GroupRows result;
  int lastGroup = -1;
  for (const auto& [top, below] : places) {
    const auto topRow = model.index(top, GroupItemModelBase::NameColumn);
    const bool isTopRow = below == groupItself;
    if (isTopRow && model.kindOf(topRow) == RowKind::Group) {
      result.groups.push_back(model.groupIdAt(topRow));
      lastGroup = top;
    } else if (isTopRow || top != lastGroup) {
      const auto row =
          isTopRow ? topRow : model.index(below, GroupItemModelBase::NameColumn, topRow);
      result.elements.push_back(*model.elementAt(row));
    }
  }
  return result;
}

}
