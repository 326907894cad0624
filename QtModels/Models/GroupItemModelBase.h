// SPDX-License-Identifier: MIT
#pragma once

#include "QtModels/QtModelsExport.h"

#include <QtCore/QAbstractItemModel>
#include <QtCore/QPointer>

namespace Tarvik {

class GroupEditorBase;

/// What all models of groups have in common, whatever their elements are: columns, roles and kinds
/// of rows. GroupItemModel implements it.
///
/// The top rows are the groups, in their order, then the elements that no group holds. The members
/// of a group are the rows below it.
class TKM_QTMODELS_API GroupItemModelBase : public QAbstractItemModel {
  Q_OBJECT

public:
  /// The columns of all rows.
  enum Column {
    NameColumn,  ///< the name of a group or an element
    CountColumn, ///< of a group: how many members it has
    ColumnCount
  };

  /// Roles beyond those of Qt.
  enum Role {
    KindRole = Qt::UserRole, ///< a RowKind
    IdentifierRole,          ///< QString: the id of a group or an element
    CountRole,               ///< of a group, int: how many members it has
    FirstUserRole            ///< the first role that an application may use for its own purposes
  };

  /// What a row shows.
  enum class RowKind {
    None, ///< no row of this model
    Group,
    Member,    ///< an element, below its group
    Ungrouped, ///< an element that no group holds
  };
  Q_ENUM(RowKind)

  ~GroupItemModelBase() override;

  /// What the row of the index shows.
  virtual RowKind kindOf(const QModelIndex& index) const = 0;

  /// What carries out what the user does with the rows; null: the rows are only shown.
  GroupEditorBase* editor() const;

  /// Sets the editor, usually a GroupEditor<T>, which calls this itself.
  /// @param editor  may be null; may be destroyed before the model
  void setEditor(GroupEditorBase* editor);

  /// Renames a group. Refuses names that the editor does not allow.
  bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

  /// @name Drag and drop
  /// What GroupEditorBase describes. A drop moves the rows itself: as there is no removeRows(), the
  /// view from which they come removes none.
  /// @{
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  Qt::DropActions supportedDropActions() const override;
  QStringList mimeTypes() const override;
  QMimeData* mimeData(const QModelIndexList& indexes) const override;
  bool canDropMimeData(const QMimeData* data,
                       Qt::DropAction action,
                       int row,
                       int column,
                       const QModelIndex& parent) const override;
  bool dropMimeData(const QMimeData* data,
                    Qt::DropAction action,
                    int row,
                    int column,
                    const QModelIndex& parent) override;
  /// @}

protected:
  explicit GroupItemModelBase(QObject* parent);

private:
  QPointer<GroupEditorBase> m_editor;
};

}
