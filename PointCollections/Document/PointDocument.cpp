// SPDX-License-Identifier: MIT
#include "PointCollections/Document/PointDocument.h"

#include "PointCollections/Document/MoveCollectionsCmd.h"
#include "PointCollections/Document/Placement.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <stdexcept>
#include <unordered_set>

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
  m_order.reserve(collections.size());
  m_collections.reserve(collections.size()); // from here on they stay where they are
  m_byId.reserve(collections.size());
  m_byName.reserve(collections.size());
  for (std::size_t i = 0; i < collections.size(); ++i) {
    auto& collection = collections[i];
    if (m_byId.contains(collection.id) || m_byName.contains(collection.name)) {
      if (repeated != nullptr)
        repeated->push_back({i, std::move(collection)});
      continue;
    }
    const auto& kept = m_collections.emplace_back(std::move(collection));
    m_byId.emplace(kept.id, &kept);
    m_byName.emplace(kept.name, &kept);
    m_order.push_back(kept.id);
  }
}

PointDocument::~PointDocument() = default;

const std::vector<GUIdentifier>& PointDocument::order() const
{
  return m_order;
}

void PointDocument::setOrder(const std::vector<GUIdentifier>& order)
{
  const std::unordered_set<GUIdentifier> given(order.begin(), order.end());
  const bool isRearrangement = order.size() == m_order.size() && given.size() == order.size() &&
                               std::all_of(m_order.begin(), m_order.end(),
                                           [&](const auto& id) { return given.contains(id); });
  if (!isRearrangement)
    throw std::invalid_argument("the new order must hold the document's elements, each once");
  auto copy = order;
  m_order.swap(copy);
}

const PointCollection* PointDocument::find(const GUIdentifier& id) const
{
  const auto found = m_byId.find(id);
  return found != m_byId.end() ? found->second : nullptr;
}

const PointCollection* PointDocument::findByName(std::string_view name) const
{
  const auto found = m_byName.find(name);
  return found != m_byName.end() ? found->second : nullptr;
}

std::size_t PointDocument::numberOfPoints() const
{
  return std::accumulate(
      m_collections.begin(), m_collections.end(), std::size_t(0),
      [](auto sum, const auto& collection) { return sum + collection.points.size(); });
}

std::vector<GUIdentifier> PointDocument::orderAfterMove(const GUIdentifier& target,
                                                        const std::vector<GUIdentifier>& elements,
                                                        bool insertBefore) const
{
  return placedBeside(m_order, target, elements, insertBefore);
}

TKGroup<GUIdentifier>* PointDocument::findGroup(const Identifier& id)
{
  const auto found = std::find_if(m_groups.begin(), m_groups.end(),
                                  [&id](const auto& group) { return group.getId() == id; });
  return found != m_groups.end() ? &*found : nullptr;
}

const TKGroup<GUIdentifier>* PointDocument::holderOf(const GUIdentifier& element) const
{
  const auto found = std::find_if(m_groups.begin(), m_groups.end(), [&element](const auto& group) {
    return group.isInGroup(element);
  });
  return found != m_groups.end() ? &*found : nullptr;
}

std::vector<TKGroup<GUIdentifier>>& PointDocument::getGroups()
{
  return m_groups;
}

std::vector<GUIdentifier> PointDocument::getUngroupedElements()
{
  std::unordered_set<GUIdentifier> grouped;
  for (const auto& group : m_groups)
    grouped.insert(group.getGroupMembers().begin(), group.getGroupMembers().end());

  std::vector<GUIdentifier> result;
  std::copy_if(m_order.begin(), m_order.end(), std::back_inserter(result),
               [&grouped](const GUIdentifier& id) { return !grouped.contains(id); });
  return result;
}

void PointDocument::setGroups(const std::vector<TKGroup<GUIdentifier>>& groups)
{
  auto copy = groups; // all or nothing: assigning in place could fail halfway
  m_groups.swap(copy);
}

std::shared_ptr<CommandBase> PointDocument::createMoveCommand(
    const GUIdentifier& target, const std::vector<GUIdentifier>& elements, bool insertBefore)
{
  if (orderAfterMove(target, elements, insertBefore) == m_order)
    return nullptr;
  return std::make_shared<MoveCollectionsCmd>(shared_from_this(), target, elements, insertBefore);
}

std::vector<std::pair<GUIdentifier, std::string>>
PointDocument::getGroupMemberNames(const Identifier& groupId)
{
  std::vector<std::pair<GUIdentifier, std::string>> result;
  const auto* group = findGroup(groupId);
  if (group == nullptr)
    return result;
  for (const GUIdentifier& member : group->getGroupMembers())
    result.emplace_back(member, getElementName(member));
  return result;
}

void PointDocument::renameGroup(const Identifier& groupId, const std::string& name)
{
  if (auto* group = findGroup(groupId))
    group->setName(name, true);
}

std::string PointDocument::getElementName(const GUIdentifier& element)
{
  const PointCollection* collection = find(element);
  return collection != nullptr ? collection->name : std::string();
}

}
