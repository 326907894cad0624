// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandBase.h"
#include "CommandPattern/HistoryEntry.h"

#include <QtCore/QCoreApplication>

#include <new>
#include <stdexcept>
#include <string>
#include <utility>

namespace Tarvik {

/// What can go wrong in a command.
enum class Failure { None, Error, OutOfMemory, Unknown };

/// Throws what the failure is about.
inline void failWith(Failure failure)
{
  if (failure == Failure::Error)
    throw std::runtime_error("the disk is full");
  if (failure == Failure::OutOfMemory)
    throw std::bad_alloc();
  if (failure == Failure::Unknown)
    throw 42; // NOLINT(hicpp-exception-baseclass): what a callback of somebody else may throw
}

/// Appends a text to a document, which is a text as well.
class TextCommand : public CommandBase {
public:
  TextCommand(std::string& document, std::string text, std::string description)
      : CommandBase(std::move(description)), m_document(document), m_text(std::move(text))
  {}

  void failNext(Failure failure) { m_failure = failure; }

  void execute() override { redo(); }

  void undo() override
  {
    failWith(std::exchange(m_failure, Failure::None));
    m_document.resize(m_document.size() - m_text.size());
  }

  void redo() override
  {
    failWith(std::exchange(m_failure, Failure::None));
    m_document += m_text;
  }

protected:
  std::string& text() { return m_text; }
  const std::string& text() const { return m_text; }

private:
  std::string& m_document;
  std::string m_text;
  Failure m_failure = Failure::None;
};

/// The same, but takes over what is typed next.
class TypingCommand : public TextCommand, public HistoryEntry {
public:
  using TextCommand::TextCommand;

  bool mergeWith(CommandBase& later) override
  {
    auto* const next = dynamic_cast<TypingCommand*>(&later);
    if (next == nullptr)
      return false;
    text() += next->text();
    return true;
  }

  bool hasChangedNothing() const override { return text().empty(); }
};

/// A command whose description is translated whenever it is asked for.
class TranslatedCommand : public CommandBase {
public:
  TranslatedCommand() : CommandBase(std::string()) {}

  void execute() override {}
  void undo() override {}
  void redo() override {}

  const std::string& getDescription() const override
  {
    return m_description = QCoreApplication::translate("TextCommand", "Type").toStdString();
  }

private:
  mutable std::string m_description;
};

}
