// SPDX-License-Identifier: MIT
#pragma once

#include "PersistenceArchiver/Caster.h"

#include <map>
#include <memory>
#include <string>
#include <utility>

namespace Tarvik {

class PersistenceArchiver {
public:
  static unsigned int getHashForName(const std::string& name)
  {
    return static_cast<unsigned int>(name.size());
  }
  static void registerHash(unsigned int typeNameHash, unsigned int classHash)
  {
    s_classHashes[typeNameHash] = classHash;
  }
  static unsigned int getHashForType(unsigned int typeNameHash)
  {
    const auto found = s_classHashes.find(typeNameHash);
    return found != s_classHashes.end() ? found->second : 0xbbafa6c8;
  }
  static bool registerCaster(unsigned int parentHash, unsigned int childHash, Caster* caster)
  {
    return s_casters.try_emplace(std::pair(parentHash, childHash), caster).second; // wrong, as well
  }

private:
  static inline std::map<std::pair<unsigned int, unsigned int>, std::unique_ptr<Caster>> s_casters;
  static inline std::map<unsigned int, unsigned int> s_classHashes;
};

}
