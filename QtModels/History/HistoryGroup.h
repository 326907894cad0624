// SPDX-License-Identifier: MIT
#pragma once

#include "QtModels/QtModelsExport.h"

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QString>

QT_BEGIN_NAMESPACE
class QAction;
QT_END_NAMESPACE

namespace Tarvik {

class History;

/// The histories of several documents, of which one is active: with the operations, signals and
/// actions of QUndoGroup. The actions follow the active history.
///
/// Without an active history, nothing can be undone, texts are empty and the state is clean.
class TKM_QTMODELS_API HistoryGroup : public QObject {
  Q_OBJECT

public:
  /// A group without histories.
  explicit HistoryGroup(QObject* parent = nullptr);

  /// The histories stay, without a group.
  ~HistoryGroup() override;

  /// Adds a history, which leaves the group that it is in. Does not make it active. The group does
  /// not own it.
  /// @param history  not null; leaves the group when it is destroyed
  void addHistory(History* history);

  /// Takes a history out of the group. If it is the active one, none is active then.
  void removeHistory(History* history);

  /// In the order in which they were added.
  QList<History*> histories() const;

  /// The active history, or null.
  History* activeHistory() const;

  /// Whether the active history has something to undo.
  bool canUndo() const;

  /// Whether the active history has something to redo.
  bool canRedo() const;

  /// Whether the state of the active history is the clean one.
  bool isClean() const;

  /// What undo() would undo; empty when there is nothing.
  QString undoText() const;

  /// What redo() would redo; empty when there is nothing.
  QString redoText() const;

  /// An action that undoes in the active history, as History::createUndoAction() makes it.
  QAction* createUndoAction(QObject* parent, const QString& prefix = QString());

  /// The same for redo().
  QAction* createRedoAction(QObject* parent, const QString& prefix = QString());

public Q_SLOTS: // NOLINT(readability-redundant-access-specifiers): slots are more
  /// Undoes in the active history.
  void undo();

  /// Redoes in the active history.
  void redo();

  /// Makes a history the active one.
  /// @param history  null, or one of the group; another one is ignored
  void setActiveHistory(History* history);

Q_SIGNALS:
  /// @param history  may be null
  void activeHistoryChanged(History* history);

  /// Those of the active history. They are also sent when another one becomes active.
  /// @{
  void indexChanged(int index);
  void cleanChanged(bool clean);
  void canUndoChanged(bool canUndo);
  void canRedoChanged(bool canRedo);
  void undoTextChanged(const QString& undoText);
  void redoTextChanged(const QString& redoText);
  /// @}

  /// An operation of the active history has failed.
  /// @param message  what has failed and why, for the user
  void failed(const QString& message);

private:
  void tellAll();

  QList<History*> m_histories;
  History* m_active = nullptr;
};

}
