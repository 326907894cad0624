// SPDX-License-Identifier: MIT
#pragma once

#include "PersistenceArchiver/BaseClassRegister.h"
#include "PersistenceArchiver/Caster.h"
#include "PersistenceArchiver/MapContainer.h"
#include "PersistenceArchiver/PersistenceArchiver.h"

#include <cstddef>
#include <memory>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <unordered_map>
#include <utility>

namespace Tarvik {

/// The container for shared pointers that registerClass() gives a class.
template <class C>
class SharedPointerContainer : public PointerMapContainerBase<C> {
public:
  void addPointer(unsigned int key, std::shared_ptr<C> pointer) override;
  std::shared_ptr<C> getPointer(unsigned int key) override;
  std::size_t removePointer(unsigned int key) override;

private:
  std::unordered_map<unsigned int, std::shared_ptr<C>> m_pointers;
};

/// The caster that registerBase() registers.
template <class Base, class Derived>
class BaseCaster : public Caster {
public:
  void* toBase(void* derived) const override;
  void* toDerived(void* base) const override;
};

/// Reads or writes the content of one object.
/// @param version  of the class: the one in which the object was saved, or is saved
template <class C>
using LoadOperation = void (*)(PersistenceArchiver&, C& object, unsigned int version);
template <class C>
using SaveOperation = void (*)(PersistenceArchiver&, const C& object, unsigned int version);

/// Registers a class, so that archives can save and load its objects. Call it once for each class,
/// from a variable that is initialised when the program starts. The class's
/// `static void serialization_register(void* out)` copies the record to `out`, which points to a
/// BaseClassRegister.
///
/// The archive knows types by their names: a class in an unnamed namespace needs a name that no
/// other such class of the program has. Objects of a class without a default constructor can be
/// loaded in place, but not by shared pointers.
///
/// When `save` writes something else, raise the version; `load` gets the version that it reads.
/// Archives with a higher version than the program's are refused when they are opened.
/// @tparam load       a LoadOperation
/// @tparam save       a SaveOperation
/// @param name        unique among the classes of the program; never change it, archives hold it
/// @param leastSize   the fewest bytes that `save` writes
/// @return the registered record, which stays valid; null when another class has the same hash
template <class C, LoadOperation<C> load, SaveOperation<C> save>
const BaseClassRegister*
registerClass(const std::string& name, unsigned int version, unsigned int leastSize = 1);

/// Lets shared pointers to a registered base save and load objects of a registered class.
template <class Base, class Derived>
void registerBase();

template <class C>
void SharedPointerContainer<C>::addPointer(unsigned int key, std::shared_ptr<C> pointer)
{
  m_pointers.try_emplace(key, std::move(pointer));
}

template <class C>
std::shared_ptr<C> SharedPointerContainer<C>::getPointer(unsigned int key)
{
  const auto found = m_pointers.find(key);
  return found != m_pointers.end() ? found->second : nullptr;
}

template <class C>
std::size_t SharedPointerContainer<C>::removePointer(unsigned int key)
{
  return m_pointers.erase(key);
}

template <class Base, class Derived>
void* BaseCaster<Base, Derived>::toBase(void* derived) const
{
  return static_cast<Base*>(static_cast<Derived*>(derived));
}

template <class Base, class Derived>
void* BaseCaster<Base, Derived>::toDerived(void* base) const
{
  return dynamic_cast<Derived*>(static_cast<Base*>(base));
}

template <class C, LoadOperation<C> load, SaveOperation<C> save>
const BaseClassRegister*
registerClass(const std::string& name, unsigned int version, unsigned int leastSize)
{
  BaseClassRegister record;
  record.load = [](PersistenceArchiver& archive, BaseClassRegister& loaded) {
    load(archive, *static_cast<C*>(loaded.object), loaded.readVersion);
  };
  record.save = [](PersistenceArchiver& archive, BaseClassRegister& saved) {
    save(archive, *static_cast<const C*>(saved.object), saved.writeVersion);
  };
  if constexpr (std::is_default_constructible_v<C>)
    record.create = []() -> void* { return new C; };
  if constexpr (std::is_polymorphic_v<C>)
    record.runtimeClass = [](const BaseClassRegister& asked) {
      const char* const type = typeid(*static_cast<const C*>(asked.object)).name();
      return PersistenceArchiver::getHashForType(PersistenceArchiver::getHashForName(type));
    };
  record.createContainer = []() -> MapContainer* { return new SharedPointerContainer<C>; };
  record.word = leastSize;
  record.writeVersion = version;
  record.readVersion = version;

  const auto* const registered = PersistenceArchiver::registerFactory(name, record, version);
  if (registered != nullptr)
    PersistenceArchiver::registerHash(PersistenceArchiver::getHashForName(typeid(C).name()),
                                      registered->classHash);
  return registered;
}

template <class Base, class Derived>
void registerBase()
{
  BaseClassRegister base;
  BaseClassRegister derived;
  Base::serialization_register(&base);
  Derived::serialization_register(&derived);
  PersistenceArchiver::registerCaster(base.classHash, derived.classHash,
                                      new BaseCaster<Base, Derived>);
}

}
