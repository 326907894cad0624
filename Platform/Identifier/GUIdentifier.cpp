// SPDX-License-Identifier: MIT
#include "Identifier/GUIdentifier.h"

#include "Identifier/IdentifierArchive.h"
#include "Identifier/IdentifierText.h"

namespace Tarvik {

namespace {

const BaseClassRegister* registeredGUIdentifier()
{
  static const auto* const registered =
      IdentifierArchive::registerIdentifierClass<GUIdentifier>("GUIdentifier");
  return registered;
}

/// Registers when the library is loaded: an archive may hold identifiers before the program has
/// made one.
[[maybe_unused]] const auto* const guIdentifierIsRegistered = registeredGUIdentifier();

}

const GUIdentifier& GUIdentifier::getInvalidId()
{
  static constinit const GUIdentifier invalid{IdentifierBits{}};
  return invalid;
}

std::string GUIdentifier::toString() const
{
  auto text = IdentifierText::toDigits(m_bits);
  for (const std::size_t hyphen :
       {20U, 16U, 12U, 8U}) // from the back, so that the other positions stay right
    text.insert(hyphen, 1, '-');
  return text;
}

std::optional<GUIdentifier> GUIdentifier::fromString(std::string_view text)
{
  if (text.size() != 36)
    return std::nullopt;
  std::string digits(text);
  for (const std::size_t hyphen : {23U, 18U, 13U, 8U}) {
    if (digits[hyphen] != '-')
      return std::nullopt;
    digits.erase(hyphen, 1);
  }
  const auto bits = IdentifierText::fromDigits(digits);
  return bits ? std::optional<GUIdentifier>(*bits) : std::nullopt;
}

void GUIdentifier::serialization_register(void* out)
{
  if (const auto* const registered = registeredGUIdentifier())
    *static_cast<BaseClassRegister*>(out) = *registered;
}

}
