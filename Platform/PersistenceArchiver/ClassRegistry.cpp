// SPDX-License-Identifier: MIT
#include "PersistenceArchiver/ClassRegistry.h"

#include "ForkHandlers.h"
#include "PersistenceArchiver/Caster.h"

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <numeric>
#include <set>
#include <utility>

namespace Tarvik {

namespace {

constexpr auto unknownClassHash = BaseClassRegister::unknownClassHash;

/// Frees the memory of an object without its destructor, whose code may have been unloaded.
struct ReleaseMemory {
  void operator()(void* object) const { ::operator delete(object); }
};

struct Registry {
  Registry();

  std::mutex mutex;
  std::map<unsigned int, ClassRegistry::RegisteredClass> classes; // a map: its entries never move
  std::map<unsigned int, unsigned int> classHashesOfTypes;
  std::map<std::pair<unsigned int, unsigned int>, const Caster*> casters; ///< by child, then parent
  std::vector<std::unique_ptr<void, ReleaseMemory>> casterMemory;
};

/// Constructed when the library is loaded, destroyed after everything that was loaded later.
Registry registry;

/// A forked child has only the thread that forked it: if another one had the lock, nobody would
/// release the child's copy.
Registry::Registry()
{
  constexpr auto unlock = [] { registry.mutex.unlock(); };
  ForkHandlers::add([] { registry.mutex.lock(); }, unlock, unlock);
}

bool haveSameEntries(const BaseClassRegister& a, const BaseClassRegister& b)
{
  return a.load == b.load && a.save == b.save && a.create == b.create &&
         a.runtimeClass == b.runtimeClass && a.createContainer == b.createContainer;
}

using ClassRegistry::CasterPath;

/// The registry must be locked.
/// @param visited  the classes from which no way was found
std::optional<CasterPath>
findPath(unsigned int childHash, unsigned int parentHash, std::set<unsigned int>& visited)
{
  if (childHash == parentHash)
    return CasterPath{};
  if (!visited.insert(childHash).second)
    return std::nullopt;
  for (auto place = registry.casters.lower_bound({childHash, 0});
       place != registry.casters.end() && place->first.first == childHash; ++place)
    if (auto rest = findPath(place->first.second, parentHash, visited)) {
      rest->insert(rest->begin(), place->second);
      return rest;
    }
  return std::nullopt;
}

}

namespace ClassRegistry {

unsigned int hashOf(const std::string& name)
{
  // FNV-1a: short, well known, and spreads names that differ in one letter
  std::uint32_t hash = 2166136261U;
  for (const char letter : name)
    hash = (hash ^ static_cast<unsigned char>(letter)) * 16777619U;
  return hash;
}

BaseClassRegister*
registerClass(const std::string& name, const BaseClassRegister& record, unsigned int version)
{
  const auto hash = hashOf(name);
  if (hash == unknownClassHash)
    return nullptr;

  RegisteredClass added{name, version, record};
  added.record.classHash = hash; // now: a registered record may be read without the lock

  const std::lock_guard lock(registry.mutex);
  auto& entry = registry.classes.try_emplace(hash, added).first->second;
  if (entry.name != name || entry.version != version)
    return nullptr;
  if (!haveSameEntries(entry.record, added.record)) // the class's library has been loaded again
    entry.record = added.record;
  return &entry.record;
}

void registerType(unsigned int typeNameHash, unsigned int classHash)
{
  const std::lock_guard lock(registry.mutex);
  registry.classHashesOfTypes.insert_or_assign(typeNameHash, classHash);
}

unsigned int classOfType(unsigned int typeNameHash)
{
  const std::lock_guard lock(registry.mutex);
  const auto found = registry.classHashesOfTypes.find(typeNameHash);
  return found != registry.classHashesOfTypes.end() ? found->second : unknownClassHash;
}

bool registerCaster(unsigned int parentHash, unsigned int childHash, Caster* caster)
{
  std::unique_ptr<Caster> owned(caster);
  if (!owned || parentHash == unknownClassHash || childHash == unknownClassHash)
    return false;
  const std::lock_guard lock(registry.mutex);
  registry.casterMemory.emplace_back(dynamic_cast<void*>(owned.get()));
  // also for a known pair: its caster may be from a library that was unloaded
  registry.casters.insert_or_assign({childHash, parentHash}, owned.release());
  return true;
}

const RegisteredClass* find(unsigned int classHash)
{
  const std::lock_guard lock(registry.mutex);
  const auto found = registry.classes.find(classHash);
  return found != registry.classes.end() ? &found->second : nullptr;
}

std::string describe(unsigned int classHash)
{
  if (const auto* const known = find(classHash))
    return '"' + known->name + '"';
  return "with the unknown hash " + std::to_string(classHash);
}

std::optional<CasterPath> findPath(unsigned int childHash, unsigned int parentHash)
{
  if (childHash == parentHash)
    return CasterPath{}; // the most frequent case, without the lock
  const std::lock_guard lock(registry.mutex);
  std::set<unsigned int> visited;
  return Tarvik::findPath(childHash, parentHash, visited);
}

void* toBase(void* object, const CasterPath& path)
{
  return std::accumulate(
      path.begin(), path.end(), object,
      [](void* converted, const Caster* caster) { return caster->toBase(converted); });
}

void* toDerived(void* object, const CasterPath& path)
{
  return std::accumulate(
      path.rbegin(), path.rend(), object,
      [](void* converted, const Caster* caster) { return caster->toDerived(converted); });
}

}

}
