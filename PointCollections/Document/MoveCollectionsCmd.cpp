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

void MoveCollectionsCmd::execute()
{
  m_orderBefore = m_document->order();
  m_orderAfter = m_document->orderAfterMove(m_target, m_elements, m_insertBefore);
  redo();
}

void MoveCollectionsCmd::undo()
{
  m_document->setOrder(m_orderBefore);
}

void MoveCollectionsCmd::redo()
{
  m_document->setOrder(m_orderAfter);
}

}
