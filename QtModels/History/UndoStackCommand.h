// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandBase.h"
#include "QtModels/QtModelsExport.h"

#include <QtCore/QString>
#include <QtGui/QUndoCommand>

#include <functional>
#include <memory>

namespace Tarvik {

/// Puts one of this project's commands on a QUndoStack, for applications that have one:
///
///     stack.push(new UndoStackCommand(command, [this](const QString& m) { showError(m); }));
///
/// The first redo(), which QUndoStack::push() calls, executes the command. No exception gets out. A
/// command that fails is marked obsolete, and the stack removes it: a failed push() leaves no
/// entry, but what could be redone is gone, as after every push(). When undo() or redo() fails
/// later, the document stays as it was before that call, and the stack forgets the command; the
/// clean state may be out of reach then.
///
/// A HistoryEntry is asked what it can do: it may take over the next command, and leaves no entry
/// when it has changed nothing.
class TKM_QTMODELS_API UndoStackCommand : public QUndoCommand {
public:
  /// Gets a message for the user when an operation has failed. What it throws is dropped.
  using FailureHandler = std::function<void(const QString& message)>;

  /// What id() returns when the command may take over others. The application's own commands should
  /// have other ids.
  static const int mergingId;

  /// @param command  not null; not executed before
  /// @param onFailure  may be empty
  /// @param parent   a command of which this one becomes a part, or null
  /// @throws std::invalid_argument when the command is null
  explicit UndoStackCommand(std::shared_ptr<CommandBase> command,
                            FailureHandler onFailure = {},
                            QUndoCommand* parent = nullptr);
  ~UndoStackCommand() override;

  void redo() override;
  void undo() override;
  int id() const override;
  bool mergeWith(const QUndoCommand* other) override;

private:
  void execute();
  void attempt(const char* failure, const std::function<void()>& action);
  void dropUnlessChanged();

  std::shared_ptr<CommandBase> m_command;
  FailureHandler m_onFailure;
  bool m_isExecuted = false;
  bool m_isInEffect = false;
};

}
