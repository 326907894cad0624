// SPDX-License-Identifier: MIT
#pragma once

#include "Recording.h"

#include <string>

namespace Tarvik {

class PersistenceArchiver;

/// A number. Records assignments and comparisons.
class Identifier {
public:
  Identifier();
  Identifier(const Identifier& other) = default;
  Identifier&
  operator=(const Identifier& other) // NOLINT(bugprone-unhandled-self-assignment): one number
  {
    Recording::note("Identifier = ", &other == this ? "itself" : "another");
    m_number = other.m_number;
    return *this;
  }
  ~Identifier() {} // NOLINT(modernize-use-equals-default): not trivial

  bool isValid() const { return m_number != 0; }
  static const Identifier& getInvalidId();
  static void serialization_register(void* out);

  friend bool operator==(const Identifier& a, const Identifier& b);

private:
  template <class C>
  friend struct IdentifierEntries;
  friend PersistenceArchiver& operator<<(PersistenceArchiver& archive,
                                         const Identifier& identifier);
  friend PersistenceArchiver& operator>>(PersistenceArchiver& archive, Identifier& identifier);

  explicit Identifier(unsigned long long number) : m_number(number) {}

  unsigned long long m_number;
};

inline bool operator==(const Identifier& a, const Identifier& b)
{
  if (Recording::isActive())
    Recording::note(std::to_string(a.m_number), " == " + std::to_string(b.m_number));
  return a.m_number == b.m_number;
}

[[nodiscard]] PersistenceArchiver& operator<<(PersistenceArchiver& archive,
                                              const Identifier& identifier);
[[nodiscard]] PersistenceArchiver& operator>>(PersistenceArchiver& archive, Identifier& identifier);

}
