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

/// Tells one thing from all others: a value of 128 bits, written as 32 hexadecimal digits.
class TKM_IDENTIFIER_API Identifier {
public:
  /// A new identifier, unlike any other in this and any other process.
  /// @throws what IdentifierBits::unique() throws
  Identifier() : m_bits(IdentifierBits::unique()) {}

  /// The identifier with these bits; one whose bits are all zero is the invalid one.
  explicit constexpr Identifier(const IdentifierBits& bits) : m_bits(bits) {}

  /// The same identifier once more.
  Identifier(const Identifier& other) = default;

  /// Becomes the other identifier.
  Identifier& operator=(const Identifier& other) = default;

  /// False only for the invalid identifier, whose bits are all zero.
  constexpr bool isValid() const { return !m_bits.isZero(); }

  /// The invalid identifier; the reference is valid as long as the library is loaded.
  static const Identifier& getInvalidId();

  /// The 128 bits.
  constexpr const IdentifierBits& bits() const { return m_bits; }

  /// 32 hexadecimal digits, lower case.
  std::string toString() const;

  /// Reads what toString() writes, in lower or upper case.
  /// @return nothing when the text is anything else
  static std::optional<Identifier> fromString(std::string_view text);

  /// Makes the class known to the archive, once, and tells how it is saved and loaded.
  /// @param out  a BaseClassRegister, which is overwritten with the class's record
  static void serialization_register(void* out);

  friend constexpr bool operator==(const Identifier& a, const Identifier& b)
  {
    return a.m_bits == b.m_bits;
  }
  // NOLINTNEXTLINE(modernize-use-nullptr): of the code that the compiler writes
  friend constexpr auto operator<=>(const Identifier& a, const Identifier& b) = default;

private:
  IdentifierBits m_bits;
};

/// Writes the identifier's bits.
TKM_IDENTIFIER_API PersistenceArchiver& operator<<(PersistenceArchiver& archive,
                                                   const Identifier& identifier);

/// Reads an identifier's bits.
/// @throws ArchiveError when the archive ends before; the identifier is unchanged
TKM_IDENTIFIER_API PersistenceArchiver& operator>>(PersistenceArchiver& archive,
                                                   Identifier& identifier);

}

template <>
struct std::hash<Tarvik::Identifier> {
  std::size_t operator()(const Tarvik::Identifier& identifier) const noexcept
  {
    return identifier.bits().hash();
  }
};
