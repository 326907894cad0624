// SPDX-License-Identifier: MIT
#pragma once

#include "Recording.h"

namespace Tarvik {

/// A number. Records assignments.
class GUIdentifier {
public:
  GUIdentifier();
  GUIdentifier(const GUIdentifier& other) = default;
  GUIdentifier&
  operator=(const GUIdentifier& other) // NOLINT(bugprone-unhandled-self-assignment): one number
  {
    Recording::note("GUIdentifier = ", &other == this ? "itself" : "another");
    m_number = other.m_number;
    return *this;
  }
  ~GUIdentifier() {} // NOLINT(modernize-use-equals-default): not trivial

  bool isValid() const { return m_number != 0; }
  static const GUIdentifier& getInvalidId();
  static void serialization_register(void* out);

  friend bool operator==(const GUIdentifier& a, const GUIdentifier& b);

private:
  template <class C>
  friend struct IdentifierEntries;

  explicit GUIdentifier(unsigned long long number) : m_number(number) {}

  unsigned long long m_number;
};

inline bool operator==(const GUIdentifier& a, const GUIdentifier& b)
{
  return a.m_number == b.m_number;
}

}
