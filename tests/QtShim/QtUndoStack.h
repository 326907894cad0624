// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandHistory.h"
#include "CommandPattern/CommandTransaction.h"
#include "QtUndoCommand.h"

#include <QAction>
#include <QObject>
#include <QString>

#include <memory>
#include <vector>

class QUndoGroup;

/// The undo stack as programs written for Qt know it, on a CommandHistory.
class QUndoStack : public QObject {
  Q_OBJECT

public:
  explicit QUndoStack(QObject* parent = nullptr);
  ~QUndoStack() override;

  void clear();
  void push(QUndoCommand* command);

  bool canUndo() const;
  bool canRedo() const;
  QString undoText() const;
  QString redoText() const;

  int count() const;
  int index() const;
  QString text(int index) const;
  const QUndoCommand* command(int index) const;

  QAction* createUndoAction(QObject* parent, const QString& prefix = QString()) const;
  QAction* createRedoAction(QObject* parent, const QString& prefix = QString()) const;

  bool isActive() const;
  bool isClean() const;
  int cleanIndex() const;

  void beginMacro(const QString& text);
  void endMacro();

  void setUndoLimit(int limit);
  int undoLimit() const;

public slots:
  void setClean();
  void resetClean();
  void setIndex(int index);
  void undo();
  void redo();
  void setActive(bool active = true);

signals:
  void indexChanged(int index);
  void cleanChanged(bool clean);
  void canUndoChanged(bool canUndo);
  void canRedoChanged(bool canRedo);
  void undoTextChanged(const QString& undoText);
  void redoTextChanged(const QString& redoText);

private:
  friend class QUndoGroup;

  void stepBack();
  void stepForward();
  void forgetCleanMarkAfterDrop(int countBefore, int cleanBefore);
  void tellActions();
  void tellClean();
  void tellAll();

  Tarvik::CommandHistory m_history;
  std::vector<std::unique_ptr<Tarvik::CommandTransaction>> m_macros;
  QString m_macroText;
  bool m_toldClean = true;
  bool m_isTold = false;
  Tarvik::CommandHistory::Subscription m_subscription;
  QUndoGroup* m_group = nullptr;
};
