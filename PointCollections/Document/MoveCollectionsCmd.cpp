// SPDX-License-Identifier: MIT
#include "PointCollections/Document/MoveCollectionsCmd.h"

#include "PointCollections/Document/PointDocument.h"
#include "Translator/Translator.h"

#include <utility>

namespace Tarvik::PointCollections {

MoveCollectionsCmd::MoveCollectionsCmd(std::shared_ptr<PointDocument> document,
                                       const GUIdentifier& target,
                                       const std::vector<GUIdentifier>& elements,
                                       bool insertBefore)
    : CommandBase(Translator::translate("MoveCollectionsCmd", "Move", nullptr, -1)),
      m_document(std::move(document)),
      m_target(target),
      m_elements(elements),
      m_insertBefore(insertBefore)
{}

MoveCollectionsCmd::~MoveCollectionsCmd() = default;

std::size_t MoveCollectionsCmd::bytesFor(std::size_t elements)
{
  return sizeof(MoveCollectionsCmd) + elements * sizeof(std::uint32_t);
}

void MoveCollectionsCmd::execute()
{
  m_placement = placementBeside(m_document->order(), m_target, m_elements, m_insertBefore);
  redo();
  m_elements = {};
}

void MoveCollectionsCmd::undo()
{
  m_document->setOrder(putBack(m_document->order(), m_placement));
}

void MoveCollectionsCmd::redo()
{
  m_document->setOrder(placed(m_document->order(), m_placement));
}

}
