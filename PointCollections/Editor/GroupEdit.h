// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/HistoryEntry.h"
#include "GroupHosting/Commands/CompactTKGroupCmd.h"
#include "Identifier/GUIdentifier.h"
#include "PointCollections/Document/PointDocument.h"
#include "PointCollections/Editor/MemoryReserve.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

namespace Tarvik::PointCollections {

/// What the user did to the groups, for Editor::execute().
struct EditRequest {
  /// The context and the text that the command gives to the Translator as its description.
  const char* context;
  const char* text;

  /// Makes the command, on the provider that it is given.
  CompactTKGroupCmd<GUIdentifier>::MakeCommand makeCommand;

  /// What the description names after a colon: "Europe". Called once, when the command has run. May
  /// be empty. What it throws is ignored: the description then names nothing.
  std::function<std::string()> subject = {};

  /// How many bytes commands of the document's own keep; 0 if there are none, and the order of the
  /// elements stays as it is.
  std::size_t bytesOfDocument = 0;
};

/// A step in the history of an Editor: it keeps what a command changed, knows how many bytes that
/// takes, and names what it was done to, as in "Create Group: Europe". The words before the colon
/// follow a change of language.
///
/// When an operation throws, the document is as it was before. This takes memory if the command
/// changes both groups and the order of elements: the reserve is then let go.
class GroupEdit : public CompactTKGroupCmd<GUIdentifier>, public HistoryEntry {
public:
  /// @param document  what is changed; not null
  /// @param reserve   memory that may be let go; not null
  GroupEdit(std::shared_ptr<PointDocument> document,
            EditRequest request,
            std::shared_ptr<MemoryReserve> reserve);

  void execute() override;
  void undo() override;
  void redo() override;

  std::size_t sizeInBytes() const override;
  bool hasChangedNothing() const override;

private:
  template <class Action>
  void doAllOrNothing(Action action);

  std::string describe() const;

  std::shared_ptr<PointDocument> m_document;
  std::shared_ptr<MemoryReserve> m_reserve;
  EditRequest m_request;
  std::string m_subject;
};

}
