// SPDX-License-Identifier: MIT
#pragma once

#include "Identifier/IdentifierBits.h"
#include "PersistenceArchiver/BaseClassRegister.h"
#include "PersistenceArchiver/PersistenceArchiver.h"

#include <string>

/// How the identifiers of this library are saved and loaded. Not for others.
namespace Tarvik::IdentifierArchive {

inline void write(PersistenceArchiver& archive, const IdentifierBits& bits)
{
  archive << bits.high << bits.low;
}

inline IdentifierBits read(PersistenceArchiver& archive)
{
  IdentifierBits bits;
  archive >> bits.high >> bits.low;
  return bits;
}

/// Registers one of the identifier classes under its name.
template <class C>
const BaseClassRegister* registerClass(const std::string& name)
{
  constexpr unsigned int version = 1;
  return PersistenceArchiver::registerFactory(
      name,
      {.load =
           [](PersistenceArchiver& archive, BaseClassRegister& record) {
             *static_cast<C*>(record.object) = C(read(archive));
           },
       .save =
           [](PersistenceArchiver& archive, BaseClassRegister& record) {
             write(archive, static_cast<const C*>(record.object)->bits());
           },
       .create = []() -> void* { return new C; },
       .writeVersion = version,
       .readVersion = version},
      version);
}

}
