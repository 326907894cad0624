// SPDX-License-Identifier: MIT
#include "Identifier/Identifier.h"

#include "Identifier/IdentifierArchive.h"
#include "Identifier/IdentifierText.h"

namespace Tarvik {

namespace {

const BaseClassRegister* registeredIdentifier()
{
  static const auto* const registered =
      IdentifierArchive::registerIdentifierClass<Identifier>("Identifier");
  return registered;
}

/// Registers when the library is loaded: an archive may hold identifiers before the program has
/// made one.
[[maybe_unused]] const auto* const identifierIsRegistered = registeredIdentifier();

}

const Identifier& Identifier::getInvalidId()
{
  static constinit const Identifier invalid{IdentifierBits{}};
  return invalid;
}

std::string Identifier::toString() const
{
  return IdentifierText::toDigits(m_bits);
}

std::optional<Identifier> Identifier::fromString(std::string_view text)
{
  const auto bits = IdentifierText::fromDigits(text);
  return bits ? std::optional<Identifier>(*bits) : std::nullopt;
}

void Identifier::serialization_register(void* out)
{
  if (const auto* const registered = registeredIdentifier())
    *static_cast<BaseClassRegister*>(out) = *registered;
}

PersistenceArchiver& operator<<(PersistenceArchiver& archive, const Identifier& identifier)
{
  IdentifierArchive::write(archive, identifier.bits());
  return archive;
}

PersistenceArchiver& operator>>(PersistenceArchiver& archive, Identifier& identifier)
{
  identifier = Identifier(IdentifierArchive::read(archive));
  return archive;
}

}
