// SPDX-License-Identifier: MIT
#pragma once

#include "Identifier/GUIdentifier.h"
#include "Identifier/Identifier.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <ostream>
#include <string>
#include <vector>

/// Identifiers for tests. They use only what every platform offers, so the same tests run on any
/// platform.
namespace Tarvik {

/// Both kinds of element identifiers: `TYPED_TEST_SUITE(Suite, ElementIdentifiers, KindName)`.
using ElementIdentifiers = ::testing::Types<Identifier, GUIdentifier>;

/// Class templates for both kinds: `ForBothKinds<AddToTKGroupCmd, CreateTKGroupCmd>`.
template <template <class> class... Templates>
using ForBothKinds = ::testing::Types<Templates<Identifier>..., Templates<GUIdentifier>...>;

struct KindName {
  template <class T>
  static std::string GetName(int)
  {
    return std::is_same_v<T, Identifier> ? "Identifier" : "GUIdentifier";
  }
};

/// N new identifiers, to be unpacked: `const auto [a, b, c] = distinct<T, 3>();`
template <class T, std::size_t N>
std::array<T, N> distinct()
{
  return {};
}

/// "id1", "id2", ... in the order in which identifiers are first printed: enough to see in a
/// failure which of them are equal.
template <class T>
std::string printedName(const T& id)
{
  static std::vector<T> printed;
  if (!id.isValid())
    return "invalid";
  auto found = std::find(printed.begin(), printed.end(), id);
  if (found == printed.end())
    found = printed.insert(found, id);
  return "id" + std::to_string(found - printed.begin() + 1);
}

inline void PrintTo(const Identifier& id, std::ostream* out)
{
  *out << printedName(id);
}

inline void PrintTo(const GUIdentifier& id, std::ostream* out)
{
  *out << printedName(id);
}

}
