// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>
#include <QtGui/QAction>

namespace Tarvik {

/// An action whose text says what it would undo or redo: "Undo Create Group".
class HistoryAction : public QAction {
  Q_OBJECT

public:
  enum class Kind { Undo, Redo };

  /// @param prefix  what stands before the description; if empty, "Undo" or "Redo" in the user's
  ///                language
  HistoryAction(Kind kind, const QString& prefix, QObject* parent);

  /// @param description  as the user reads it
  void setDescription(const QString& description);

private:
  void updateText();
  QString translatedText(const QString& description) const;

  Kind m_kind;
  QString m_prefix;
  QString m_description;
};

/// @param source  a History or a HistoryGroup
template <class Source>
QAction* makeUndoAction(Source& source, const QString& prefix, QObject* parent)
{
  auto* const action = new HistoryAction(HistoryAction::Kind::Undo, prefix, parent);
  action->setEnabled(source.canUndo());
  action->setDescription(source.undoText());
  QObject::connect(&source, &Source::canUndoChanged, action, &QAction::setEnabled);
  QObject::connect(&source, &Source::undoTextChanged, action, &HistoryAction::setDescription);
  QObject::connect(action, &QAction::triggered, &source, &Source::undo);
  return action;
}

/// @param source  a History or a HistoryGroup
template <class Source>
QAction* makeRedoAction(Source& source, const QString& prefix, QObject* parent)
{
  auto* const action = new HistoryAction(HistoryAction::Kind::Redo, prefix, parent);
  action->setEnabled(source.canRedo());
  action->setDescription(source.redoText());
  QObject::connect(&source, &Source::canRedoChanged, action, &QAction::setEnabled);
  QObject::connect(&source, &Source::redoTextChanged, action, &HistoryAction::setDescription);
  QObject::connect(action, &QAction::triggered, &source, &Source::redo);
  return action;
}

}
