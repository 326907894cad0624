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

/// The container of shared pointers that classes get from registerClass().
template <class C>
class SharedPointerContainer : public PointerMapContainerBase<C> {
public:
  void addPointer(unsigned int key, std::shared_ptr<C> pointer) override;
  std::shared_ptr<C> getPointer(unsigned int key) override;
  std::size_t removePointer(unsigned int key) override;

private:
  std::unordered_map<unsigned int, std::shared_ptr<C>> m_pointers;
};

/// The caster that registerBase() makes.
template <class Base, class Derived>
class BaseCaster : public Caster {
public:
  void* toBase(void* derived) const override;
  void* toDerived(void* base) const override;
};

/// What an entry does: reads or writes one object.
/// @param version  of the class: the one that the object was saved in, or is saved in
template <class C>
using LoadOperation = void (*)(PersistenceArchiver&, C& object, unsigned int version);
template <class C>
using SaveOperation = void (*)(PersistenceArchiver&, const C& object, unsigned int version);

/// Registers a class whose objects an archive is to save and load. A class calls it once, from a
/// variable that is initialised when the program starts, and hands the record out through its
/// `static void serialization_register(void* out)`, where `out` points to a BaseClassRegister.
///
/// The archive knows types by their names, so a class in an unnamed namespace needs a name that no
/// other such class of the program has. Objects of a class without a default constructor are loaded
/// in place only, not by shared pointers.
///
/// Raise the version when what `save` writes changes, and let `load` tell by its argument which
/// version it reads; archives in a higher version are refused by themselves.
/// @tparam load       a LoadOperation
/// @tparam save       a SaveOperation
/// @param name        unique among the classes of the program; stands in every archive
/// @param leastSize   the fewest bytes that `save` writes
/// @return the registered record, which stays valid; null when the name's hash stands for another
///         class already
template <class C, LoadOperation<C> load, SaveOperation<C> save>
const BaseClassRegister*
registerClass(const std::string& name, unsigned int version, unsigned int leastSize = 1);

/// Lets objects of a registered class be loaded and saved by shared pointers to a registered base.
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
