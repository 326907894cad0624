// SPDX-License-Identifier: MIT
#include "PointCollections/Document/PointDocument.h"

#include "PointCollections/Document/MoveCollectionsCmd.h"
#include "PointCollections/Document/Placement.h"
#include "PointCollections/Text/Interruption.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace Tarvik::PointCollections {

std::shared_ptr<PointDocument> PointDocument::create(std::vector<PointCollection> collections,
                                                     std::vector<Repeated>* repeated)
{
  return std::make_shared<PointDocument>(Private(), std::move(collections), repeated);
}

PointDocument::PointDocument(Private,
                             std::vector<PointCollection> collections,
                             std::vector<Repeated>* repeated)
{
  std::vector<GUIdentifier> order;
  order.reserve(collections.size());
  m_collections.reserve(collections.size()); // from here on they stay where they are
  m_byId.reserve(collections.size());
  m_byName.reserve(collections.size());
  for (std::size_t i = 0; i < collections.size(); ++i) {
    checkInterruption();
    auto& collection = collections[i];
    if (m_byId.find(collection.id) != nullptr || m_byName.contains(collection.name)) {
      if (repeated != nullptr)
        repeated->push_back({i, std::move(collection)});
      continue;
    }
    const auto& kept = m_collections.emplace_back(std::move(collection));
    m_byId.addLast();
    m_byName.emplace(kept.name, &kept);
    order.push_back(kept.id);
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
  std::vector<char> isGiven(m_collections.size());
  const auto isNew = [&](const GUIdentifier& id) {
    const auto* collection = find(id);
    if (collection == nullptr)
      return false;
    auto& isKnown = isGiven[static_cast<std::size_t>(collection - m_collections.data())];
    return std::exchange(isKnown, 1) == 0;
  };
  if (order.size() != m_collections.size() || !std::all_of(order.begin(), order.end(), isNew))
    throw std::invalid_argument("the new order must hold the document's elements, each once");
  setElements(order);
}

const PointCollection* PointDocument::find(const GUIdentifier& id) const
{
  return m_byId.find(id);
}

const PointCollection* PointDocument::findByName(std::string_view name) const
{
  const auto found = m_byName.find(name);
  return found != m_byName.end() ? found->second : nullptr;
}

std::shared_ptr<CommandBase> PointDocument::createMoveCommand(
    const GUIdentifier& target, const std::vector<GUIdentifier>& elements, bool insertBefore)
{
  if (!placementBeside(order(), target, elements, insertBefore).movesAny())
    return nullptr;
  return std::make_shared<MoveCollectionsCmd>(shared_from_this(), target, elements, insertBefore);
}

std::string PointDocument::getElementName(const GUIdentifier& element)
{
  const PointCollection* collection = find(element);
  return collection != nullptr ? collection->name : std::string();
}

}
