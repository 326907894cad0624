// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandBase.h"
#include "Identifier/GUIdentifier.h"

#include <memory>
#include <vector>

namespace Tarvik::PointCollections {

class PointDocument;

/// Places elements before or after another one in the document's order. The groups stay as they
/// are. PointDocument::createMoveCommand() describes duplicate and unknown elements.
class MoveCollectionsCmd : public CommandBase {
public:
  /// @param document      shared for the command's life; not null
  /// @param target        the element next to which they go; if it is unknown, nothing changes
  /// @param elements      the elements, in their new order
  /// @param insertBefore  true: before the target; false: after it
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
