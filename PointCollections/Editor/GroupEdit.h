// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/HistoryEntry.h"
#include "GroupHosting/Commands/CompactTKGroupCmd.h"
#include "Identifier/GUIdentifier.h"

#include <cstddef>
#include <functional>
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

  /// How many bytes commands of the document's own keep.
  std::size_t bytesOfDocument = 0;
};

/// A step in the history of an Editor: it keeps what a command changed, knows how many bytes that
/// takes, and names what it was done to, as in "Create Group: Europe". The words before the colon
/// follow a change of language.
class GroupEdit : public CompactTKGroupCmd<GUIdentifier>, public HistoryEntry {
public:
  /// @param provider  the document; not null
  GroupEdit(Provider provider, EditRequest request);

  void execute() override;

  std::size_t sizeInBytes() const override;
  bool hasChangedNothing() const override;

private:
  std::string describe() const;

  EditRequest m_request;
  std::string m_subject;
};

}
