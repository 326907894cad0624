// SPDX-License-Identifier: MIT
#include "PersistenceArchiver/SavedObjects.h"

#include <functional>

namespace Tarvik {

SavedObjects::~SavedObjects()
{
  clear();
}

SavedObjects::Number SavedObjects::numberOf(const std::shared_ptr<void>& owner,
                                            const void* object,
                                            unsigned int classHash)
{
  const auto next = static_cast<unsigned int>(m_numbers.size() + 1);
  const auto [place, isNew] = m_numbers.try_emplace({object, classHash}, next);
  if (isNew)
    m_owners.push_back(owner);
  return {place->second, isNew};
}

void SavedObjects::clear()
{
  m_numbers.clear();
  while (!m_owners.empty())
    m_owners.pop_back();
}

std::size_t SavedObjects::Hash::operator()(const Key& key) const
{
  return std::hash<const void*>()(key.object) ^ key.classHash;
}

}
