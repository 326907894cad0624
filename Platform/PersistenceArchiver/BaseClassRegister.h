// SPDX-License-Identifier: MIT
#pragma once

namespace Tarvik {

class MapContainer;
class PersistenceArchiver;

/// A class record: what the archive knows of one class, and the object that is saved or loaded.
///
/// A class fills one record and gives it to PersistenceArchiver::registerFactory(). To save or load
/// an object, take a copy, set `object`, and call the entry.
struct BaseClassRegister {
  /// Saves or loads the record's object.
  using Entry = void (*)(PersistenceArchiver&, BaseClassRegister&);

  /// The class hash that no class has.
  static constexpr unsigned int unknownClassHash = 0xbbafa6c8;

  Entry load = nullptr;        ///< reads into `object`
  Entry save = nullptr;        ///< writes `object`
  void* (*create)() = nullptr; ///< a new object, owned by the caller
  unsigned int (*runtimeClass)(const BaseClassRegister&) = nullptr; ///< class hash of `object`
  MapContainer* (*createContainer)() = nullptr; ///< a new container, owned by the caller
  unsigned int word = 0; ///< the fewest bytes that an object takes in an archive; 0 counts as 1
  unsigned int classHash = unknownClassHash; ///< assigned by registerFactory()
  unsigned int writeVersion = 0xFFFFFFFF;    ///< class version that `save` writes
  unsigned int readVersion = 0xFFFFFFFF;     ///< class version that `load` will find
  void* object = nullptr;                    ///< the object to save or to load
  void* reserved = nullptr;                  ///< reserved
};

}
