// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>

namespace Tarvik {

class MapContainer {
public:
  virtual ~MapContainer() = default;
};

template <class C>
class PointerMapContainerBase : public MapContainer {
public:
  virtual void addPointer(unsigned int key, std::shared_ptr<C> pointer) = 0;
  virtual std::shared_ptr<C> getPointer(unsigned int key) = 0;
  virtual std::size_t removePointer(unsigned int key) = 0;
};

}
