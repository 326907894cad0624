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

class PersistenceArchiver;

/// A value of 128 bits that identifies one thing. Written as 32 hexadecimal digits.
class TKM_IDENTIFIER_API Identifier {
public:
  /// A new identifier, unlike any other in this and any other process.
  /// @throws whatever IdentifierBits::unique() throws
  Identifier() : m_bits(IdentifierBits::unique()) {}

  /// The identifier with these bits; the invalid one when they are all zero.
  explicit constexpr Identifier(const IdentifierBits& bits) : m_bits(bits) {}

  Identifier(const Identifier& other) = default;
  Identifier& operator=(const Identifier& other) = default;

  /// False only when all bits are zero.
  constexpr bool isValid() const { return !m_bits.isZero(); }

  /// The invalid identifier. The reference is valid as long as the library is loaded.
  static const Identifier& getInvalidId();

  /// The 128 bits.
  constexpr const IdentifierBits& bits() const { return m_bits; }

  /// 32 hexadecimal digits, lower case.
  std::string toString() const;

  /// Reads what toString() writes, in lower or upper case.
  /// @return nothing for any other text
  static std::optional<Identifier> fromString(std::string_view text);

  /// Copies the record of this class, which says how to save and load it. Registers it first if
  /// needed.
  /// @param out  the BaseClassRegister to overwrite
  static void serialization_register(void* out);

private:
  IdentifierBits m_bits;
};

/// Whether all bits are equal.
constexpr bool operator==(const Identifier& a, const Identifier& b)
{
  return a.bits() == b.bits();
}

/// The order of the text forms.
constexpr std::strong_ordering operator<=>(const Identifier& a, const Identifier& b)
{
  return a.bits() <=> b.bits();
}

/// Writes the identifier's bits.
TKM_IDENTIFIER_API PersistenceArchiver& operator<<(PersistenceArchiver& archive,
                                                   const Identifier& identifier);

/// Reads an identifier's bits.
/// @throws ArchiveError when the archive ends too early; the identifier is then unchanged
TKM_IDENTIFIER_API PersistenceArchiver& operator>>(PersistenceArchiver& archive,
                                                   Identifier& identifier);

}

template <>
struct std::hash<Tarvik::Identifier> {
  using is_avalanching = void; ///< tells hash tables that the bits need no more mixing

  std::size_t operator()(const Tarvik::Identifier& identifier) const noexcept
  {
    return identifier.bits().hash();
  }

  /// A hash that costs less and that anybody can predict.
  static std::size_t quick(const Tarvik::Identifier& identifier) noexcept
  {
    return identifier.bits().quickHash();
  }
};
