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

/// Tells one thing from all others, also between programs: a UUID in the layout of RFC 9562,
/// written as "xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx".
class TKM_IDENTIFIER_API GUIdentifier {
public:
  /// A new identifier, unlike any other in this and any other process; a UUID of version 8.
  /// @throws what IdentifierBits::unique() throws
  GUIdentifier() : m_bits(IdentifierBits::unique()) {}

  /// The identifier with these bits; one whose bits are all zero is the invalid one.
  explicit constexpr GUIdentifier(const IdentifierBits& bits) : m_bits(bits) {}

  /// The same identifier once more.
  GUIdentifier(const GUIdentifier& other) = default;

  /// Becomes the other identifier.
  GUIdentifier& operator=(const GUIdentifier& other) = default;
  constexpr ~GUIdentifier() {} // NOLINT(modernize-use-equals-default): must not be trivial

  /// False only for the invalid identifier, whose bits are all zero (the RFC's Nil UUID).
  constexpr bool isValid() const { return !m_bits.isZero(); }

  /// The invalid identifier; the reference is valid as long as the library is loaded.
  static const GUIdentifier& getInvalidId();

  /// The 128 bits.
  constexpr const IdentifierBits& bits() const { return m_bits; }

  /// 36 characters, the digits in lower case.
  std::string toString() const;

  /// Reads a UUID of any version in the form that toString() writes, in lower or upper case.
  /// @return nothing when the text is anything else
  static std::optional<GUIdentifier> fromString(std::string_view text);

  /// Makes the class known to the archive, once, and tells how it is saved and loaded.
  /// @param out  a BaseClassRegister, which is overwritten with the class's record
  static void serialization_register(void* out);

  friend constexpr bool operator==(const GUIdentifier& a, const GUIdentifier& b)
  {
    return a.m_bits == b.m_bits;
  }
  // NOLINTNEXTLINE(modernize-use-nullptr): of the code that the compiler writes
  friend constexpr auto operator<=>(const GUIdentifier& a, const GUIdentifier& b) = default;

private:
  IdentifierBits m_bits;
};

}

template <>
struct std::hash<Tarvik::GUIdentifier> {
  std::size_t operator()(const Tarvik::GUIdentifier& identifier) const noexcept
  {
    return identifier.bits().hash();
  }
};
