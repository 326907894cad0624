// SPDX-License-Identifier: MIT
#pragma once

#include "QtUndoStack.h"

#include <QAction>
#include <QList>
#include <QObject>
#include <QString>

/// The group of undo stacks as programs written for Qt know it.
class QUndoGroup : public QObject {
  Q_OBJECT

public:
  explicit QUndoGroup(QObject* parent = nullptr);
  ~QUndoGroup() override;

  void addStack(QUndoStack* stack);
  void removeStack(QUndoStack* stack);
  QList<QUndoStack*> stacks() const;
  QUndoStack* activeStack() const;

  QAction* createUndoAction(QObject* parent, const QString& prefix = QString()) const;
  QAction* createRedoAction(QObject* parent, const QString& prefix = QString()) const;

  bool canUndo() const;
  bool canRedo() const;
  QString undoText() const;
  QString redoText() const;
  bool isClean() const;

public slots:
  void undo();
  void redo();
  void setActiveStack(QUndoStack* stack);

signals:
  void activeStackChanged(QUndoStack* stack);
  void indexChanged(int index);
  void cleanChanged(bool clean);
  void canUndoChanged(bool canUndo);
  void canRedoChanged(bool canRedo);
  void undoTextChanged(const QString& undoText);
  void redoTextChanged(const QString& redoText);

private:
  QList<QUndoStack*> m_stacks;
  QUndoStack* m_active = nullptr;
};
