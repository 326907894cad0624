// SPDX-License-Identifier: MIT
#include "PointCollections/Document/PointDocument.h"

#include "PointCollections/Document/MoveCollectionsCmd.h"
#include "PointCollections/Document/Placement.h"

#include <algorithm>
#include <stdexcept>
#include <unordered_set>
#include <utility>

namespace Tarvik::PointCollections {

std::shared_ptr<PointDocument> PointDocument::create(std::vector<PointCollection> collections)
{
  return std::make_shared<PointDocument>(Private(), std::move(collections));
}

PointDocument::PointDocument(Private, std::vector<PointCollection> collections)
{
  std::vector<GUIdentifier> order;
  order.reserve(collections.size());
  m_collections.reserve(collections.size());
  m_idsByName.reserve(collections.size());
  for (auto& collection : collections) {
    const GUIdentifier id = collection.id;
    if (m_collections.contains(id) || !m_idsByName.try_emplace(collection.name, id).second)
      continue;
    m_collections.emplace(id, std::move(collection));
    order.push_back(id);
  }
  setElements(order);
}

PointDocument::~PointDocument() = default;

const std::vector<GUIdentifier>& PointDocument::order() const
{
  return elements();
}

void PointDocument::setOrder(const std::vector<GUIdentifier>& order)
{
  const std::unordered_set<GUIdentifier> given(order.begin(), order.end());
  const bool isRearrangement =
      order.size() == elements().size() && given.size() == order.size() &&
      std::all_of(order.begin(), order.end(), [this](const auto& id) { return hasElement(id); });
  if (!isRearrangement)
    throw std::invalid_argument("the new order must hold the document's elements, each once");
  setElements(order);
}

const PointCollection* PointDocument::find(const GUIdentifier& id) const
{
  const auto found = m_collections.find(id);
  return found != m_collections.end() ? &found->second : nullptr;
}

const PointCollection* PointDocument::findByName(const std::string& name) const
{
  const auto found = m_idsByName.find(name);
  return found != m_idsByName.end() ? find(found->second) : nullptr;
}

std::vector<GUIdentifier> PointDocument::orderAfterMove(const GUIdentifier& target,
                                                        const std::vector<GUIdentifier>& elements,
                                                        bool insertBefore) const
{
  return placedBeside(order(), target, elements, insertBefore);
}

std::shared_ptr<CommandBase> PointDocument::createMoveCommand(
    const GUIdentifier& target, const std::vector<GUIdentifier>& elements, bool insertBefore)
{
  if (orderAfterMove(target, elements, insertBefore) == order())
    return nullptr;
  return std::make_shared<MoveCollectionsCmd>(shared_from_this(), target, elements, insertBefore);
}

std::string PointDocument::getElementName(const GUIdentifier& element)
{
  const PointCollection* collection = find(element);
  return collection != nullptr ? collection->name : std::string();
}

}
