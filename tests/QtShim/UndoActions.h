// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>
#include <QCoreApplication>
#include <QObject>
#include <QString>

#include <string>

/// The actions of a stack or a group: "Undo" or "Redo" with the text of the command.
namespace QtShim {

/// The text of an action, translated in the context in which Qt's catalogues have it.
class ActionTexts {
public:
  /// @param context  "QUndoStack" or "QUndoGroup"
  /// @param verb     "Undo" or "Redo"
  /// @param prefix   used instead of the verb unless it is empty
  ActionTexts(std::string context, std::string verb, QString prefix)
      : m_context(std::move(context)), m_verb(std::move(verb)), m_prefix(std::move(prefix))
  {}

  QString operator()(const QString& commandText) const
  {
    if (!m_prefix.isEmpty())
      return commandText.isEmpty() ? m_prefix : m_prefix + ' ' + commandText;
    const bool isUndo = m_verb == "Undo";
    if (commandText.isEmpty())
      return QCoreApplication::translate(m_context.c_str(), m_verb.c_str(),
                                         isUndo ? "Default text for undo action"
                                                : "Default text for redo action");
    return QCoreApplication::translate(m_context.c_str(), (m_verb + " %1").c_str())
        .arg(commandText);
  }

private:
  std::string m_context;
  std::string m_verb;
  QString m_prefix;
};

template <class Source>
QAction* createUndoAction(const Source& source, QObject* parent, ActionTexts texts)
{
  auto* const action = new QAction(texts(source.undoText()), parent);
  action->setEnabled(source.canUndo());
  QObject::connect(&source, &Source::canUndoChanged, action, &QAction::setEnabled);
  QObject::connect(&source, &Source::undoTextChanged, action,
                   [=](const QString& text) { action->setText(texts(text)); });
  QObject::connect(action, &QAction::triggered, &source, &Source::undo);
  return action;
}

template <class Source>
QAction* createRedoAction(const Source& source, QObject* parent, ActionTexts texts)
{
  auto* const action = new QAction(texts(source.redoText()), parent);
  action->setEnabled(source.canRedo());
  QObject::connect(&source, &Source::canRedoChanged, action, &QAction::setEnabled);
  QObject::connect(&source, &Source::redoTextChanged, action,
                   [=](const QString& text) { action->setText(texts(text)); });
  QObject::connect(action, &QAction::triggered, &source, &Source::redo);
  return action;
}

}
