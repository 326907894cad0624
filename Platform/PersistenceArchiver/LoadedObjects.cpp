// SPDX-License-Identifier: MIT
#include "PersistenceArchiver/LoadedObjects.h"

#include "PersistenceArchiver/ArchiveComplaints.h"
#include "PersistenceArchiver/ClassRegistry.h"

namespace Tarvik {

LoadedObjects::~LoadedObjects()
{
  m_pointers.clear(); // they hold shares too
  while (!m_objects.empty())
    m_objects.pop_back();
}

LoadedObject& LoadedObjects::create(const BaseClassRegister& record)
{
  // the place first: nobody would own the object if there were no memory for it
  auto& created = m_objects.emplace_back();
  created.classHash = record.classHash;
  created.object = record.create();
  return created;
}

MapContainer& LoadedObjects::pointersTo(const BaseClassRegister& declared)
{
  auto& pointers = m_pointers[declared.classHash];
  if (pointers == nullptr && declared.createContainer != nullptr)
    pointers.reset(declared.createContainer());
  if (pointers == nullptr)
    ArchiveComplaints::complain("the class " + ClassRegistry::describe(declared.classHash) +
                                " makes no containers for shared pointers");
  return *pointers;
}

}
