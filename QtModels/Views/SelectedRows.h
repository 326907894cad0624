// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QItemSelection>
#include <QtCore/QModelIndex>

class QItemSelectionModel;

namespace Tarvik {

/// What is selected in a view of groups, whose selections are always whole rows.
///
/// Reads ranges, not rows: QItemSelectionModel::selectedRows() compares each row with each range,
/// which takes too long when all rows of many groups are selected.
struct SelectedRows {
  int groups = 0;
  int members = 0;
  int ungrouped = 0;

  bool haveOneParent = true;
  QModelIndex first; ///< the topmost of the rows, if they have one parent
  QModelIndex last;  ///< the lowest of them

  /// Whether all are groups, all members of one group, or all ungrouped.
  bool areSiblingsOfOneKind() const;

  /// @param selection  of a view of groups, which may show a proxy; null: nothing is selected
  static SelectedRows of(const QItemSelectionModel* selection);

  /// The rows themselves, as indexes of the first column, in the order of the ranges.
  static QModelIndexList indexes(const QItemSelectionModel* selection);

  /// A selection of whole rows, with as few ranges as possible: selection models are slow with many
  /// of them.
  /// @param rows  in any order, each once; of the first column
  static QItemSelection selectionOf(QModelIndexList rows);
};

}
