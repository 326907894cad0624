// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/Groups/TKGroup.h"
#include "HighLevelServices/HighLevelServicesExport.h"
#include "Identifier/GUIdentifier.h"
#include "Identifier/Identifier.h"
#include "PersistenceArchiver/MapContainer.h"

#include <cstddef>
#include <map>
#include <memory>
#include <utility>

namespace Tarvik {

/// Maps numbers to shared pointers. The archive keeps shared groups in it while it loads.
template <class C>
class PointerMapContainer : public PointerMapContainerBase<C> {
public:
  PointerMapContainer();

  PointerMapContainer(const PointerMapContainer&) = delete;
  PointerMapContainer& operator=(const PointerMapContainer&) = delete;

  ~PointerMapContainer() override;

  /// Stores the pointer under the key. When the key is taken, the first pointer stays.
  void addPointer(unsigned int key, std::shared_ptr<C> pointer) override;

  /// The pointer stored under the key; null when there is none.
  std::shared_ptr<C> getPointer(unsigned int key) override;

  /// Releases the pointer stored under the key.
  /// @return how many pointers were released, 0 or 1
  std::size_t removePointer(unsigned int key) override;

private:
  using Map = std::map<unsigned int, std::shared_ptr<C>>;

  std::unique_ptr<Map> m_pointers;
};

template <class C>
PointerMapContainer<C>::PointerMapContainer() : m_pointers(std::make_unique<Map>())
{}

template <class C>
PointerMapContainer<C>::~PointerMapContainer() = default;

template <class C>
void PointerMapContainer<C>::addPointer(unsigned int key, std::shared_ptr<C> pointer)
{
  m_pointers->try_emplace(key, std::move(pointer));
}

template <class C>
std::shared_ptr<C> PointerMapContainer<C>::getPointer(unsigned int key)
{
  const auto found = m_pointers->find(key);
  return found != m_pointers->end() ? found->second : nullptr;
}

template <class C>
std::size_t PointerMapContainer<C>::removePointer(unsigned int key)
{
  return m_pointers->erase(key);
}

extern template class TKM_HIGHLEVELSERVICES_DECLARE PointerMapContainerBase<TKGroup<Identifier>>;
extern template class TKM_HIGHLEVELSERVICES_DECLARE PointerMapContainerBase<TKGroup<GUIdentifier>>;
extern template class TKM_HIGHLEVELSERVICES_DECLARE PointerMapContainer<TKGroup<Identifier>>;
extern template class TKM_HIGHLEVELSERVICES_DECLARE PointerMapContainer<TKGroup<GUIdentifier>>;

}
