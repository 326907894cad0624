// SPDX-License-Identifier: MIT
#include "PersistenceArchiver/PersistenceArchiver.h"

#include "PersistenceArchiver/ArchiveFormat.h"
#include "PersistenceArchiver/ClassRegistry.h"
#include "PersistenceArchiver/LoadedObjects.h"
#include "PersistenceArchiver/SavedObjects.h"

namespace Tarvik {

BaseClassRegister* PersistenceArchiver::registerFactory(const std::string& name,
                                                        const BaseClassRegister& record,
                                                        unsigned int version)
{
  return ClassRegistry::registerClass(name, record, version);
}

unsigned int PersistenceArchiver::getHashForName(const std::string& name)
{
  return ClassRegistry::hashOf(name);
}

void PersistenceArchiver::registerHash(unsigned int typeNameHash, unsigned int classHash)
{
  ClassRegistry::registerType(typeNameHash, classHash);
}

unsigned int PersistenceArchiver::getHashForType(unsigned int typeNameHash)
{
  return ClassRegistry::classOfType(typeNameHash);
}

bool PersistenceArchiver::registerCaster(unsigned int parentHash,
                                         unsigned int childHash,
                                         Caster* caster)
{
  return ClassRegistry::registerCaster(parentHash, childHash, caster);
}

unsigned int PersistenceArchiver::getCurrentVersion(unsigned int /*reserved*/)
{
  return ArchiveFormat::version;
}

void PersistenceArchiver::checkStart(std::span<const std::byte> start, std::uint64_t size)
{
  ArchiveReader::checkStart(start, size);
}

PersistenceArchiver::PersistenceArchiver()
    : m_savedObjects(std::make_unique<SavedObjects>()),
      m_loadedObjects(std::make_unique<LoadedObjects>())
{}

PersistenceArchiver::PersistenceArchiver(std::span<const std::byte> archive)
    : m_reader(archive),
      m_writer(ArchiveWriter::unused()),
      m_classTable(m_reader.readClassTable()),
      m_savedObjects(std::make_unique<SavedObjects>()),
      m_loadedObjects(std::make_unique<LoadedObjects>())
{}

PersistenceArchiver::~PersistenceArchiver() = default;

std::span<const std::byte> PersistenceArchiver::finish()
{
  return m_writer.finish(m_classTable);
}

void PersistenceArchiver::clear()
{
  m_writer.clear();
  m_classTable.clear();
  m_savedObjects->clear();
}

void PersistenceArchiver::limitSize(std::uint32_t bytes)
{
  m_writer.limitSize(bytes);
}

std::uint64_t PersistenceArchiver::tellp() const noexcept
{
  return m_writer.position();
}

std::uint64_t PersistenceArchiver::tellg() const noexcept
{
  return m_reader.position();
}

bool PersistenceArchiver::isAtEnd() const noexcept
{
  return m_reader.remaining() == 0;
}

void PersistenceArchiver::mark_object_start(unsigned int start, unsigned int classHash)
{
  WholeValue header(m_writer);
  m_writer.openFrame(start, classHash);
  ClassTable::add(m_classTable, classHash);
  header.complete();
}

void PersistenceArchiver::mark_object_end(unsigned int start, unsigned int end)
{
  m_writer.closeFrame(start, end);
}

void PersistenceArchiver::read_to_address_header(unsigned int& address, unsigned int& marker)
{
  m_reader.enterFrame();
  address = static_cast<unsigned int>(m_reader.position());
  marker = static_cast<unsigned int>(m_reader.frameEnd());
}

void PersistenceArchiver::end_read_to_address(unsigned int marker)
{
  m_reader.leaveFrame(marker);
}

void PersistenceArchiver::check_container_size(unsigned int count)
{
  m_reader.checkCount(count);
}

std::map<unsigned int, BaseClassRegister>& PersistenceArchiver::classTable() noexcept
{
  return m_classTable;
}

PersistenceArchiver& PersistenceArchiver::operator<<(const std::string& text)
{
  m_writer.append(text);
  return *this;
}

PersistenceArchiver& PersistenceArchiver::operator>>(std::string& text)
{
  text = m_reader.takeText();
  return *this;
}

}
