// SPDX-License-Identifier: MIT
#pragma once

#include "Support/Identifiers.h"

#include <cstddef>
#include <functional>
#include <ostream>

namespace Tarvik {

/// Identifiers that a host could have. They are numbers, and their hashes are of the given kind.
template <class KindOfHash>
class OwnIdentifier {
public:
  OwnIdentifier() : m_number(++s_lastNumber) {}
  explicit OwnIdentifier(std::size_t number) : m_number(number) {}

  bool isValid() const { return m_number != 0; }
  static const OwnIdentifier& getInvalidId()
  {
    static const OwnIdentifier invalid(0);
    return invalid;
  }
  static void serialization_register(void*) {} // these groups are not saved

  std::size_t number() const { return m_number; }
  friend bool operator==(const OwnIdentifier& a, const OwnIdentifier& b)
  {
    return a.m_number == b.m_number;
  }
  friend void PrintTo(const OwnIdentifier& id, std::ostream* out) { *out << printedName(id); }

private:
  static inline std::size_t s_lastNumber = 0;
  std::size_t m_number;
};

/// Only a hash, which few numbers share.
struct PlainHash {
  template <class T>
  std::size_t operator()(const T& id) const noexcept
  {
    return id.number() / 2;
  }
};

/// A quick hash that is always the same, as somebody may arrange it.
struct EqualQuickHashes : PlainHash {
  template <class T>
  static std::size_t quick(const T&) noexcept
  {
    return 7;
  }
};

/// Every hash is the same.
struct EqualHashes : EqualQuickHashes {
  using is_avalanching = void;

  template <class T>
  std::size_t operator()(const T&) const noexcept
  {
    return 7;
  }
};

}

template <class KindOfHash>
struct std::hash<Tarvik::OwnIdentifier<KindOfHash>> : KindOfHash {};
