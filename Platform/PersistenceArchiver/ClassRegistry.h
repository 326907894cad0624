// SPDX-License-Identifier: MIT
#pragma once

#include "PersistenceArchiver/BaseClassRegister.h"

#include <string>

/// What the archive asks of the registry that PersistenceArchiver's static operations fill. Not for
/// others. May be used from any thread.
namespace Tarvik::ClassRegistry {

struct RegisteredClass {
  std::string name;
  unsigned int version = 0;
  BaseClassRegister record;
};

/// The class, valid as long as the library is loaded; null when there is none with that hash.
const RegisteredClass* find(unsigned int classHash);

/// The name of the class in quotes, or a text that says that it is not known.
std::string describe(unsigned int classHash);

/// Whether pointers to the child can be converted to pointers to the parent, which may be the same
/// class, or a base of a base.
bool isBase(unsigned int parentHash, unsigned int childHash);

/// Converts a pointer to an object of the class `childHash`; null when no caster leads there.
void* toBase(void* object, unsigned int childHash, unsigned int parentHash);

/// Converts a pointer to an object of the class `parentHash`; null when no caster leads there, or
/// the object is none of that class.
void* toDerived(void* object, unsigned int parentHash, unsigned int childHash);

}
