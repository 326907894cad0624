// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandBase.h"
#include "Identifier/GUIdentifier.h"

#include <memory>
#include <vector>

namespace Tarvik::PointCollections {

class PointDocument;

/// Places collections in front of or behind another one in the document's own order; the groups
/// stay as they are. PointDocument::createMoveCommand() says what counts as an element.
class MoveCollectionsCmd : public CommandBase {
public:
  /// @param document      shared for the command's life; not null
  /// @param target        the collection beside which they go; when unknown, nothing changes
  /// @param elements      the collections, in the order in which they are to stand
  /// @param insertBefore  true: in front of the target; false: behind it
  MoveCollectionsCmd(std::shared_ptr<PointDocument> document,
                     const GUIdentifier& target,
                     const std::vector<GUIdentifier>& elements,
                     bool insertBefore);
  ~MoveCollectionsCmd() override;

  void execute() override;
  void undo() override;
  void redo() override;

private:
  std::shared_ptr<PointDocument> m_document;
  GUIdentifier m_target;
  std::vector<GUIdentifier> m_elements;
  bool m_insertBefore;
  std::vector<GUIdentifier> m_orderBefore;
  std::vector<GUIdentifier> m_orderAfter;
};

}
