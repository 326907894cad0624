// SPDX-License-Identifier: MIT
#pragma once

#include "QtModels/Models/GroupFilterModel.h"
#include "QtModels/Views/GroupTreeView.h"

#include <QtCore/QItemSelectionModel>
#include <QtCore/QModelIndex>
#include <QtCore/QObject>
#include <QtCore/QString>

#include <functional>
#include <memory>

namespace Tarvik::PointCollections {

/// What is selected in a tree with a filter. Rows that the filter hides stay selected, and are
/// shown so when it lets them through again. Selecting other rows without Ctrl or Shift forgets
/// them.
class FilteredSelection : public QObject {
  Q_OBJECT

public:
  /// @param tree    shows the filter, as soon as there is a model; also the owner of this object
  /// @param filter  must outlive this object
  FilteredSelection(GroupTreeView* tree, GroupFilterModel* filter);
  ~FilteredSelection() override;

  /// Begins anew with the model that the filter has now. Nothing is selected.
  void reset();

  /// Filters by another text.
  void setFilterText(const QString& text);

  /// All selected rows, as indexes of the first column of the filter's source.
  QModelIndexList rows() const;

  /// Selects rows of the source, hidden or not. Does not emit changed().
  /// @return the first one that is shown, as an index of the filter; invalid if there is none
  QModelIndex select(const std::function<bool(const QModelIndex&)>& isWanted);

Q_SIGNALS:
  /// The user has selected other rows.
  void changed();

private:
  void noteUsersChoice();

  GroupTreeView* m_tree;
  GroupFilterModel* m_filter;
  std::unique_ptr<QItemSelectionModel> m_hidden; ///< rows of the source
  bool m_isSelecting = false;
};

}
