// SPDX-License-Identifier: MIT
#pragma once

#include "PersistenceArchiver/BaseClassRegister.h"
#include "PersistenceArchiver/MapContainer.h"

#include <cstddef>
#include <map>
#include <memory>
#include <vector>

namespace Tarvik {

/// One shared object.
struct LoadedObject {
  std::shared_ptr<void> owner;
  void* object = nullptr; ///< as an object of its own class
  unsigned int classHash = BaseClassRegister::unknownClassHash;
};

/// The shared objects that one archive has loaded, by number, and the pointers to them that were
/// handed out, by the class of the pointer. Keeps a share of each. Not for hosts.
class LoadedObjects {
public:
  LoadedObjects() = default;
  LoadedObjects(const LoadedObjects&) = delete;
  LoadedObjects& operator=(const LoadedObjects&) = delete;

  /// Releases the objects from the last to the first. In a long chain that was saved from its end,
  /// no release sets off the next one then, which would use up the stack.
  ~LoadedObjects();

  /// The greatest number so far.
  std::size_t count() const { return m_objects.size(); }

  /// @param number  1 to count()
  const LoadedObject& operator[](std::size_t number) const { return m_objects[number - 1]; }

  /// Makes the object with the next number.
  /// @param record  of the object's own class; has a create entry
  /// @return valid until the next one is made; without an owner, which the caller must set
  LoadedObject& create(const BaseClassRegister& record);

  /// The container for pointers to the class. The class makes it when it is first needed.
  /// @throws std::logic_error when the class makes none
  MapContainer& pointersTo(const BaseClassRegister& declared);

private:
  std::vector<LoadedObject> m_objects;
  std::map<unsigned int, std::unique_ptr<MapContainer>> m_pointers; ///< by class hash
};

}
