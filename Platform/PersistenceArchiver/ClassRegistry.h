// SPDX-License-Identifier: MIT
#pragma once

#include "PersistenceArchiver/BaseClassRegister.h"

#include <optional>
#include <string>
#include <vector>

namespace Tarvik {
class Caster;
}

/// The registry of the program: its classes, their types, and the casters between them. The static
/// operations of PersistenceArchiver fill it. Not for hosts. May be used from any thread.
namespace Tarvik::ClassRegistry {

struct RegisteredClass {
  std::string name;
  unsigned int version = 0;
  BaseClassRegister record;
};

/// As PersistenceArchiver::getHashForName().
unsigned int hashOf(const std::string& name);

/// As PersistenceArchiver::registerFactory().
BaseClassRegister*
registerClass(const std::string& name, const BaseClassRegister& record, unsigned int version);

/// As PersistenceArchiver::registerHash().
void registerType(unsigned int typeNameHash, unsigned int classHash);

/// As PersistenceArchiver::getHashForType().
unsigned int classOfType(unsigned int typeNameHash);

/// As PersistenceArchiver::registerCaster().
bool registerCaster(unsigned int parentHash, unsigned int childHash, Caster* caster);

/// The class, valid as long as the library is loaded; null when there is none with that hash.
const RegisteredClass* find(unsigned int classHash);

/// The name of the class in quotes, or a text that says that it is not known.
std::string describe(unsigned int classHash);

/// The casters that lead from a class up to one of its bases, in this order. Empty from a class to
/// itself.
using CasterPath = std::vector<const Caster*>;

/// The way from the child up to the parent, which may be the same class, or a base of a base;
/// nothing when no casters lead there.
std::optional<CasterPath> findPath(unsigned int childHash, unsigned int parentHash);

/// Converts a pointer to an object of the class where the path begins. Needs no memory.
void* toBase(void* object, const CasterPath& path);

/// Converts a pointer to an object of the class where the path ends; null when the object is not of
/// the class where it begins.
void* toDerived(void* object, const CasterPath& path);

}
