// SPDX-License-Identifier: MIT
#pragma once

#include "Identifier/IdentifierBits.h"
#include "PlatformExport.h"

#include <compare>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace Tarvik {

/// A UUID (RFC 9562): a value of 128 bits that identifies one thing, also to other programs.
/// Written as "xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx".
class TKM_IDENTIFIER_API GUIdentifier {
public:
  /// A new identifier, unlike any other in this and any other process; a UUID of version 8.
  /// @throws whatever IdentifierBits::unique() throws
  GUIdentifier() : m_bits(IdentifierBits::unique()) {}

  /// The identifier with these bits; the invalid one when they are all zero.
  explicit constexpr GUIdentifier(const IdentifierBits& bits) : m_bits(bits) {}

  GUIdentifier(const GUIdentifier& other) = default;
  GUIdentifier& operator=(const GUIdentifier& other) = default;
  constexpr ~GUIdentifier() {} // NOLINT(modernize-use-equals-default): must be non-trivial

  /// False only when all bits are zero (the RFC's Nil UUID).
  constexpr bool isValid() const { return !m_bits.isZero(); }

  /// The invalid identifier. The reference is valid as long as the library is loaded.
  static const GUIdentifier& getInvalidId();

  /// The 128 bits.
  constexpr const IdentifierBits& bits() const { return m_bits; }

  /// 36 characters, the digits in lower case.
  std::string toString() const;

  /// Reads a UUID of any version in the form that toString() writes, in lower or upper case.
  /// @return nothing for any other text
  static std::optional<GUIdentifier> fromString(std::string_view text);

  /// Copies the record of this class, which says how to save and load it. Registers it first if
  /// needed.
  /// @param out  the BaseClassRegister to overwrite
  static void serialization_register(void* out);

private:
  IdentifierBits m_bits;
};

/// Whether all bits are equal.
constexpr bool operator==(const GUIdentifier& a, const GUIdentifier& b)
{
  return a.bits() == b.bits();
}

/// The order of the text forms.
constexpr std::strong_ordering operator<=>(const GUIdentifier& a, const GUIdentifier& b)
{
  return a.bits() <=> b.bits();
}

}

template <>
struct std::hash<Tarvik::GUIdentifier> {
  using is_avalanching = void; ///< tells hash tables that the bits need no more mixing

  std::size_t operator()(const Tarvik::GUIdentifier& identifier) const noexcept
  {
    return identifier.bits().hash();
  }

  /// A hash that costs less and that anybody can predict.
  static std::size_t quick(const Tarvik::GUIdentifier& identifier) noexcept
  {
    return identifier.bits().quickHash();
  }
};
