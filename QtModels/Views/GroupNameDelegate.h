// SPDX-License-Identifier: MIT
#pragma once

#include "QtModels/QtModelsExport.h"

#include <QtWidgets/QStyledItemDelegate>

namespace Tarvik {

/// Lets the user rename groups in place. A name that the model's editor refuses keeps the line edit
/// open, which says why; the key Escape, or a click elsewhere, leaves the old name.
class TKM_QTMODELS_API GroupNameDelegate : public QStyledItemDelegate {
  Q_OBJECT

public:
  /// @param parent  the owner of the delegate, or null
  explicit GroupNameDelegate(QObject* parent = nullptr);
  ~GroupNameDelegate() override;

  QWidget* createEditor(QWidget* parent,
                        const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override;
  void setEditorData(QWidget* editor, const QModelIndex& index) const override;
  void
  setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;

protected:
  bool eventFilter(QObject* object, QEvent* event) override;

  /// In a view from right to left, a name such as "Washington, D.C." keeps its own order.
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

}
