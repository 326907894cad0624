// SPDX-License-Identifier: MIT
#include "QtModels/Views/SelectedRows.h"

#include "QtModels/Models/GroupItemModelBase.h"
#include "QtModels/Views/ProxyChain.h"

#include <QtCore/QItemSelectionModel>

#include <algorithm>

namespace Tarvik {
namespace {

/// The ranges, each row in one of them.
QItemSelection rangesOf(const QItemSelectionModel* model)
{
  auto ranges = model ? model->selection() : QItemSelection();
  ranges.removeIf([](const auto& range) { return range.left() != GroupItemModelBase::NameColumn; });
  return ranges;
}

QModelIndex rowAt(const QItemSelectionRange& range, int row)
{
  return range.model()->index(row, GroupItemModelBase::NameColumn, range.parent());
}

void countTopRows(SelectedRows& rows, const QItemSelectionRange& range)
{
  const auto* groups = ProxyChain::groupModelOf(range.model());
  for (int row = range.top(); groups && row <= range.bottom(); ++row) {
    const auto kind = groups->kindOf(ProxyChain::toGroupModel(rowAt(range, row)));
    rows.groups += kind == GroupItemModelBase::RowKind::Group;
    rows.ungrouped += kind == GroupItemModelBase::RowKind::Ungrouped;
  }
}

}

bool SelectedRows::areSiblingsOfOneKind() const
{
  return haveOneParent && (groups == 0 || ungrouped == 0) && first.isValid();
}

SelectedRows SelectedRows::of(const QItemSelectionModel* selection)
{
  SelectedRows rows;
  for (const auto& range : rangesOf(selection)) {
    if (range.parent().isValid())
      rows.members += range.height();
    else
      countTopRows(rows, range);
    const auto top = rowAt(range, range.top());
    const auto bottom = rowAt(range, range.bottom());
    if (rows.first.isValid() && rows.first.parent() != range.parent())
      rows.haveOneParent = false;
    if (!rows.first.isValid() || top.row() < rows.first.row())
      rows.first = top;
    if (!rows.last.isValid() || bottom.row() > rows.last.row())
      rows.last = bottom;
  }
  return rows;
}

QModelIndexList SelectedRows::indexes(const QItemSelectionModel* selection)
{
  QModelIndexList rows;
  for (const auto& range : rangesOf(selection)) {
    for (int row = range.top(); row <= range.bottom(); ++row)
      rows.append(rowAt(range, row));
  }
  return rows;
}

QItemSelection SelectedRows::selectionOf(QModelIndexList rows)
{
  std::sort(rows.begin(), rows.end(), [](const QModelIndex& a, const QModelIndex& b) {
    const auto parentOfA = a.parent();
    const auto parentOfB = b.parent();
    return parentOfA != parentOfB ? parentOfA < parentOfB : a.row() < b.row();
  });
  QItemSelection selection;
  for (auto begin = rows.cbegin(); begin != rows.cend();) {
    const auto isGap = [](const QModelIndex& above, const QModelIndex& below) {
      return below.row() != above.row() + 1 || below.parent() != above.parent();
    };
    const auto last = std::adjacent_find(begin, rows.cend(), isGap);
    const auto& bottom = last != rows.cend() ? *last : rows.constLast();
    const int lastColumn = bottom.model()->columnCount(bottom.parent()) - 1;
    selection.append(QItemSelectionRange(*begin, bottom.siblingAtColumn(lastColumn)));
    begin = last != rows.cend() ? last + 1 : last;
  }
  return selection;
}

}
