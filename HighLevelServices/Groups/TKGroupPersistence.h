// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/Groups/CasterAccess.h"
#include "HighLevelServices/Groups/PointerMapContainer.h"
#include "HighLevelServices/Groups/TKGroup.h"
#include "PersistenceArchiver/BaseClassRegister.h"
#include "PersistenceArchiver/PersistenceArchiver.h"

#include <exception>
#include <memory>
#include <typeinfo>
#include <vector>

/// @file
/// How groups are registered, saved and loaded: the part of TKGroup that only the library compiles.
///
/// A group is saved as a frame with the name, then the id, then a frame with the members. The two
/// frames are read in different ways; the id goes through the stream operators, the members through
/// the entries of their class. Keep these differences: archives of other programs depend on them.
///
/// The casts to void say that the result is ignored on purpose: a platform may mark it
/// [[nodiscard]].

namespace Tarvik {

/// The archive refused the caster between groups and names when the library was loaded.
class ParentNotRegistered : public std::exception {
public:
  const char* what() const noexcept override { return "Parent not registered"; }
};

namespace GroupPersistence {

constexpr unsigned int classVersion = 500001;

/// No version: the class asks for none, or is not in the archive.
constexpr unsigned int noVersion = 0xFFFFFFFF;

template <class T>
constexpr const char* className = nullptr;
template <>
inline constexpr const char* className<Identifier> = "TKIdGroup";
template <>
inline constexpr const char* className<GUIdentifier> = "TKGUIdGroup";

/// The version to register a class in; the archive's current one when the class asks for none.
unsigned int versionOrCurrent(unsigned int requested);

inline unsigned int typeNameHash(const std::type_info& type)
{
  return PersistenceArchiver::getHashForName(type.name());
}

/// The class hash registered for the type, or else the hash of the type's name.
inline unsigned int classOrNameHash(const std::type_info& type)
{
  const auto nameHash = typeNameHash(type);
  const auto classHash = PersistenceArchiver::getHashForType(nameHash);
  return classHash != BaseClassRegister::unknownClassHash ? classHash : nameHash;
}

template <class C>
BaseClassRegister recordOf()
{
  BaseClassRegister record;
  C::serialization_register(&record);
  return record;
}

/// A record holds one pointer, for saving and for loading. A save entry does not change the object.
template <class C>
void* objectPointer(const C& object)
{
  return const_cast<C*>(&object); // NOLINT(cppcoreguidelines-pro-type-const-cast)
}

/// Frames hold positions of 32 bits.
inline unsigned int frameStart(PersistenceArchiver& archive)
{
  return static_cast<unsigned int>(archive.tellp() + 4);
}

inline unsigned int frameEnd(PersistenceArchiver& archive)
{
  return static_cast<unsigned int>(archive.tellp());
}

inline unsigned int readVersionOf(const BaseClassRegister& met)
{
  return met.classHash != BaseClassRegister::unknownClassHash ? met.readVersion : noVersion;
}

inline void saveName(PersistenceArchiver& archive, const NameInterface& named)
{
  const auto start = frameStart(archive);
  auto record = recordOf<NameInterface>();
  record.object = objectPointer(named);
  archive.mark_object_start(start, record.classHash);
  record.save(archive, record);
  archive.mark_object_end(start, frameEnd(archive));
}

template <class T>
void saveMembers(PersistenceArchiver& archive, const std::vector<T>& members)
{
  const auto start = frameStart(archive);
  auto record = recordOf<T>();
  archive.mark_object_start(start, record.classHash);
  static_cast<void>(archive << static_cast<unsigned int>(members.size()));
  for (const T& member : members) {
    record.object = objectPointer(member);
    record.save(archive, record);
  }
  archive.mark_object_end(start, frameEnd(archive));
}

inline void loadName(PersistenceArchiver& archive, NameInterface& named)
{
  unsigned int address = 0;
  unsigned int marker = 0;
  unsigned int classHash = 0;
  archive.read_to_address_header(address, marker);
  static_cast<void>(archive >> classHash);

  auto record = recordOf<NameInterface>();
  record.object = &named;
  record.readVersion = noVersion;
  if (classHash == BaseClassRegister::unknownClassHash)
    record.readVersion = 0;
  else
    record.readVersion =
        readVersionOf(archive.classTable().try_emplace(classHash, record).first->second);
  record.load(archive, record);
  archive.end_read_to_address(marker);
}

template <class T>
void loadMembers(PersistenceArchiver& archive, std::vector<T>& members)
{
  unsigned int address = 0;
  unsigned int marker = 0;
  unsigned int classHash = 0;
  unsigned int count = 0;
  archive.read_to_address_header(address, marker);
  static_cast<void>(archive >> classHash);
  static_cast<void>(archive >> count);
  archive.check_container_size(count);
  members.resize(count);

  auto record = recordOf<T>();
  if (classHash == BaseClassRegister::unknownClassHash)
    record.readVersion = 0;
  else
    record.readVersion = readVersionOf(archive.classTable()[classHash]);
  for (T& member : members) {
    record.object = &member;
    record.load(archive, record);
  }
  archive.end_read_to_address(marker);
}

}

/// Registers one kind of group with the archive.
template <class T>
class GroupRegistration {
public:
  /// Registers the class if needed.
  /// @return its record; null when the archive refuses the class
  static BaseClassRegister* registerClass();

