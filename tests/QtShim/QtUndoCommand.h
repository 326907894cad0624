// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandBase.h"
#include "CommandPattern/HistoryEntry.h"

#include <QString>

#include <memory>
#include <string>
#include <vector>

/// A command as programs written for Qt know it.
class QUndoCommand {
public:
  explicit QUndoCommand(QUndoCommand* parent = nullptr);
  explicit QUndoCommand(const QString& text, QUndoCommand* parent = nullptr);
  QUndoCommand(const QUndoCommand&) = delete;
  QUndoCommand& operator=(const QUndoCommand&) = delete;
  virtual ~QUndoCommand();

  virtual void undo();
  virtual void redo();

  virtual int id() const;
  virtual bool mergeWith(const QUndoCommand* other);

  QString text() const;
  QString actionText() const;
  void setText(const QString& text);

  bool isObsolete() const;
  void setObsolete(bool obsolete);

  int childCount() const;
  const QUndoCommand* child(int index) const;

private:
  QString m_text;
  QString m_actionText;
  bool m_isObsolete = false;
  std::vector<std::unique_ptr<QUndoCommand>> m_children;
};

namespace QtShim {

/// Both texts of a command in one description: "text\naction text".
QString textOf(const std::string& description);
QString actionTextOf(const std::string& description);

/// A QUndoCommand in a CommandHistory.
class Entry : public Tarvik::CommandBase, public Tarvik::HistoryEntry {
public:
  explicit Entry(std::unique_ptr<QUndoCommand> command);

  const QUndoCommand& command() const { return *m_command; }

  void execute() override;
  void undo() override;
  void redo() override;
  const std::string& getDescription() const override;

  bool hasChangedNothing() const override;
  bool mergeWith(Tarvik::CommandBase& later) override;

private:
  std::unique_ptr<QUndoCommand> m_command;
  mutable std::string m_description;
};

}
