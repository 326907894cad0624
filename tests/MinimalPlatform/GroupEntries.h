// SPDX-License-Identifier: MIT
#pragma once

#include "RecordedArchive.h"
#include "RecordedRegistry.h"
#include "Support/GroupRecords.h"
#include "Support/Groups.h"

#include <exception>
#include <string>
#include <vector>

/// How the tests of this platform save and load one group, and write one to load.
namespace Tarvik {

using Calls = std::vector<std::string>;

/// Calls the save entry as the archive does.
template <class T>
void save(TKGroup<T>& group, RecordedArchive& archive, BaseClassRegister record)
{
  PersistenceArchiver archiver(archive);
  record.object = &group;
  record.save(archiver, record);
}

template <class T>
void save(TKGroup<T>& group, RecordedArchive& archive)
{
  save(group, archive, recordOf<TKGroup<T>>());
}

/// Calls the load entry as the archive does.
template <class T>
void load(TKGroup<T>& group, RecordedArchive& archive, BaseClassRegister record)
{
  PersistenceArchiver archiver(archive);
  record.object = &group;
  record.load(archiver, record);
}

template <class T>
void load(TKGroup<T>& group, RecordedArchive& archive)
{
  load(group, archive, recordOf<TKGroup<T>>());
}

/// A group as it is in an archive.
template <class T>
struct GroupBody {
  std::string name{};
  Identifier id{};
  std::vector<T> members{};
  unsigned int nameClass = recordOf<NameInterface>().classHash;
  unsigned int memberClass = recordOf<T>().classHash;

  RecordedArchive written() const
  {
    RecordedArchive archive;
    PersistenceArchiver archiver(archive);
    archiver.mark_object_start(4, nameClass);
    archive.write(name, name.size());
    static_cast<void>(archiver << id);
    archiver.mark_object_start(static_cast<unsigned int>(archive.position + 4), memberClass);
    static_cast<void>(archiver << static_cast<unsigned int>(members.size()));
    auto record = recordOf<T>();
    for (T member : members) {
      record.object = &member;
      record.save(archiver, record);
    }
    return archive;
  }
};

/// The text of the standard exception that the operation throws; another text if it throws none.
template <class Operation>
std::string failureOf(Operation operation)
{
  try {
    operation();
  } catch (const std::exception& failure) {
    return failure.what();
  }
  return "nothing was thrown";
}

}
