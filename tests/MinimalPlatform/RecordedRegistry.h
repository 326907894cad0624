// SPDX-License-Identifier: MIT
#pragma once

#include "PersistenceArchiver/BaseClassRegister.h"
#include "PersistenceArchiver/Caster.h"
#include "Recording.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik {

/// Each program says what its registry takes, so that it does so while the library is loaded.
extern const bool registryTakesClasses;
extern const std::size_t castersTakenOfEachClass;

/// The registry of the minimal platform, and what it was asked since the program was loaded.
struct RecordedRegistry {
  struct RegisteredCaster {
    unsigned int parentHash;
    unsigned int childHash;
    std::unique_ptr<Caster> caster;
  };

  std::vector<std::string> calls;
  std::map<std::string, BaseClassRegister> given;      ///< to registerFactory(), by class name
  std::map<std::string, BaseClassRegister> registered; ///< a map: its entries never move
  std::map<unsigned int, unsigned int> classHashesOfTypes;
  std::vector<RegisteredCaster> casters;

  static RecordedRegistry& get();

  /// A hash is the place of the name in the list of those asked for, so that it can be read back.
  unsigned int hashOf(const std::string& name)
  {
    const auto found = std::find(m_names.begin(), m_names.end(), name);
    const auto place = found - m_names.begin();
    if (found == m_names.end())
      m_names.push_back(name);
    return firstHash + static_cast<unsigned int>(place);
  }

  /// The name that has the hash, or else the number.
  std::string nameOf(unsigned int hash) const
  {
    if (hash == BaseClassRegister::unknownClassHash)
      return "unknown";
    const auto place = static_cast<std::size_t>(hash - firstHash);
    return place < m_names.size() ? m_names[place] : std::to_string(hash);
  }

  /// Keeps the caster, unless the class has as many as the program takes.
  bool take(RegisteredCaster added)
  {
    const auto isOfSameClass = [&](const RegisteredCaster& other) {
      return other.childHash == added.childHash;
    };
    const auto known = std::count_if(casters.begin(), casters.end(), isOfSameClass);
    if (static_cast<std::size_t>(known) >= castersTakenOfEachClass)
      return false;
    casters.push_back(std::move(added));
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
