// SPDX-License-Identifier: MIT
#pragma once

#include "PersistenceArchiver/MapContainer.h"

#include <memory>

namespace Tarvik {

/// How to handle shared pointers to one class, for code that does not know the class. All
/// `void` pointers point to objects as objects of this class. Not for hosts.
struct SharedPointerAccess {
  /// Takes ownership of a new object.
  std::shared_ptr<void> (*own)(void* object);

  /// Calls getPointer() of a container of the class.
  std::shared_ptr<void> (*get)(MapContainer& pointers, unsigned int number);

  /// Calls addPointer() of a container of the class.
  void (*add)(MapContainer& pointers, unsigned int number, const std::shared_ptr<void>& pointer);
};

template <class C>
inline constexpr SharedPointerAccess sharedPointersTo = {
    .own = [](void* object) -> std::shared_ptr<void> {
      return std::shared_ptr<C>(static_cast<C*>(object));
    },
    .get = [](MapContainer& pointers, unsigned int number) -> std::shared_ptr<void> {
      return static_cast<PointerMapContainerBase<C>&>(pointers).getPointer(number);
    },
    .add =
        [](MapContainer& pointers, unsigned int number, const std::shared_ptr<void>& pointer) {
          static_cast<PointerMapContainerBase<C>&>(pointers).addPointer(
              number, std::static_pointer_cast<C>(pointer));
        }};

}
