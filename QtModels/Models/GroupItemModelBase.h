// SPDX-License-Identifier: MIT
#pragma once

#include "QtModels/QtModelsExport.h"

#include <QtCore/QAbstractItemModel>

namespace Tarvik {

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

protected:
  explicit GroupItemModelBase(QObject* parent);
};

}
