// SPDX-License-Identifier: MIT
#pragma once

#include "Identifier/IdentifierBits.h"
#include "PersistenceArchiver/BaseClassRegister.h"
#include "PersistenceArchiver/ClassRegistration.h"
#include "PersistenceArchiver/PersistenceArchiver.h"

#include <array>
#include <cstdint>
#include <string>

/// Saves and loads the identifiers. Internal to this library.
namespace Tarvik::IdentifierArchive {

inline void write(PersistenceArchiver& archive, const IdentifierBits& bits)
{
  archive << std::array{bits.high, bits.low};
}

inline IdentifierBits read(PersistenceArchiver& archive)
{
  std::array<std::uint64_t, 2> words{};
  archive >> words;
  return {words[0], words[1]};
}

template <class C>
void load(PersistenceArchiver& archive, C& identifier, unsigned int /*version*/)
{
  identifier = C(read(archive));
}

template <class C>
void save(PersistenceArchiver& archive, const C& identifier, unsigned int /*version*/)
{
  write(archive, identifier.bits());
}

/// Registers an identifier class under its name.
template <class C>
const BaseClassRegister* registerIdentifierClass(const std::string& name)
{
  constexpr unsigned int version = 1;
  constexpr unsigned int size = sizeof(IdentifierBits);
  return registerClass<C, load<C>, save<C>>(name, version, size);
}

}
