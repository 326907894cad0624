// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandBase.h"
#include "Identifier/GUIdentifier.h"
#include "PointCollections/Document/Placement.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace Tarvik::PointCollections {

class PointDocument;

/// Places elements before or after another one in the document's order. The groups stay as they
/// are. PointDocument::createMoveCommand() describes duplicate and unknown elements. Keeps only
/// where the elements were, and where they went.
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

  /// How many bytes an executed command keeps that moved so many elements.
  static std::size_t bytesFor(std::size_t elements);

private:
  std::shared_ptr<PointDocument> m_document;
  GUIdentifier m_target;
  std::vector<GUIdentifier> m_elements; ///< until it is executed
  bool m_insertBefore;
  Placement m_placement;
};

}
