// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandHistory.h"
#include "QtModels/QtModelsExport.h"

#include <QtCore/QObject>
#include <QtCore/QString>

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

QT_BEGIN_NAMESPACE
class QAction;
QT_END_NAMESPACE

namespace Tarvik {

class CommandTransaction;
class HistoryGroup;

/// A CommandHistory for Qt: with the operations, signals and actions of QUndoStack.
///
/// It has a CommandHistory of its own, or follows one that the application owns, whoever changes
/// that one. commands() has what is not here: the size of commands, what happens when memory runs
/// out, and the operations that throw.
///
/// No operation here lets an exception out, since Qt's event loop must not be left by one: what
/// goes wrong is told by failed(), and the commands and the document are then as they were before.
///
/// Other than in a QUndoStack: a macro without commands leaves no entry, a macro is left by
/// rollBackMacro() as well, and a signal about a value is only sent when the value is a new one.
///
/// Lifetime: commands usually share their host's provider. A provider must therefore not own the
/// history of its commands. Keep the two beside each other, in the object that owns both. A slot
/// must not destroy the history whose signal has called it; deleteLater() is allowed.
class TKM_QTMODELS_API History : public QObject {
  Q_OBJECT
  Q_PROPERTY(bool active READ isActive WRITE setActive)
  Q_PROPERTY(int undoLimit READ undoLimit WRITE setUndoLimit)
  Q_PROPERTY(bool canUndo READ canUndo NOTIFY canUndoChanged)
  Q_PROPERTY(bool canRedo READ canRedo NOTIFY canRedoChanged)
  Q_PROPERTY(QString undoText READ undoText NOTIFY undoTextChanged)
  Q_PROPERTY(QString redoText READ redoText NOTIFY redoTextChanged)
  Q_PROPERTY(bool clean READ isClean NOTIFY cleanChanged)

public:
  /// A history with a CommandHistory of its own.
  explicit History(QObject* parent = nullptr);

  /// Follows a history that the application owns.
  /// @param commands  must outlive this object
  /// @param parent    the owner of this object, or null
  explicit History(CommandHistory& commands, QObject* parent = nullptr);

  /// Leaves its group. Macros that have not ended are undone.
  ~History() override;

  /// The history that this one shows. Changes that are made there are followed, except that the
  /// begin of a CommandTransaction is not seen.
  CommandHistory& commands() const;

  /// Executes the command and keeps it as the last entry, as CommandHistory::execute() does.
  /// @param command  not null; not executed before
  /// @return whether it has become an entry or part of one. If not, it failed or changed nothing
  bool push(std::shared_ptr<CommandBase> command);

  /// From here on, commands become one entry, until endMacro(). Macros may be nested.
  /// @param text  for the user; when empty, that of the first command
  void beginMacro(const QString& text);

  /// Makes the commands since beginMacro() one entry. Does nothing when there is no open macro.
  void endMacro();

  /// Undoes the commands since beginMacro() and forgets them. Does nothing when there is no open
  /// macro.
  void rollBackMacro();

  /// How many entries there are.
  int count() const;

  /// How many entries are in effect.
  int index() const;

  /// The index that is marked clean; -1 when it cannot be reached any more.
  int cleanIndex() const;

  /// The description of an entry; empty when there is no such entry.
  QString text(int index) const;

  /// Whether the current state is the clean one.
  bool isClean() const;

  /// Whether there is something to undo. False while a macro is open.
  bool canUndo() const;

  /// Whether there is something to redo. False while a macro is open.
  bool canRedo() const;

  /// The description of what undo() would undo; empty when there is nothing.
  QString undoText() const;

  /// The description of what redo() would redo; empty when there is nothing.
  QString redoText() const;

  /// An action that calls undo(). It is enabled when there is something to undo, and its text says
  /// what: "Undo Create Group", in the user's language.
  /// @param parent  the owner of the action
  /// @param prefix  the word before the description, if it is to be another one than "Undo"; it
  /// does
  ///                not follow the language
  QAction* createUndoAction(QObject* parent, const QString& prefix = QString());

  /// The same for redo().
  QAction* createRedoAction(QObject* parent, const QString& prefix = QString());

  /// The greatest number of entries; 0 if there is no limit.
  int undoLimit() const;

  /// Changes the greatest number of entries. May be called at any time.
  /// @param limit  0 or less: no limit
  void setUndoLimit(int limit);

  /// How many bytes the entries may take, as far as commands know their size; 0 if there is no
  /// budget.
  qint64 budget() const;

  /// Changes how many bytes the entries may take. The last entry is always kept.
  /// @param bytes  0 or less: no budget
  void setBudget(qint64 bytes);

  /// Whether it is the active one of its group; true when it is in no group.
  bool isActive() const;

public Q_SLOTS: // NOLINT(readability-redundant-access-specifiers): slots are more
  /// Undoes the entry before the index. Does nothing when there is none.
  void undo();

  /// Redoes the entry after the index. Does nothing when there is none.
  void redo();

  /// Undoes or redoes until so many entries are in effect.
  /// @param index  values outside of the range mean the nearest end
  void setIndex(int index);

  /// Marks the current state as clean, which usually means saved.
  void setClean();

  /// Forgets which state is clean, for instance because the file has been deleted.
  void resetClean();

  /// Forgets all entries, without undoing them. The state is then clean: for a new document.
  void clear();

  /// Makes it the active one of its group, or lets the group have none.
  void setActive(bool active = true);

Q_SIGNALS:
  /// Any change. Sent before the other signals, but not when the language changes.
  void changed();

  /// A command has changed the document, or there are other entries. Also sent after a macro or
  /// transaction that leaves no entry.
  void indexChanged(int index);

  /// isClean() is another one.
  void cleanChanged(bool clean);

  /// canUndo() is another one.
  void canUndoChanged(bool canUndo);

  /// canRedo() is another one.
  void canRedoChanged(bool canRedo);

  /// undoText() is another one; also when the language is.
  void undoTextChanged(const QString& undoText);

  /// redoText() is another one; also when the language is.
  void redoTextChanged(const QString& redoText);

  /// An operation has failed.
  /// @param message  what has failed and why, for the user
  void failed(const QString& message);

private:
  friend class HistoryGroup;

  /// What a listener needs to know in order to tell what is different after a change.
  struct Shape {
    std::size_t count = 0;
    std::size_t position = 0;
    const CommandBase* last = nullptr; ///< only to be compared
    std::optional<std::size_t> cleanPosition;
    std::size_t limit = 0;
    std::size_t budget = 0;
  };

  /// What the signals said last.
  struct Told {
    bool canUndo;
    bool canRedo;
    bool isClean;
    QString undoText;
    QString redoText;
  };

  History(std::unique_ptr<CommandHistory> own, CommandHistory* commands, QObject* parent);

  Shape shape() const;
  void follow();
  void tellWhatIsNew();

  template <class Action>
  bool attempt(const QString& messageStart, Action action);

  std::unique_ptr<CommandHistory> m_own; ///< null if the application owns it
  CommandHistory* m_commands;
  std::vector<std::unique_ptr<CommandTransaction>> m_macros; ///< innermost last
  HistoryGroup* m_group = nullptr;
  Shape m_shape;
  Told m_told;
  CommandHistory::Subscription m_subscription;
};

}
