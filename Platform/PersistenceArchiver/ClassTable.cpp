// SPDX-License-Identifier: MIT
#include "PersistenceArchiver/ClassTable.h"

#include "PersistenceArchiver/ArchiveComplaints.h"
#include "PersistenceArchiver/ArchiveFormat.h"
#include "PersistenceArchiver/ArchiveReader.h"
#include "PersistenceArchiver/ArchiveWriter.h"
#include "PersistenceArchiver/ClassRegistry.h"

#include <string>

namespace Tarvik::ClassTable {

using namespace ArchiveComplaints;

namespace {

void readEntry(Records& classes, ArchiveReader& reader)
{
  const auto place = reader.position();
  const auto hash = reader.take<std::uint32_t>();
  const auto version = reader.take<std::uint32_t>();
  const auto name = reader.takeText();

  if (const auto expected = ClassRegistry::hashOf(name); hash != expected)
    refuse(place, "the hash of the class \"" + name + "\", " + std::to_string(expected),
           std::to_string(hash), damaged);
  const auto* const known = ClassRegistry::find(hash);
  if (known == nullptr || known->name != name)
    refuse(place, "classes that the program knows",
           '"' + name + "\" in version " + std::to_string(version), useNewerProgram);
  if (const auto newest = known->record.writeVersion; version > newest)
    refuse(place, "the class \"" + name + "\" in version " + std::to_string(newest) + " at most",
           "version " + std::to_string(version), useNewerProgram);

  const auto [entry, isNew] = classes.try_emplace(hash, known->record);
  if (!isNew)
    refuse(place, "each class once in the table", '"' + name + "\" again", damaged);
  entry->second.readVersion = version;
}

}

void add(Records& classes, unsigned int classHash)
{
  if (classes.contains(classHash))
    return;
  if (const auto* const known = ClassRegistry::find(classHash))
    classes.emplace(classHash, known->record);
}

void write(Records& classes, ArchiveWriter& writer)
{
  std::erase_if(classes,
                [](const auto& entry) { return ClassRegistry::find(entry.first) == nullptr; });
  writer.appendCount(classes.size());
  for (const auto& [hash, record] : classes) {
    writer.append(hash);
    writer.append(record.writeVersion);
    writer.append(ClassRegistry::find(hash)->name);
  }
}

Records read(ArchiveReader& reader)
{
  Records classes;
  for (auto count = reader.takeCount(ArchiveFormat::leastTableEntrySize); count > 0; --count)
    readEntry(classes, reader);
  if (reader.remaining() > 0)
    refuse(reader.position(), "the end of the class table", bytesText(reader.remaining()) + " more",
           damaged);
  return classes;
}

}