  /// The class's hash, or the unknown one when the archive refuses the class.
  static unsigned int registeredClassHash();

  /// Registers a new caster between groups and names.
  /// @return whether the archive accepted it
  static bool registerCaster();

  static inline unsigned int s_classHash = 0;
  static inline bool s_isParentRegisteredForSaving = false;
  static inline bool s_isParentRegisteredForLoading = false;

private:
  static BaseClassRegister newRecord();
  static unsigned int runtimeClass(const BaseClassRegister& record);

  static inline BaseClassRegister* s_registeredRecord = nullptr;
};

template <class T>
BaseClassRegister* GroupRegistration<T>::registerClass()
{
  using namespace GroupPersistence;
  if (s_registeredRecord != nullptr)
    return s_registeredRecord;

  s_registeredRecord =
      PersistenceArchiver::registerFactory(className<T>, newRecord(), classVersion);
  if (s_registeredRecord != nullptr)
    PersistenceArchiver::registerHash(typeNameHash(typeid(TKGroup<T>)),
                                      s_registeredRecord->classHash);
  return s_registeredRecord;
}

template <class T>
unsigned int GroupRegistration<T>::registeredClassHash()
{
  const auto* const registered = registerClass();
  return registered != nullptr ? registered->classHash : BaseClassRegister::unknownClassHash;
}

template <class T>
BaseClassRegister GroupRegistration<T>::newRecord()
{
  using namespace GroupPersistence;
  BaseClassRegister record;
  record.load = [](PersistenceArchiver& archive, BaseClassRegister& loaded) {
    static_cast<TKGroup<T>*>(loaded.object)->load(archive, loaded.readVersion);
  };
  record.save = [](PersistenceArchiver& archive, BaseClassRegister& saved) {
    static_cast<const TKGroup<T>*>(saved.object)->save(archive, saved.writeVersion);
  };
  record.create = []() -> void* { return new TKGroup<T>; };
  record.runtimeClass = &runtimeClass;
  record.createContainer = []() -> MapContainer* { return new PointerMapContainer<TKGroup<T>>; };
  record.word = 1;
  record.classHash = 0; // the archive assigns it
  record.writeVersion = versionOrCurrent(classVersion);
  record.readVersion = record.writeVersion;
  return record;
}

template <class T>
unsigned int GroupRegistration<T>::runtimeClass(const BaseClassRegister& record)
{
  [[maybe_unused]] static const auto classHash = registeredClassHash(); // once, from any thread
  const auto& group = *static_cast<const TKGroup<T>*>(record.object);
  return PersistenceArchiver::getHashForType(GroupPersistence::typeNameHash(typeid(group)));
}

template <class T>
bool GroupRegistration<T>::registerCaster()
{
  using namespace GroupPersistence;
  recordOf<NameInterface>(); // the base class is registered first
  registerClass();
  auto caster = std::make_unique<CasterAccess<NameInterface, TKGroup<T>, 1, 0>>(
      [](void* derived) { return derived; },
      [](void* base) -> void* {
        return dynamic_cast<TKGroup<T>*>(static_cast<NameInterface*>(base));
      });
  const auto childHash = classOrNameHash(typeid(TKGroup<T>));
  const auto parentHash = classOrNameHash(typeid(NameInterface));
  return PersistenceArchiver::registerCaster(parentHash, childHash, caster.release());
}

template <class T>
bool TKGroup<T>::s_force_serialization_registration = false;

template <class T>
void TKGroup<T>::serialization_register(void* out)
{
  if (const auto* const registered = GroupRegistration<T>::registerClass())
    *static_cast<BaseClassRegister*>(out) = *registered;
}

template <class T>
void TKGroup<T>::save(PersistenceArchiver& archive, unsigned int /*version*/) const
{
  if (!GroupRegistration<T>::s_isParentRegisteredForSaving)
    throw ParentNotRegistered();
  GroupPersistence::saveName(archive, *this);
  static_cast<void>(archive << m_id);
  GroupPersistence::saveMembers(archive, m_members);
}

template <class T>
void TKGroup<T>::load(PersistenceArchiver& archive, unsigned int /*version*/)
{
  if (!GroupRegistration<T>::s_isParentRegisteredForLoading)
    throw ParentNotRegistered();
  GroupPersistence::loadName(archive, *this);
  static_cast<void>(archive >> m_id);
  GroupPersistence::loadMembers(archive, m_members);
}

extern template class GroupRegistration<Identifier>;
extern template class GroupRegistration<GUIdentifier>;

}
