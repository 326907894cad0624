// SPDX-License-Identifier: MIT
#pragma once

namespace Tarvik {

class MapContainer;
class PersistenceArchiver;

struct BaseClassRegister {
  using Entry = void (*)(PersistenceArchiver&, BaseClassRegister&);
  static constexpr unsigned int unknownClassHash = 0xbbafa6c8;

  Entry load = nullptr;
  Entry save = nullptr;
  void* (*create)() = nullptr;
  unsigned int (*runtimeClass)(const BaseClassRegister&) = nullptr;
  MapContainer* (*createContainer)() = nullptr;
  unsigned int word = 0;
  unsigned int classHash = unknownClassHash;
  unsigned int writeVersion = 0xFFFFFFFF;
  unsigned int readVersion = 0xFFFFFFFF;
  void* object = nullptr;
  void* reserved = nullptr;
};

}
