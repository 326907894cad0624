// SPDX-License-Identifier: MIT
#pragma once

#include "QtModels/Editing/GroupPlace.h"
#include "QtModels/QtModelsExport.h"

#include <QtCore/QModelIndex>
#include <QtCore/QObject>
#include <QtCore/QString>

#include <functional>

class QMimeData;

namespace Tarvik {

/// What views can do with the rows of a model of groups, whatever its elements are. GroupEditor
/// implements it.
///
/// All indexes are those of the model itself, not of a proxy. Each operation is one step that can
/// be undone; it returns whether anything has changed. None throws: what goes wrong is told by
/// failed().
class TKM_QTMODELS_API GroupEditorBase : public QObject {
  Q_OBJECT

public:
  ~GroupEditorBase() override;

  /// Makes a group of the elements in the rows. Rows of groups do not count.
  /// @param rows  of the model, in any order
  /// @param name  made unique if it is taken; if empty, "Group" in the user's language
  /// @return the row of the group; invalid if there is none
  virtual QModelIndex createGroup(const QModelIndexList& rows, const QString& name = QString()) = 0;

  /// Moves the elements in the rows to the end of the group.
  virtual bool addToGroup(const QModelIndexList& rows, const QModelIndex& group) = 0;

  /// Takes the elements in the rows out of their groups. As with all commands, one that several
  /// groups hold leaves the first of them, also if the row is in another one.
  virtual bool removeFromGroups(const QModelIndexList& rows) = 0;

  /// Moves the groups in the rows next to a group, or the elements in the rows next to a member or
  /// an ungrouped element. Does nothing if the target is of the other kind.
  virtual bool moveBeside(const QModelIndexList& rows, const QModelIndex& target, Side side) = 0;

  /// Deletes the groups in the rows.
  virtual bool deleteGroups(const QModelIndexList& rows) = 0;

  /// Renames a group, unless there is something wrong with the name.
  virtual bool renameGroup(const QModelIndex& group, const QString& name) = 0;

  /// Sorts the groups by name, and the members of each.
  virtual bool sortGroups() = 0;

  /// What is wrong with a new name for the group, in the user's language; empty if nothing is.
  virtual QString faultOfName(const QModelIndex& group, const QString& name) const = 0;

  /// The rows as data for a drag, in the order of the model; its owner is the caller. Null if there
  /// is nothing to drag, or groups together with elements of other groups.
  virtual QMimeData* dragData(const QModelIndexList& rows) const = 0;

  /// Whether data can be dropped there: it is a drag of this document, and goes
  /// - as elements, onto a group, between its members, between ungrouped elements, or below all
  ///   rows, which ungroups them;
  /// - as groups, between groups or below all rows.
  /// @param data    of the drag
  /// @param row     the row above which it is dropped; -1: onto the parent itself
  /// @param parent  a group; invalid for the top level
  virtual bool canDrop(const QMimeData& data, int row, const QModelIndex& parent) const = 0;

  /// Drops the data.
  /// @return whether it could be dropped there and nothing went wrong, even if nothing has changed
  virtual bool drop(const QMimeData& data, int row, const QModelIndex& parent) = 0;

Q_SIGNALS:
  /// An operation has failed.
  /// @param message  for the user, as the exception said it
  void failed(const QString& message);

protected:
  /// @param parent  the owner of the editor, or null
  explicit GroupEditorBase(QObject* parent);

  /// Runs an edit, and turns what it throws into failed().
  /// @return what the edit returns; nothing has changed if it throws
  bool attempt(const std::function<bool()>& edit);

  /// What to say after an exception that is not derived from std::exception.
  static QString faultOfUnknownKind();

  /// What to say of a name without any letter.
  static QString faultOfBlankName();

  /// What to say of the name of another group.
  static QString faultOfTakenName();
};

}
