// SPDX-License-Identifier: MIT
#include "PersistenceArchiver/SavedObjects.h"

#include <functional>

namespace Tarvik {

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

std::size_t SavedObjects::Hash::operator()(const Key& key) const
{
  return std::hash<const void*>()(key.object) ^ key.classHash;
}

}
