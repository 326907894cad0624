// SPDX-License-Identifier: MIT
#pragma once

#include "PersistenceArchiver/BaseClassRegister.h"
#include "PersistenceArchiver/Caster.h"
#include "Recording.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace Tarvik {

/// Each program defines what its registry takes, since the library registers when it is loaded.
extern const bool registryTakesClasses;
extern const std::size_t castersTakenOfEachClass;

/// The registry of the minimal platform, and the calls since the program was loaded.
struct RecordedRegistry {
  struct RegisteredCaster {
    unsigned int parentHash;
    unsigned int childHash;
    Caster* caster; ///< never deleted: its code goes when the library is unloaded
  };

  std::vector<std::string> calls;
  std::map<std::string, BaseClassRegister> given;      ///< to registerFactory(), by class name
  std::map<std::string, BaseClassRegister> registered; ///< in a map, entries never move
  std::map<unsigned int, unsigned int> classHashesOfTypes;
  std::vector<RegisteredCaster> casters;

  static RecordedRegistry& get();

  /// The hash is the position of the name in the list of all names so far, so that tests can read
  /// it.
  unsigned int hashOf(const std::string& name)
  {
    const auto found = std::find(m_names.begin(), m_names.end(), name);
    const auto place = found - m_names.begin();
    if (found == m_names.end())
      m_names.push_back(name);
    return firstHash + static_cast<unsigned int>(place);
  }

  /// The name with this hash; the number if there is none.
  std::string nameOf(unsigned int hash) const
  {
    if (hash == BaseClassRegister::unknownClassHash)
      return "unknown";
    const auto place = static_cast<std::size_t>(hash - firstHash);
    return place < m_names.size() ? m_names[place] : std::to_string(hash);
  }

  /// Keeps the caster, unless the class has as many as the program takes.
  bool take(const RegisteredCaster& added)
  {
    const auto isOfSameClass = [&](const RegisteredCaster& other) {
      return other.childHash == added.childHash;
    };
    const auto known = std::count_if(casters.begin(), casters.end(), isOfSameClass);
    if (static_cast<std::size_t>(known) >= castersTakenOfEachClass)
      return false;
    casters.push_back(added);
    return true;
  }

  void note(const std::string& call)
  {
    calls.push_back(call);
    Recording::note(call);
  }

private:
  static constexpr unsigned int firstHash = 0xA0000000;

  std::vector<std::string> m_names;
};

}
