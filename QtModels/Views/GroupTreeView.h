// SPDX-License-Identifier: MIT
#pragma once

#include "QtModels/QtModelsExport.h"
#include "QtModels/Views/DropIndicator.h"

#include <QtWidgets/QTreeView>

#include <vector>

namespace Tarvik {

class GroupEditorBase;
class GroupItemModelBase;

/// A tree view of groups that the user can edit: by drag and drop, and with the keys F2 (rename)
/// and Delete (delete groups, take members out of their groups).
///
/// It shows a GroupItemModel, also through proxies such as a filter. While something is dragged,
/// the view draws a frame around a group that it would go into and a line where it would go between
/// rows, scrolls near its edges, and expands a group under the mouse after a moment.
class TKM_QTMODELS_API GroupTreeView : public QTreeView {
  Q_OBJECT

public:
  /// @param parent  the owner of the view, or null
  explicit GroupTreeView(QWidget* parent = nullptr);
  ~GroupTreeView() override;

  /// The model of groups at the end of the proxies; null if there is none.
  const GroupItemModelBase* groupModel() const;

  /// The editor of the model of groups; null if the groups are only shown.
  GroupEditorBase* editor() const;

  /// The selected rows as rows of groupModel(), one index each, in no
  /// particular order.
  QModelIndexList selectedGroupRows() const;

  /// Deletes the selected groups; if no group is selected, takes the selected members out of their
  /// groups.
  /// @return whether anything has changed
  bool deleteSelectedRows();

  /// Starts to rename the group that the index shows, and scrolls to it.
  void renameGroup(const QModelIndex& index);

  /// What would happen to what is dragged over the view; for tests and styles.
  const DropIndicator& dropIndicator() const;

  void setModel(QAbstractItemModel* newModel) override;

Q_SIGNALS:
  /// Other rows may be selected, or the selected rows may be at other places.
  void selectedRowsChanged();

protected:
  void changeEvent(QEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dragLeaveEvent(QDragLeaveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

private:
  void showIndicator(const DropIndicator& indicator);
  DropIndicator indicatorFor(const QDropEvent& event) const;
  void retranslate();

  DropIndicator m_indicator;
  std::vector<QMetaObject::Connection> m_modelConnections;
  QString m_accessibleName; ///< that the view has given itself
};

}
