// SPDX-License-Identifier: MIT
#pragma once

#include "PlatformExport.h"

#include <cstddef>
#include <memory>

namespace Tarvik {

/// Something that the archive keeps while it loads, and knows only how to destroy.
class TKM_PERSISTENCEARCHIVER_API MapContainer {
public:
  MapContainer();
  MapContainer(const MapContainer&) = delete;
  MapContainer& operator=(const MapContainer&) = delete;
  virtual ~MapContainer();
};

/// Keeps shared pointers to objects of one class, by the numbers that they have in an archive.
template <class C>
class PointerMapContainerBase : public MapContainer {
public:
  /// Keeps the pointer under the key, unless the key is taken: the first pointer stays.
  virtual void addPointer(unsigned int key, std::shared_ptr<C> pointer) = 0;

  /// The pointer under the key; null when there is none.
  virtual std::shared_ptr<C> getPointer(unsigned int key) = 0;

  /// Removes the pointer under the key.
  /// @return how many pointers were removed, 0 or 1
  virtual std::size_t removePointer(unsigned int key) = 0;
};

}
