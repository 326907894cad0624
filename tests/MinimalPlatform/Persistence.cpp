// SPDX-License-Identifier: MIT
// How the minimal platform saves and loads: values in memory, and a record of every call.

#include "GeneralServices/NameInterface.h"
#include "Identifier/GUIdentifier.h"
#include "Identifier/Identifier.h"
#include "PersistenceArchiver/PersistenceArchiver.h"
#include "RecordedArchive.h"
#include "RecordedRegistry.h"
#include "Recording.h"

namespace Tarvik {

namespace {

constexpr std::size_t wordSize = 4;
constexpr std::size_t identifierSize = 8;

RecordedRegistry& registry()
{
  return RecordedRegistry::get();
}

std::string text(unsigned int value)
{
  return registry().nameOf(value);
}

/// Fills the record of a class of the platform.
void describe(void* out,
              const std::string& name,
              unsigned int version,
              BaseClassRegister::Entry load,
              BaseClassRegister::Entry save)
{
  registry().note(name + "::serialization_register()");
  auto& record = *static_cast<BaseClassRegister*>(out);
  record.load = load;
  record.save = save;
  record.classHash = registry().hashOf(name);
  record.writeVersion = version;
  record.readVersion = version;
}

std::string versionText(unsigned int version)
{
  return " in version " + (version == 0xFFFFFFFF ? "none" : std::to_string(version));
}

}

BaseClassRegister* PersistenceArchiver::registerFactory(const std::string& name,
                                                        const BaseClassRegister& record,
                                                        unsigned int version)
{
  registry().note("registerFactory(" + name + ", " + std::to_string(version) + ")");
  registry().given.insert_or_assign(name, record);
  if (!registryTakesClasses)
    return nullptr;
  auto& registered = registry().registered[name];
  registered = record; // a known class as well: its library may have been loaded again
  registered.classHash = registry().hashOf(name);
  return &registered;
}

unsigned int PersistenceArchiver::getHashForName(const std::string& name)
{
  registry().note("getHashForName(" + name + ")");
  return registry().hashOf(name);
}

void PersistenceArchiver::registerHash(unsigned int typeNameHash, unsigned int classHash)
{
  registry().note("registerHash(" + text(typeNameHash) + ", " + text(classHash) + ")");
  registry().classHashesOfTypes.insert_or_assign(typeNameHash, classHash);
}

unsigned int PersistenceArchiver::getHashForType(unsigned int typeNameHash)
{
  registry().note("getHashForType(" + text(typeNameHash) + ")");
  const auto found = registry().classHashesOfTypes.find(typeNameHash);
  return found != registry().classHashesOfTypes.end() ? found->second
                                                      : BaseClassRegister::unknownClassHash;
}

bool PersistenceArchiver::registerCaster(unsigned int parentHash,
                                         unsigned int childHash,
                                         Caster* caster)
{
  registry().note("registerCaster(" + text(parentHash) + ", " + text(childHash) + ")");
  return registry().take({parentHash, childHash, caster});
}

unsigned int PersistenceArchiver::getCurrentVersion(unsigned int reserved)
{
  registry().note("getCurrentVersion(" + std::to_string(reserved) + ")");
  return 77;
}

std::uint64_t PersistenceArchiver::tellp()
{
  Recording::note("tellp()");
  m_archive.mayFail();
  return m_archive.position;
}

void PersistenceArchiver::mark_object_start(unsigned int start, unsigned int classHash)
{
  Recording::note("mark_object_start(" + std::to_string(start) + ", " + text(classHash) + ")");
  m_archive.mayFail();
  m_archive.write(FrameStart{start + 1000}, wordSize);
  m_archive.write(classHash, wordSize);
}

void PersistenceArchiver::mark_object_end(unsigned int start, unsigned int end)
{
  Recording::note("mark_object_end(" + std::to_string(start) + ", " + std::to_string(end) + ")");
  m_archive.mayFail();
}

void PersistenceArchiver::read_to_address_header(unsigned int& address, unsigned int& marker)
{
  Recording::note("read_to_address_header()");
  m_archive.mayFail();
  marker = m_archive.read<FrameStart>().marker;
  address = marker - 1;
}

void PersistenceArchiver::end_read_to_address(unsigned int marker)
{
  Recording::note("end_read_to_address(" + std::to_string(marker) + ")");
  m_archive.mayFail();
}

void PersistenceArchiver::check_container_size(unsigned int count)
{
  Recording::note("check_container_size(" + std::to_string(count) + ")");
  m_archive.mayFail();
}

PersistenceArchiver& PersistenceArchiver::operator<<(const unsigned int& value)
{
  Recording::note("<< " + text(value));
  m_archive.mayFail();
  m_archive.write(value, wordSize);
  return *this;
}

PersistenceArchiver& PersistenceArchiver::operator>>(unsigned int& value)
{
  m_archive.mayFail();
  value = m_archive.read<unsigned int>();
  Recording::note(">> " + text(value));
  return *this;
}

std::map<unsigned int, BaseClassRegister>& PersistenceArchiver::classTable()
{
  Recording::note("classTable()");
  return m_archive.classTable;
}

void NameInterface::serialization_register(void* out)
{
  describe(
      out, "NameInterface", 11,
      [](PersistenceArchiver& archive, BaseClassRegister& record) {
        Recording::note("load NameInterface" + versionText(record.readVersion));
        recorded(archive).mayFail();
        static_cast<NameInterface*>(record.object)->m_name = recorded(archive).read<std::string>();
      },
      [](PersistenceArchiver& archive, BaseClassRegister& record) {
        Recording::note("save NameInterface" + versionText(record.writeVersion));
        recorded(archive).mayFail();
        const auto& name = static_cast<const NameInterface*>(record.object)->m_name;
        recorded(archive).write(name, name.size());
      });
}

template <class C>
struct IdentifierEntries {
  static void load(PersistenceArchiver& archive, BaseClassRegister& record)
  {
    Recording::note("load " + text(record.classHash) + versionText(record.readVersion));
    recorded(archive).mayFail();
    static_cast<C*>(record.object)->m_number = recorded(archive).read<RecordedArchive::Number>();
  }

  static void save(PersistenceArchiver& archive, BaseClassRegister& record)
  {
    Recording::note("save " + text(record.classHash) + versionText(record.writeVersion));
    recorded(archive).mayFail();
    recorded(archive).write(static_cast<const C*>(record.object)->m_number, identifierSize);
  }
};

void Identifier::serialization_register(void* out)
{
  using Entries = IdentifierEntries<Identifier>;
  describe(out, "Identifier", 12, &Entries::load, &Entries::save);
}

void GUIdentifier::serialization_register(void* out)
{
  using Entries = IdentifierEntries<GUIdentifier>;
  describe(out, "GUIdentifier", 13, &Entries::load, &Entries::save);
}

PersistenceArchiver& operator<<(PersistenceArchiver& archive, const Identifier& identifier)
{
  Recording::note("<< an Identifier");
  recorded(archive).mayFail();
  recorded(archive).write(identifier.m_number, identifierSize);
  return archive;
}

PersistenceArchiver& operator>>(PersistenceArchiver& archive, Identifier& identifier)
{
  Recording::note(">> an Identifier");
  recorded(archive).mayFail();
  identifier.m_number = recorded(archive).read<RecordedArchive::Number>();
  return archive;
}

}
