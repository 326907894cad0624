// SPDX-License-Identifier: MIT
#pragma once

#include "QtModels/QtModelsExport.h"

#include <QtCore/QAbstractItemModel>
#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QPointer>
#include <QtCore/QString>
#include <QtCore/QVariant>

#include <exception>
#include <functional>

namespace Tarvik {

class GroupEditorBase;

/// What all models of groups have in common, whatever their elements are: columns, roles and kinds
/// of rows. GroupItemModel implements it.
///
/// The top rows are the groups, in their order, then the elements that no group holds. The members
/// of a group are the rows below it.
class TKM_QTMODELS_API GroupItemModelBase : public QAbstractItemModel {
  Q_OBJECT
  Q_PROPERTY(bool countColumnVisible READ isCountColumnVisible WRITE setCountColumnVisible)

public:
  /// The columns of all rows.
  enum Column {
    NameColumn,  ///< the name of a group or an element
    CountColumn, ///< of a group: how many members it has; may be left out
    ColumnCount
  };

  /// Roles beyond those of Qt. All columns of a row answer them alike.
  enum Role {
    KindRole = Qt::UserRole, ///< a RowKind
    IdentifierRole,          ///< QString: the id of a group or an element
    CountRole,               ///< of a group, int: how many members it has
    NameRole,                ///< QString: the name of a group or an element
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

  /// Answers for the application what data() is asked for. An invalid QVariant leaves the answer to
  /// the model.
  using RowData = std::function<QVariant(const QModelIndex& index, int role)>;

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

  /// Lets the application answer first: for icons, colours, tool tips, or texts of its own. All
  /// rows are taken to look different after this. The function may be empty, which is so at first.
  void setRowData(RowData rowData);

  /// Tells views that all rows may look different: other names of elements, other icons.
  void allElementsChanged();

  /// Whether there is a column of counts. There is one at first.
  bool isCountColumnVisible() const { return m_isCountColumnVisible; }

  /// Adds or removes the column of counts. The model is reset.
  void setCountColumnVisible(bool isVisible);

  /// With how many steps at most the model follows one change; above it tells one change of its
  /// layout. 100 at first.
  int maximumSteps() const { return m_maximumSteps; }

  /// @param steps  0 or less: every change is told as a change of the layout
  void setMaximumSteps(int steps) { m_maximumSteps = steps; }

  int columnCount(const QModelIndex& parent = QModelIndex()) const override;
  QVariant
  headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

  /// "name", "count", "identifier" and "kind" beside those of Qt.
  QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
  /// Something that a view asked for has failed. The text says what and why.
  void failed(const QString& message) const;

protected:
  /// @param parent  the owner of the model, or null
  explicit GroupItemModelBase(QObject* parent);

  /// What the application answers; invalid if it leaves the answer to the model.
  QVariant applicationData(const QModelIndex& index, int role) const;

  /// Tells that the groups in these rows have other names.
  void tellNames(int first, int last);

  /// Tells that the groups in these rows have other numbers of members.
  void tellCounts(int first, int last);

  /// Emits failed() with the text of the exception.
  void tellFailure(const std::exception_ptr& exception) const noexcept;

private:
  void tellRows(int first, int last, const QList<int>& roles);

  QPointer<GroupEditorBase> m_editor;
  RowData m_rowData;
  bool m_isCountColumnVisible = true;
  int m_maximumSteps = 100;
};

}
