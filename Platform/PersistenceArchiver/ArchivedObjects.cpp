// SPDX-License-Identifier: MIT
// How PersistenceArchiver saves and loads objects and shared objects, by their records.

#include "PersistenceArchiver/ArchiveComplaints.h"
#include "PersistenceArchiver/ArchiveFormat.h"
#include "PersistenceArchiver/ClassRegistry.h"
#include "PersistenceArchiver/LoadedObjects.h"
#include "PersistenceArchiver/PersistenceArchiver.h"
#include "PersistenceArchiver/SavedObjects.h"

#include <optional>
#include <string>
#include <utility>

namespace Tarvik {

using ArchiveComplaints::complain;
using ArchiveComplaints::damaged;
using ArchiveComplaints::refuse;
using ClassRegistry::CasterPath;
using ClassRegistry::describe;

namespace {

/// How an object of the class becomes one of the declared class; nothing if it must not be made for
/// a pointer to that. Without virtual operations there, it would be destroyed as one of the
/// declared class.
std::optional<CasterPath> pathTo(const BaseClassRegister& declared, unsigned int classHash)
{
  if (declared.runtimeClass == nullptr && classHash != declared.classHash)
    return std::nullopt;
  return ClassRegistry::findPath(classHash, declared.classHash);
}

/// @param next  the number of the object that comes for the first time
unsigned int takeObjectNumber(ArchiveReader& reader, std::size_t next)
{
  const auto place = reader.position();
  const auto number = reader.take<std::uint32_t>();
  if (number > next)
    refuse(place, "the number of a shared object, at most " + std::to_string(next),
           std::to_string(number), damaged);
  return number;
}

/// What is needed to make and load an object.
struct NewObject {
  const BaseClassRegister& record; ///< of its own class
  std::optional<CasterPath> path;  ///< to the declared class; there is one
};

/// Finds out what the frame that comes next needs, and enters it.
NewObject enterObjectFor(const BaseClassRegister& declared, ArchiveReader& reader)
{
  reader.enterFrame();
  const auto place = reader.position();
  const auto classHash = reader.frameClass();
  const auto* const known = ClassRegistry::find(classHash);
  auto path = pathTo(declared, classHash);
  if (known == nullptr || !path)
    refuse(place,
           "an object of the class " + describe(declared.classHash) + " or one derived from it",
           "one of the class " + describe(classHash));
  if (known->record.create == nullptr || known->record.load == nullptr)
    refuse(place, "an object of a class that makes and loads objects",
           "one of the class " + describe(classHash));
  return {known->record, std::move(path)};
}

/// The object as one of the declared class. Needs no memory, unless it refuses.
/// @param path  from the object's own class to the declared one; without it, the object is refused
void* convert(const LoadedObject& object,
              const std::optional<CasterPath>& path,
              const BaseClassRegister& declared,
              const ArchiveReader& reader)
{
  auto* const converted = path ? ClassRegistry::toBase(object.object, *path) : nullptr;
  if (converted == nullptr)
    refuse(reader.position() - ArchiveFormat::wordSize,
           "a shared object of the class " + describe(declared.classHash),
           "one of the class " + describe(object.classHash));
  return converted;
}

/// Makes the object of the frame that comes next, which is entered.
/// @param record  becomes that of the object and its own class
std::shared_ptr<void> makeObjectFor(const BaseClassRegister& declared,
                                    const SharedPointerAccess& access,
                                    ArchiveReader& reader,
                                    LoadedObjects& objects,
                                    BaseClassRegister& record)
{
  const auto [ofItsClass, path] = enterObjectFor(declared, reader);
  auto& created = objects.create(ofItsClass);
  // nothing between these two may need memory: nobody owns the object yet
  created.owner = access.own(convert(created, path, declared, reader));
  record = ofItsClass;
  record.object = created.object;
  return created.owner;
}

/// Loads the record's object from the frame that was entered, and leaves the frame.
void callLoadEntry(PersistenceArchiver& archive, ArchiveReader& reader, BaseClassRegister& record)
{
  if (record.load == nullptr)
    complain("the class " + describe(record.classHash) + " has no load entry");
  const auto& classes = archive.classTable();
  const auto known = classes.find(record.classHash);
  if (known == classes.end() || known->second.classHash != record.classHash)
    refuse(reader.position(), "a class of the class table",
           "the class " + describe(record.classHash), damaged);
  record.readVersion = known->second.readVersion;

  const auto depth = reader.depth();
  const auto end = reader.frameEnd();
  static_cast<void>(reader.take<std::uint32_t>()); // the class hash
  record.load(archive, record);
  if (reader.depth() != depth) // a frame within may have the same end
    complain("the load entry of the class " + describe(record.classHash) +
             " leaves other frames than it enters");
  reader.leaveFrame(end);
}

}

void PersistenceArchiver::requireRegistered(const BaseClassRegister& record,
                                            const std::type_info& type)
{
  if (record.classHash == BaseClassRegister::unknownClassHash ||
      record.classHash != getHashForType(getHashForName(type.name())))
    complain(std::string("the class ") + type.name() +
             " is not registered; a derived class needs its own registration");
}

void PersistenceArchiver::saveObject(BaseClassRegister& record)
{
  if (record.save == nullptr)
    complain("the class " + describe(record.classHash) + " has no save entry");
  const auto start = static_cast<unsigned int>(m_writer.position() + ArchiveFormat::wordSize);
  mark_object_start(start, record.classHash);
  record.save(*this, record);
  m_writer.closeFrame(start, m_writer.position());
}

void PersistenceArchiver::loadObject(BaseClassRegister& record)
{
  m_reader.enterFrame();
  if (const auto found = m_reader.frameClass(); found != record.classHash)
    refuse(m_reader.position(), "an object of the class " + describe(record.classHash),
           "one of the class " + describe(found));
  callLoadEntry(*this, m_reader, record);
}

void PersistenceArchiver::saveShared(const BaseClassRegister& declared,
                                     const std::shared_ptr<void>& object)
{
  if (object == nullptr) {
    m_writer.append(ArchiveFormat::noObject);
    return;
  }

  auto asked = declared;
  asked.object = object.get();
  const auto classHash =
      declared.runtimeClass != nullptr ? declared.runtimeClass(asked) : declared.classHash;
  const auto* const known = ClassRegistry::find(classHash);
  const auto path = ClassRegistry::findPath(classHash, declared.classHash);
  auto* const asItself = path ? ClassRegistry::toDerived(object.get(), *path) : nullptr;
  if (known == nullptr || asItself == nullptr)
    complain("a shared object saved as one of the class " + describe(declared.classHash) +
             " is of a derived class that is not registered, or has no caster");

  const auto number = m_savedObjects->numberOf(object, asItself, classHash);
  m_writer.append(number.value);
  if (!number.isNew)
    return;
  auto record = known->record;
  record.object = asItself;
  saveObject(record);
}

std::shared_ptr<void> PersistenceArchiver::loadShared(const BaseClassRegister& declared,
                                                      const SharedPointerAccess& access)
{
  auto& objects = *m_loadedObjects;
  const auto number = takeObjectNumber(m_reader, objects.count() + 1);
  if (number == ArchiveFormat::noObject)
    return nullptr;

  auto& pointers = objects.pointersTo(declared);
  if (auto pointer = access.get(pointers, number))
    return pointer;

  if (number <= objects.count()) { // so far handed out as another class
    const auto& known = objects[number];
    const auto path = ClassRegistry::findPath(known.classHash, declared.classHash);
    std::shared_ptr<void> pointer(known.owner, convert(known, path, declared, m_reader));
    access.add(pointers, number, pointer);
    return pointer;
  }

  BaseClassRegister record;
  auto pointer = makeObjectFor(declared, access, m_reader, objects, record);
  access.add(pointers, number, pointer); // before it is loaded: it may lead back to itself
  callLoadEntry(*this, m_reader, record);
  return pointer;
}

}
